#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <set>
#include <utility>

#include "editor/TestEditor.h"

namespace editor {

/// The editor in User Defined mode with the pad editor at hand.
class PadEditorTest : public UserDefinedTest {
protected:
    void use(int layer, const std::function<void(pad&)>& script) {
        editor.usePadEditor(layer, script);
    }
    static std::set<int> litLayers(pad& padEditor) {
        std::set<int> lit;
        const std::array<toolkit::Button*, 4> buttons = {&padEditor.m_paLa0, &padEditor.m_paLa1,
                                                         &padEditor.m_paLa2, &padEditor.m_paLa3};
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            if (isLit(*buttons.at(i))) {
                lit.insert(static_cast<int>(i));
            }
        }
        return lit;
    }
    /// Every byte of the three blocks of which working copy and image differ.
    std::set<std::pair<int, int>> mirroredOtherwise() {
        std::set<std::pair<int, int>> bytes;
        for (int layer = 1; layer < 4; ++layer) {
            for (int offset = 0; offset < 254; ++offset) {
                if (editor.copied(layer, offset) != editor.byte(layer, offset)) {
                    bytes.insert({layer, offset});
                }
            }
        }
        return bytes;
    }
};

}  // namespace editor
