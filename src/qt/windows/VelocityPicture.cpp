#include "qt/windows/VelocityPicture.h"

#include <QComboBox>
#include <QPainter>
#include <QTextOption>

#include "qt/surface/contrast.h"

namespace qt::windows {

namespace {

constexpr int margin = 8;
constexpr int highestVelocity = 127;

}  // namespace

VelocityPicture::VelocityPicture(const QComboBox& curve, const QComboBox& constant,
                                 int constantEntry)
    : curve_(curve), constant_(constant), constantEntry_(constantEntry) {
    setObjectName(QStringLiteral("velocityPicture"));
    for (const QComboBox* box : {&curve, &constant}) {
        connect(box, &QComboBox::currentIndexChanged, this, [this] { tell(); });
    }
    tell();
}

QSize VelocityPicture::sizeHint() const {
    return {
        fontMetrics().horizontalAdvance(QStringLiteral("Velocity 127 for every hit")) + 2 * margin,
        fontMetrics().height() * 5 + 2 * margin};
}

bool VelocityPicture::isConstant() const {
    return curve_.currentIndex() == constantEntry_ && !constant_.currentText().isEmpty();
}

QString VelocityPicture::words() const {
    if (isConstant()) {
        return QStringLiteral("Velocity %1 for every hit").arg(constant_.currentText());
    }
    return curve_.currentText().isEmpty()
               ? QStringLiteral("No known velocity curve")
               : QStringLiteral("%1, built into the controller").arg(curve_.currentText());
}

void VelocityPicture::tell() {
    setAccessibleName(words());
    update();
}

void VelocityPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(frame, 4, 4);
    const QRectF area = frame.adjusted(margin, margin, -margin, -margin);
    painter.setPen(palette().color(QPalette::Text));
    if (isConstant()) {
        paintLevel(painter, area);
    } else {
        painter.drawText(area, words(), QTextOption(Qt::AlignCenter));
    }
}

/// A line whose height between none and the hardest says how hard every hit is.
void VelocityPicture::paintLevel(QPainter& painter, const QRectF& area) const {
    const qreal letters = fontMetrics().height();
    painter.drawText(area, words(), QTextOption(Qt::AlignTop | Qt::AlignHCenter));
    const QRectF scale = area.adjusted(0, 1.5 * letters, 0, -0.5 * letters);
    const QString hardest = QString::number(highestVelocity);
    const qreal numbers = fontMetrics().horizontalAdvance(hardest);
    const QTextOption place(Qt::AlignRight | Qt::AlignVCenter);
    const qreal left = scale.left() + numbers + margin;
    painter.drawText(QRectF(scale.left(), scale.top() - letters / 2, numbers, letters), hardest,
                     place);
    painter.drawText(QRectF(scale.left(), scale.bottom() - letters / 2, numbers, letters),
                     QStringLiteral("0"), place);
    painter.setPen(QPen(
        surface::between(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.35),
        1));
    painter.drawLine(QPointF(left, scale.top()), scale.topRight());
    painter.drawLine(QPointF(left, scale.bottom()), scale.bottomRight());
    const qreal level = constant_.currentText().toInt() / qreal(highestVelocity);
    const qreal height = scale.bottom() - level * scale.height();
    painter.setPen(QPen(palette().color(QPalette::Highlight), 3, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(left, height), QPointF(scale.right(), height));
}

}  // namespace qt::windows
