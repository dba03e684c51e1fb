#include "qt/AboutView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qt {

AboutView::AboutView(shell::about& controller)
    : DialogView(controller, QStringLiteral("About Tormelk Wyro")) {
    auto* name = new QLabel(QStringLiteral("Tormelk Wyro"));
    QFont large = name->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.6);
    name->setFont(large);
    auto* version = new QLabel(QStringLiteral("Version " TORMELK_VERSION));
    auto* purpose = new QLabel(
        QStringLiteral("Editor for the Tormelk MIDI controller: assign its controls, choose the\n"
                       "DAW it works with, and send it all to the controller."));
    auto* close = new QPushButton(QStringLiteral("Close"));
    close->setObjectName(QStringLiteral("close"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, [this] { reject(); });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addWidget(purpose);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace qt
