#pragma once

#include "config/layout.h"
#include "editor/EditorState.h"

namespace editor {

/// The layer whose assignment a control's face shows: the block that a click on it would show and
/// edit. For a pad that is the pad layer's, which a click makes the edited one; for all others the
/// edited one, which is not the lit mode layer's for as long as a pad has taken its place.
[[nodiscard]] constexpr int shownLayer(const Layers& layers, int control) {
    return config::isPad(control) ? layers.m_paLa : layers.layrData;
}

}  // namespace editor
