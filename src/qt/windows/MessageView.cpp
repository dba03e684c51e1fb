#include "qt/windows/MessageView.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

#include "qt/widgets/asText.h"

namespace qt::windows {

namespace {

/// Pixels. Text that is broken into lines needs a width that is given: from it follows the height
/// of the window, which cannot be resized.
constexpr int textWidth = 440;
constexpr int longestWord = 40;  // letters; it fits into a line

/// A text whose long words, file names for example, may be broken anywhere behind `longestWord`
/// letters: a label breaks between words only, and would cut the rest of the name off.
QString breakable(const std::string& text) {
    QString all;
    int letters = 0;
    for (const QChar letter : widgets::asText(text)) {
        letters = letter.isSpace() ? 0 : letters + 1;
        if (letters > longestWord && !letter.isLowSurrogate()) {
            all += QChar(0x200B);  // of no width; a line may end here
        }
        all += letter;
    }
    return all;
}

QLabel* paragraph(const QString& text, int width) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(width);
    return label;
}

}  // namespace

MessageView::MessageView(firmware::message& controller)
    : widgets::DialogView(controller, QStringLiteral("Firmware Update")),
      cancel_(new widgets::ButtonView(controller.cancelButton, widgets::ButtonView::Kind::Command,
                                      QStringLiteral("Cancel"))) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    // The filter installed last is asked first: a close by the desktop becomes a press of Cancel
    // before the filter that would close the model without an answer.
    installEventFilter(this);
    auto* ok = new widgets::ButtonView(controller.okButton, widgets::ButtonView::Kind::Command,
                                       QStringLiteral("OK"));
    ok->setObjectName(QStringLiteral("ok"));
    cancel_->setObjectName(QStringLiteral("cancel"));
    const firmware::Confirmation& content = controller.content();
    (content.warnings.empty() ? ok : cancel_)->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(14);
    layout->addWidget(
        new QLabel(QStringLiteral("The firmware of the controller is about to be replaced.")));
    addWarnings(*layout, content.warnings);
    addFacts(*layout, content.facts);
    if (!content.advice.empty()) {
        layout->addWidget(paragraph(widgets::asText(content.advice), textWidth));
    }
    layout->addWidget(new QLabel(QStringLiteral("Replace the firmware now?")));
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void MessageView::addWarnings(QVBoxLayout& layout, const std::vector<std::string>& warnings) {
    if (warnings.empty()) {
        return;
    }
    constexpr int spacing = 12;
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    auto* icon = new QLabel;
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(8);
    for (const std::string& warning : warnings) {
        QLabel* text = paragraph(breakable(warning), textWidth - size - spacing);
        QFont bold = text->font();
        bold.setBold(true);
        text->setFont(bold);
        text->setObjectName(QStringLiteral("warning"));
        texts->addWidget(text);
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(texts);
    layout.addLayout(row);
}

void MessageView::addFacts(QVBoxLayout& layout,
                           const std::vector<firmware::Confirmation::Fact>& facts) {
    if (facts.empty()) {
        return;
    }
    constexpr int nameWidth = 110;
    auto* form = new QGridLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(4);
    form->setColumnMinimumWidth(0, nameWidth);
    int row = 0;
    for (const firmware::Confirmation::Fact& fact : facts) {
        QLabel* value = paragraph(breakable(fact.value), textWidth - nameWidth - 12);
        value->setObjectName(widgets::asText(fact.name));
        form->addWidget(new QLabel(widgets::asText(fact.name)), row, 0, Qt::AlignTop);
        form->addWidget(value, row, 1);
        ++row;
    }
    layout.addLayout(form);
}

void MessageView::reject() {
    cancel_->click();
}

bool MessageView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && event->spontaneous()) {
        event->ignore();
        cancel_->click();
        return true;
    }
    return widgets::DialogView::eventFilter(watched, event);
}

}  // namespace qt::windows
