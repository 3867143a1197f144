#pragma once

#include "editing/IEditableBufferMonitor.h"

#include <string>
#include <vector>

namespace foedit::test {

// A monitor that writes down each call, in order: "buffer", "caret", "selection".
//
//     RecordingMonitor monitor;
//     buffer->setMonitor(&monitor);
//     ...
//     EXPECT_EQ(monitor.events, (std::vector<std::string>{"buffer", "caret"}));
class RecordingMonitor : public IEditableBufferMonitor {
public:
    void onBufferChanged() override { events.emplace_back("buffer"); }
    void onCaretChanged() override { events.emplace_back("caret"); }
    void onSelectionChanged() override { events.emplace_back("selection"); }
    void clear() { events.clear(); }

    std::vector<std::string> events;
};

} // namespace foedit::test
