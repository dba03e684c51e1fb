#include "app/TerminalReport.h"

#include <chrono>
#include <cstdio>

#include "simulator/report.h"

namespace app {

TerminalReport::TerminalReport(simulator::SimulatedController& tormelk) : tormelk_(tormelk) {
    tormelk_.onChange = [this] { tellNews(); };
    untilQuiet_.setSingleShot(true);
    untilQuiet_.setInterval(std::chrono::milliseconds(300));
    QObject::connect(&untilQuiet_, &QTimer::timeout, &untilQuiet_, [this] { tellLayers(); });
}

TerminalReport::~TerminalReport() {
    tormelk_.onChange = nullptr;
}

void TerminalReport::tellNews() {
    for (const simulator::LogEntry& entry : tormelk_.log()) {
        if (entry.number > told_) {
            told_ = entry.number;
            std::fputs(simulator::lineOf(entry).c_str(), stdout);
        }
    }
    std::fflush(stdout);
    untilQuiet_.start();
}

void TerminalReport::tellLayers() {
    std::fputs(simulator::linesOf(tormelk_.layers()).c_str(), stdout);
    std::fflush(stdout);
}

}  // namespace app
