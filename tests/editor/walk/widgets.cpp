#include "editor/walk/widgets.h"

namespace walk {

toolkit::ComboBox& boxOf(editor::MainWindow& window, MainBox box) {
    switch (box) {
        case MainBox::combo_mode:
            return window.combo_mode;
        case MainBox::combo_type:
            return window.combo_type;
        case MainBox::combo_chan:
            return window.combo_chan;
        case MainBox::combo_cc:
            return window.combo_cc;
        case MainBox::combo_trig:
            break;
    }
    return window.combo_trig;
}

toolkit::ComboBox& boxOf(editor::pad& pad, PadBox box) {
    switch (box) {
        case PadBox::combo_chan:
            return pad.combo_chan;
        case PadBox::combo_chanMod:
            return pad.combo_chanMod;
        case PadBox::combo_msg:
            return pad.combo_msg;
        case PadBox::combo_intervl:
            return pad.combo_intervl;
        case PadBox::combo_curv:
            return pad.combo_curv;
        case PadBox::combo_curConst:
            break;
    }
    return pad.combo_curConst;
}

toolkit::Button& layerButtonOf(editor::pad& pad, int padLayer) {
    if (padLayer == 1) {
        return pad.m_paLa1;
    }
    return padLayer == 2 ? pad.m_paLa2 : pad.m_paLa3;
}

}  // namespace walk
