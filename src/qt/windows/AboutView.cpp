#include "qt/windows/AboutView.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace qt::windows {

namespace {

constexpr int iconSize = 72;

}  // namespace

AboutView::AboutView(editor::about& controller)
    : widgets::DialogView(controller, QStringLiteral("About Tormelk Wyro")) {
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
    auto* words = new QVBoxLayout;
    words->setSpacing(10);
    words->addWidget(name);
    words->addWidget(version);
    words->addWidget(purpose);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(20);
    const QIcon programIcon = QApplication::windowIcon();
    if (!programIcon.isNull()) {
        auto* icon = new QLabel;
        icon->setPixmap(programIcon.pixmap(iconSize));
        columns->addWidget(icon, 0, Qt::AlignTop);
    }
    columns->addLayout(words);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(18);
    layout->addLayout(columns);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace qt::windows
