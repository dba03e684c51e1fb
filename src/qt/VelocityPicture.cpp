#include "qt/VelocityPicture.h"

#include <QComboBox>
#include <QPainter>
#include <QTextOption>

namespace qt {

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
        fontMetrics().height() * 4 + 2 * margin};
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

    const QRectF room = frame.adjusted(margin, margin, -margin, -margin);
    painter.setPen(palette().color(QPalette::Text));
    const bool constant = isConstant();
    const Qt::Alignment place = constant ? Qt::AlignTop : Qt::AlignVCenter;
    painter.drawText(room, words(), QTextOption(place | Qt::AlignHCenter));
    if (!constant) {
        return;
    }
    // The line's height in the room below the words says how hard.
    const QRectF scale = room.adjusted(0, fontMetrics().height() + 4, 0, 0);
    const qreal level = constant_.currentText().toInt() / qreal(highestVelocity);
    const qreal height = scale.bottom() - level * scale.height();
    painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DotLine));
    painter.drawLine(scale.bottomLeft(), scale.bottomRight());
    painter.setPen(QPen(palette().color(QPalette::Highlight), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(scale.left(), height), QPointF(scale.right(), height));
}

}  // namespace qt
