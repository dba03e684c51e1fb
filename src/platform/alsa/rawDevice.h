#pragma once

#include <optional>
#include <string>

#include "platform/alsa/FillLevel.h"

namespace platform::alsa {

/// Reads the level of one output of a raw device, in bytes, from the text the kernel has about the
/// device. Nothing while nobody has it open.
[[nodiscard]] std::optional<FillLevel> outputLevelIn(const std::string& text, int output);

/// Reads who has one output of a raw device open, from the same text: a process, or one of its
/// threads. Nothing while nobody has.
[[nodiscard]] std::optional<int> ownerOfOutputIn(const std::string& text, int output);

/// The level now of the raw device behind a port of a hardware client, in bytes. Nothing where the
/// kernel does not show it, or the device has gone.
[[nodiscard]] std::optional<FillLevel> levelOfRawDevice(int card, int port);

/// The name of the program that has the raw device behind a port open; empty where it is not known.
[[nodiscard]] std::string programThatHolds(int card, int port);

}  // namespace platform::alsa
