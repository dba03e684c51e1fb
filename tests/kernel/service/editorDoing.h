#pragma once

#include <string>
#include <vector>

namespace kernel {

/// The command that starts the editor program, without a display, with an operator in it who does
/// what the task says (tests/app/windowOperator.cpp has them), with the output of this name and
/// this file.
inline std::vector<std::string> editorDoing(const std::string& task, const std::string& output,
                                            const std::string& file = {}) {
    return {"env",
            "QT_QPA_PLATFORM=offscreen",
            "XDG_RUNTIME_DIR=/run",
            std::string("QT_PLUGIN_PATH=") + TORMELK_OPERATOR_FOLDER,
            "QT_QPA_GENERIC_PLUGINS=window-operator:" + task,
            "TORMELK_OPERATOR_OUTPUT=" + output,
            "TORMELK_OPERATOR_FILE=" + file,
            TORMELK_WYRO};
}

}  // namespace kernel
