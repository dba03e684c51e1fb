#include "qt/FaceButton.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include "qt/FaceAccess.h"
#include "qt/asText.h"

namespace qt {

FaceButton::FaceButton(toolkit::Button& model, FaceShape shape, const QString& caption,
                       FaceArt& art, QWidget* parent)
    : ButtonView(model, Kind::State, caption, parent), shape_(shape), art_(art) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::ClickFocus);
    describeAfresh(*this);
}

void FaceButton::showAssignment(const describe::Assignment& assignment) {
    if (assignment == assignment_ && !accessibleDescription().isEmpty()) {
        return;
    }
    assignment_ = assignment;
    const QString sent = asText(assignment.fullText());
    setAccessibleDescription(sent);
    setToolTip(accessibleName() + QLatin1Char('\n') + sent);
    update();
}

void FaceButton::setUnit(qreal unit) {
    unit_ = unit;
    update();
}

void FaceButton::setCurrent(bool current) {
    if (current != isCurrent_) {
        isCurrent_ = current;
        update();
    }
}

FaceLook FaceButton::look() const {
    FaceLook look;
    look.shape = shape_;
    look.area = rect();
    look.unit = unit_;
    look.font = font();
    look.caption = text();
    look.assignment = assignment_;
    look.isChecked = isShownLit();
    look.isEnabled = isEnabled();
    look.isHovered = underMouse() && isEnabled();
    look.isHeld = isDown();
    look.hasFocus = hasFocus();
    return look;
}

void FaceButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const FaceLook shown = look();
    painter.drawPixmap(0, 0, art_.body(shown, devicePixelRatioF()));
    paintFaceLetters(painter, shown, art_.colours());
}

void FaceButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
        ButtonView::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void FaceButton::focusInEvent(QFocusEvent* event) {
    ButtonView::focusInEvent(event);
    if (onFocus) {
        onFocus();
    }
}

}  // namespace qt
