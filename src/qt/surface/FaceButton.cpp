#include "qt/surface/FaceButton.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include "qt/access/FaceAccess.h"
#include "qt/widgets/asText.h"

namespace qt::surface {

FaceButton::FaceButton(toolkit::Button& model, FaceShape shape, const QString& caption,
                       FaceArt& art, QWidget* parent)
    : widgets::ButtonView(model, Kind::State, caption, parent),
      Described(this),
      shape_(shape),
      art_(art) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::ClickFocus);
}

void FaceButton::showAssignment(const describe::Assignment& assignment) {
    if (assignment == assignment_ && !accessibleDescription().isEmpty()) {
        return;
    }
    assignment_ = assignment;
    const QString sent = widgets::asText(assignment.fullText());
    setAccessibleDescription(sent);
    setToolTip(accessibleName() + QLatin1Char('\n') + sent);
    constexpr int reach = 2;  // of strokes that lean out of their line
    update(letteredAreaOf(look(), art_.lettering())
               .toAlignedRect()
               .adjusted(-reach, -reach, reach, reach));
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

QAccessibleInterface* FaceButton::newAccess() {
    return access::newFaceAccess(*this, [this] { return isShownLit(); });
}

FaceLook FaceButton::look() const {
    FaceLook look;
    static_cast<ButtonState&>(look) = stateOf(*this);
    look.isChecked = isShownLit();
    look.shape = shape_;
    look.area = rect();
    look.unit = unit_;
    look.font = font();
    look.caption = text();
    look.assignment = assignment_;
    return look;
}

void FaceButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const FaceLook shown = look();
    painter.drawPixmap(0, 0, art_.ground(shown, pos(), devicePixelRatioF()));
    paintFaceLetters(painter, shown, art_.colours(), art_.lettering());
}

bool FaceButton::event(QEvent* event) {
    const bool isTaken = widgets::ButtonView::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) {
        setAttribute(Qt::WA_OpaquePaintEvent);  // styles take that from buttons
    }
    return isTaken;
}

void FaceButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
        widgets::ButtonView::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void FaceButton::focusInEvent(QFocusEvent* event) {
    widgets::ButtonView::focusInEvent(event);
    if (onFocus) {
        onFocus();
    }
}

}  // namespace qt::surface
