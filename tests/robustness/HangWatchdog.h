#pragma once

// Turns a hang into a failure that can be replayed. A session tells the watchdog when a
// step starts (with its script line) and ends; a step that runs longer than the limit
// makes the watchdog print the session's script up to that step and abort the program.

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace foedit::test {

class HangWatchdog {
public:
    explicit HangWatchdog(std::chrono::seconds limit);
    ~HangWatchdog();
    HangWatchdog(const HangWatchdog &) = delete;
    HangWatchdog &operator=(const HangWatchdog &) = delete;

    // A new session: the script starts afresh under `header`.
    void sessionStarting(const std::string &header);
    void stepStarting(const std::string &line);
    void stepFinished();

private:
    void watch();
    [[noreturn]] void reportHang();

    const std::chrono::seconds limit;
    std::mutex mutex;
    std::condition_variable wake;
    std::string header;
    std::vector<std::string> script;
    bool stepRunning = false;
    bool stopping = false;
    std::chrono::steady_clock::time_point stepStart;
    std::thread watcher;
};

} // namespace foedit::test
