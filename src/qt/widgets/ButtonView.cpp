#include "qt/widgets/ButtonView.h"

#include <QPainter>
#include <QPointer>

namespace qt::widgets {

ButtonView::ButtonView(toolkit::Button& model, Kind kind, const QString& caption, QWidget* parent)
    : QPushButton(caption, parent), link_(model, [this] { showModel(); }) {
    setCheckable(kind == Kind::State);
    setAutoDefault(kind == Kind::Command);  // Enter in a dialog lights nothing
    showModel();
    connect(this, &QPushButton::clicked, this, [this] { passClick(); });
    // Assistive technology toggles a checkable button without clicking it.
    connect(this, &QPushButton::toggled, this, [this](bool lit) {
        const toolkit::Button* shown = link_.model();
        if (shown != nullptr && lit != (shown->state() != 0)) {
            passClick();
        }
    });
}

void ButtonView::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    const bool byKeyboard = window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (hasFocus() && isDefault() && byKeyboard) {
        constexpr int inset = 4;
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::ButtonText), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
    }
}

void ButtonView::passClick() {
    const QPointer<ButtonView> self(this);  // the action may close the window
    if (toolkit::Button* shown = link_.model()) {
        shown->click();
    }
    if (self) {
        showModel();
    }
}

void ButtonView::showModel() {
    if (const toolkit::Button* shown = link_.model()) {
        setChecked(shown->state() != 0);
        setEnabled(shown->isEnabled());
    }
}

}  // namespace qt::widgets
