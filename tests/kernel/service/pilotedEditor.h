#pragma once

#include <string>
#include <vector>

namespace kernel {

/// The command that starts the editor program, without a display, with a pilot in it who does what
/// the task says (tests/app/pilot.cpp has them), with the output of this name and this file.
inline std::vector<std::string> pilotedEditor(const std::string& task, const std::string& output,
                                              const std::string& file = {}) {
    return {"env",
            "QT_QPA_PLATFORM=offscreen",
            "XDG_RUNTIME_DIR=/run",
            std::string("QT_PLUGIN_PATH=") + TORMELK_PILOT_FOLDER,
            "QT_QPA_GENERIC_PLUGINS=pilot:" + task,
            "TORMELK_PILOT_OUTPUT=" + output,
            "TORMELK_PILOT_FILE=" + file,
            TORMELK_WYRO};
}

}  // namespace kernel
