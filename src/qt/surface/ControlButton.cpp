#include "qt/surface/ControlButton.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "qt/access/FaceAccess.h"
#include "qt/surface/contrast.h"

namespace qt::surface {

ControlButton::ControlButton(toolkit::Button& model, Shape shape, const QString& caption,
                             QWidget* parent)
    : widgets::ButtonView(model, Kind::State, caption, parent),
      Described(static_cast<QObject&>(*this)),
      shape_(shape) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(isLamp() ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QAccessibleInterface* ControlButton::newAccess() {
    return isLamp() ? access::newLampAccess(*this) : nullptr;
}

QSize ControlButton::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int width = metrics.horizontalAdvance(text());
    const int height = metrics.height();
    return isLamp() ? QSize(width + height + 10, height + 8) : QSize(width + 16, height + 12);
}

void ControlButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(lettering());
    const Colours used = colours();
    drawBody(painter, used);
    drawCaption(painter, used);
    if (hasFocus()) {
        drawFocus(painter, used);
    }
}

ControlButton::Colours ControlButton::colours() const {
    const QPalette& all = palette();
    const bool lit = isChecked();
    const QColor lettering =
        all.color(lit && shape_ != Shape::Lamp ? QPalette::HighlightedText : QPalette::ButtonText);
    QColor fill = lit ? shadeFor(all.color(QPalette::Highlight),
                                 all.color(QPalette::HighlightedText), readableContrast + 0.4)
                      : between(all.color(QPalette::Button), all.color(QPalette::Light), 0.5);
    if (isDown()) {
        fill = between(fill, lettering, 0.25);
    } else if (underMouse() && isEnabled()) {
        fill = between(fill, lettering, 0.08);
    }
    const QColor line = between(all.color(QPalette::Window), all.color(QPalette::WindowText),
                                isEnabled() ? 0.55 : 0.3);
    return {fill, line, lettering};
}

QFont ControlButton::lettering() const {
    QFont used = font();
    used.setBold(isChecked() && shape_ != Shape::Lamp);
    return used;
}

QRectF ControlButton::outline() const {
    const QRectF all = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    if (shape_ == Shape::Lamp) {
        const qreal side = all.height() * 0.6;
        return {all.left() + 1, all.center().y() - side / 2, side, side};
    }
    return all;
}

qreal ControlButton::cornerRadius() const {
    return isLamp() ? outline().width() / 2 : 4;
}

void ControlButton::drawBody(QPainter& painter, const Colours& colours) const {
    const bool lit = isChecked();
    painter.setPen(
        QPen(lit ? between(colours.fill, palette().color(QPalette::WindowText), 0.4) : colours.line,
             lit ? 2.0 : 1.0));
    painter.setBrush(colours.fill);
    painter.drawRoundedRect(outline(), cornerRadius(), cornerRadius());
}

void ControlButton::drawCaption(QPainter& painter, const Colours& colours) const {
    painter.setPen(colours.lettering);
    QRectF area = rect();
    int alignment = Qt::AlignCenter;
    if (shape_ == Shape::Lamp) {
        area.setLeft(outline().right() + 6);
        alignment = Qt::AlignLeft | Qt::AlignVCenter;
    }
    painter.drawText(area, alignment | Qt::TextShowMnemonic, text());
}

void ControlButton::drawFocus(QPainter& painter, const Colours& colours) const {
    const qreal inset = 3;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.lettering, 1.0, Qt::DotLine));
    painter.drawRoundedRect(outline().adjusted(inset, inset, -inset, -inset),
                            std::max(cornerRadius() - inset, 1.0),
                            std::max(cornerRadius() - inset, 1.0));
}

}  // namespace qt::surface
