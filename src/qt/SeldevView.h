#pragma once

#include <QLabel>

#include "devices/DeviceDialog.h"
#include "qt/ComboBoxView.h"
#include "qt/DialogView.h"
#include "qt/ModelLink.h"

namespace qt {

/// Chooses the MIDI input and output: the view of `seldev` and of `seldev2`.
class SeldevView final : public DialogView {
public:
    explicit SeldevView(devices::DeviceDialog& controller);

private:
    void showHint();

    ComboBoxView* inputs_;
    ComboBoxView* outputs_;
    QLabel* hint_;
    ModelLink<toolkit::TextField> hintLink_;
};

}  // namespace qt
