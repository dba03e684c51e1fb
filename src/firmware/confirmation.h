#pragma once

#include <string>
#include <vector>

#include "firmware/FirmwareState.h"
#include "firmware/message.h"

namespace firmware {

/// Where an upload would go.
struct UploadOutput {
    std::string name;  ///< empty: no output is chosen
    bool online = false;
    std::vector<std::string> otherPrograms;  ///< connected to it, too
};

/// What the confirmation window says before an upload. An upload can be started although the last
/// file was refused, or although nothing would be written: then it warns in plain words.
[[nodiscard]] Confirmation confirmationOf(const FirmwareState& state, const UploadOutput& output);

}  // namespace firmware
