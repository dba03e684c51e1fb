#pragma once

#include <string>

#include "simulator/SimulatedController.h"

// What a simulated Tormelk has to tell, in lines for a terminal.

namespace simulator {

/// "1: configuration, layer 1 (254 bytes)"; with the word "refused" if it was.
[[nodiscard]] std::string lineOf(const LogEntry& entry);

/// A line for each of the four layers: what it holds, or that it holds nothing yet.
[[nodiscard]] std::string linesOf(const SimulatedController::Layers& layers);

}  // namespace simulator
