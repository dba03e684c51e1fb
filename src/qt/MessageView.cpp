#include "qt/MessageView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace qt {

MessageView::MessageView(shell::message& controller)
    : DialogView(controller, QStringLiteral("Firmware Update")),
      cancel_(new ButtonView(controller.cancelButton, ButtonView::Kind::Command,
                             QStringLiteral("Cancel"))) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    auto* question = new QLabel(
        QStringLiteral("The firmware of the controller is about to be replaced.\n\n"
                       "Until this has ended, do not disconnect the controller, and do not\n"
                       "switch it off.\n\n"
                       "Replace the firmware now?"));
    auto* ok = new ButtonView(controller.okButton, ButtonView::Kind::Command, QStringLiteral("OK"));
    ok->setObjectName(QStringLiteral("ok"));
    cancel_->setObjectName(QStringLiteral("cancel"));
    ok->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(16);
    layout->addWidget(question);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void MessageView::reject() {
    cancel_->click();
}

}  // namespace qt
