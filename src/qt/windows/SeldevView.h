#pragma once

#include <QLabel>

#include "devices/DeviceDialog.h"
#include "qt/widgets/ComboBoxView.h"
#include "qt/widgets/DialogView.h"
#include "qt/widgets/ModelLink.h"

namespace qt::windows {

/// Chooses the MIDI input and output: the view of `seldev` and of `seldev2`.
class SeldevView final : public widgets::DialogView {
public:
    explicit SeldevView(devices::DeviceDialog& controller);

private:
    void showHint();

    widgets::ComboBoxView* inputs_;
    widgets::ComboBoxView* outputs_;
    QLabel* hint_;
    widgets::ModelLink<toolkit::TextField> hintLink_;
};

}  // namespace qt::windows
