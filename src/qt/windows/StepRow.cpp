#include "qt/windows/StepRow.h"

#include <QLabel>
#include <QPainter>

namespace qt::windows {

namespace {

constexpr int badgeSize = 26;
constexpr int padding = 10;
constexpr double corner = 6;
constexpr float tint = 0.16F;      // how much of the highlight is in the background
constexpr float faintness = 0.4F;  // how much of the text's colour is in a line that is less

}  // namespace

StepRow::StepRow(int number, const Words& words)
    : number_(number), lines_(new QVBoxLayout), buttons_(new QVBoxLayout) {
    auto* title = new QLabel(words.title);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    lines_->setSpacing(2);
    lines_->addWidget(title);
    lines_->addWidget(new QLabel(words.whatToDo));
    lines_->addWidget(new QLabel(words.whatToExpect));
    buttons_->setSpacing(4);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2 * padding + badgeSize, padding - 2, padding, padding - 2);
    layout->setSpacing(16);
    layout->addLayout(lines_, 1);
    layout->addLayout(buttons_);
    layout->setAlignment(buttons_, Qt::AlignVCenter);
}

void StepRow::addLine(QWidget* line) {
    lines_->addWidget(line);
}

void StepRow::addButton(QWidget* button) {
    buttons_->addWidget(button);
}

void StepRow::setNext(bool next) {
    if (next != next_) {
        next_ = next;
        update();
    }
}

void StepRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor highlight = palette().color(QPalette::Highlight);
    if (next_) {
        QColor background = highlight;
        background.setAlphaF(tint);
        painter.setPen(QPen(highlight, 1));
        painter.setBrush(background);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
    }
    const QRectF badge(padding, padding, badgeSize, badgeSize);
    QColor faint = palette().color(QPalette::WindowText);
    faint.setAlphaF(faintness);
    painter.setPen(QPen(next_ ? highlight : faint, 1));
    painter.setBrush(next_ ? QBrush(highlight) : QBrush(Qt::NoBrush));
    painter.drawEllipse(badge);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(next_ ? QPalette::HighlightedText : QPalette::WindowText));
    painter.drawText(badge, Qt::AlignCenter, QString::number(number_));
}

}  // namespace qt::windows
