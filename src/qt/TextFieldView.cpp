#include "qt/TextFieldView.h"

#include "qt/asText.h"

namespace qt {

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

}  // namespace qt
