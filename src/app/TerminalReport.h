#pragma once

#include <QTimer>
#include <cstdint>

#include "simulator/SimulatedController.h"

namespace app {

/// Tells on standard output what a simulated Tormelk takes in and what it refuses, and, when
/// nothing more comes for a moment after a Send, what its four layers hold. Takes the controller's
/// `onChange` and must not outlive it.
class TerminalReport {
public:
    explicit TerminalReport(simulator::SimulatedController& tormelk);
    TerminalReport(const TerminalReport&) = delete;
    TerminalReport& operator=(const TerminalReport&) = delete;
    ~TerminalReport();

private:
    void tellNews();
    void tellLayers();

    simulator::SimulatedController& tormelk_;
    std::uint64_t told_ = 0;  // entries of the log
    QTimer untilQuiet_;
};

}  // namespace app
