#include "qt/widgets/TextFieldView.h"

#include <QHelpEvent>
#include <QStylePainter>
#include <QToolTip>

#include "qt/widgets/asText.h"

namespace qt::widgets {

TextFieldView::TextFieldView(toolkit::TextField& model, const QString& whenEmpty, QWidget* parent)
    : QLabel(parent), link_(model, [this] { showModel(); }), whenEmpty_(whenEmpty) {
    setTextFormat(Qt::PlainText);
    showModel();
}

void TextFieldView::showModel() {
    if (const toolkit::TextField* field = link_.model()) {
        setText(field->stringValue().empty() ? whenEmpty_ : asText(field->stringValue()));
    }
}

QSize TextFieldView::minimumSizeHint() const {
    constexpr int fewLetters = 8;
    const int few = fontMetrics().averageCharWidth() * fewLetters;
    return QLabel::minimumSizeHint().boundedTo(QSize(few, QWIDGETSIZE_MAX));
}

QString TextFieldView::shownText() const {
    const bool fits = wordWrap() || sizeHint().width() <= width();
    return fits ? text() : fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool TextFieldView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && shownText() != text()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLabel::event(event);
}

void TextFieldView::paintEvent(QPaintEvent* event) {
    const QString shown = shownText();
    if (shown == text()) {
        QLabel::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         shown, foregroundRole());
}

}  // namespace qt::widgets
