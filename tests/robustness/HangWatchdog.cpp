#include "robustness/HangWatchdog.h"

#include <cstdio>
#include <cstdlib>

namespace foedit::test {

HangWatchdog::HangWatchdog(std::chrono::seconds stepLimit) : limit(stepLimit), watcher([this] { watch(); }) {}

HangWatchdog::~HangWatchdog()
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
    }
    wake.notify_all();
    watcher.join();
}

void HangWatchdog::sessionStarting(const std::string &sessionHeader)
{
    std::lock_guard<std::mutex> lock(mutex);
    header = sessionHeader;
    script.clear();
    stepRunning = false;
}

void HangWatchdog::stepStarting(const std::string &line)
{
    std::lock_guard<std::mutex> lock(mutex);
    script.push_back(line);
    stepRunning = true;
    stepStart = std::chrono::steady_clock::now();
}

void HangWatchdog::stepFinished()
{
    std::lock_guard<std::mutex> lock(mutex);
    stepRunning = false;
}

void HangWatchdog::watch()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!stopping) {
        wake.wait_for(lock, std::chrono::milliseconds(200));
        if (stepRunning && std::chrono::steady_clock::now() - stepStart > limit)
            reportHang();
    }
}

// Called with the mutex held; the stuck step never gets it back.
void HangWatchdog::reportHang()
{
    std::fprintf(stderr, "\nA step ran longer than %llds: the engine hangs. Script up to that step:\n%s\n",
                 static_cast<long long>(limit.count()), header.c_str());
    for (const std::string &line : script)
        std::fprintf(stderr, "%s\n", line.c_str());
    std::fflush(stderr);
    std::abort();
}

} // namespace foedit::test
