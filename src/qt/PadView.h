#pragma once

#include "editor/pad.h"
#include "qt/DialogView.h"

class QLayout;

namespace qt {

/// The pad editor: the nine pads of pad layers 2 to 4.
class PadView final : public DialogView {
public:
    explicit PadView(editor::pad& controller);

private:
    static QLayout* makePads(editor::pad& controller);
    static QLayout* makeSettings(editor::pad& controller);
};

}  // namespace qt
