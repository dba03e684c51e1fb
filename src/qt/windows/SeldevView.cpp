#include "qt/windows/SeldevView.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "qt/widgets/ButtonView.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"

namespace qt::windows {

namespace {

/// Letters. Names of MIDI ports are long and begin alike: cut, two of them could not be told apart.
constexpr int nameWidth = 28;

}  // namespace

SeldevView::SeldevView(devices::DeviceDialog& controller)
    : widgets::DialogView(controller, QStringLiteral("MIDI Devices")),
      inputs_(new widgets::ComboBoxView(controller.combo_in)),
      outputs_(new widgets::ComboBoxView(controller.combo_out)),
      hint_(new QLabel),
      hintLink_(controller.hint, [this] { showHint(); }) {
    widgets::nameWidget(*inputs_, QStringLiteral("combo_in"), QStringLiteral("MIDI input"));
    widgets::nameWidget(*outputs_, QStringLiteral("combo_out"),
                        QStringLiteral("MIDI output: where the controller listens"));
    for (widgets::ComboBoxView* box : {inputs_, outputs_}) {
        box->setMinimumContentsLength(nameWidth);
    }
    hint_->setObjectName(QStringLiteral("hint"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    // The command that it may advise can be copied.
    hint_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* ok = new widgets::ButtonView(controller.okButton, widgets::ButtonView::Kind::Command,
                                       QStringLiteral("OK"));
    ok->setObjectName(QStringLiteral("ok"));
    ok->setDefault(true);
    auto* cancel = new widgets::ButtonView(
        controller.cancelButton, widgets::ButtonView::Kind::Command, QStringLiteral("Cancel"));
    cancel->setObjectName(QStringLiteral("cancel"));

    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(QStringLiteral("&Input"), inputs_);
    form->addRow(QStringLiteral("O&utput"), outputs_);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(14);
    layout->addLayout(form);
    layout->addWidget(hint_);
    layout->addStretch(1);
    layout->addLayout(buttons);
    showHint();
}

void SeldevView::showHint() {
    if (const toolkit::TextField* hint = hintLink_.model()) {
        hint_->setText(widgets::asText(hint->stringValue()));
        hint_->setVisible(!hint->stringValue().empty());
    }
}

}  // namespace qt::windows
