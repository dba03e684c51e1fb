#include "qt/widgets/ComboBoxView.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QStylePainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "qt/widgets/SearchedList.h"
#include "qt/widgets/asText.h"

namespace qt::widgets {

namespace {

constexpr int itemsAtOnce = 16;
constexpr int widthInLetters = 8;  // at the least; the lists say more in their pop-up

}  // namespace

int ComboBoxView::Items::rowCount(const QModelIndex& parent) const {
    const toolkit::ComboBox* box = view_.link_.model();
    return parent.isValid() || box == nullptr ? 0 : box->numberOfItems();
}

QVariant ComboBoxView::Items::data(const QModelIndex& index, int role) const {
    const toolkit::ComboBox* box = view_.link_.model();
    if (box == nullptr ||
        (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const auto item = box->itemObjectValueAtIndex(index.row());
    const bool isWanted = item && (role != Qt::ToolTipRole || view_.cuts(asText(*item)));
    return isWanted ? QVariant(asText(*item)) : QVariant();
}

void ComboBoxView::Items::reset() {
    beginResetModel();
    endResetModel();
}

ComboBoxView::ComboBoxView(toolkit::ComboBox& model, QWidget* parent)
    : QComboBox(parent),
      link_(model, [this](toolkit::ComboBox::Change change) { follow(change); }) {
    setFocusPolicy(Qt::StrongFocus);  // not by the wheel
    setMaxVisibleItems(itemsAtOnce);
    // Some styles show all items at once, up to the height of the screen, unless they are told so.
    setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(widthInLetters);
    setModel(&items_);
    setView(new SearchedList(*this, link_, [this](int row) { pick(row); }));
    showSelection();
    setEnabled(model.isEnabled());
    connect(this, &QComboBox::activated, this, [this](int index) { passChoice(index); });
}

void ComboBoxView::showPopup() {
    // As wide as its longest item, so that no name is cut, but no wider than the screen.
    QAbstractItemView* list = view();
    const int wanted = list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() +
                       2 * list->frameWidth();
    list->setMinimumWidth(
        std::max(std::min(wanted, screen()->availableGeometry().width()), width()));
    QComboBox::showPopup();
}

void ComboBoxView::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

void ComboBoxView::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (!plain || typed.isEmpty() || !typed.front().isLetterOrNumber() || count() == 0) {
        QComboBox::keyPressEvent(event);
        return;
    }
    showPopup();
    view()->keyboardSearch(typed);
}

bool ComboBoxView::cuts(const QString& item) const {
    return fontMetrics().horizontalAdvance(item) > view()->viewport()->width();
}

QString ComboBoxView::shownText() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect area =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideRight, area.width() - 2);
}

void ComboBoxView::paintEvent(QPaintEvent*) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shownText();
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

bool ComboBoxView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && shownText() != currentText()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), currentText(), this);
        return true;
    }
    return QComboBox::event(event);
}

void ComboBoxView::follow(toolkit::ComboBox::Change change) {
    switch (change) {
        case toolkit::ComboBox::Change::Items:
            showItems();
            break;
        case toolkit::ComboBox::Change::Selection:
            showSelection();
            break;
        case toolkit::ComboBox::Change::Enabled:
            setEnabled(link_.model()->isEnabled());
            break;
    }
}

void ComboBoxView::showItems() {
    hidePopup();  // a pick from the old list would mean another item of the new one
    items_.reset();
    showSelection();
}

void ComboBoxView::showSelection() {
    if (const toolkit::ComboBox* box = link_.model()) {
        setCurrentIndex(box->indexOfSelectedItem());
    }
}

void ComboBoxView::pick(int row) {
    if (isEnabled() && row >= 0 && row < count()) {
        hidePopup();
        passChoice(row);
    }
}

void ComboBoxView::passChoice(int index) {
    const QPointer<ComboBoxView> self(this);  // the handler may close the window
    if (toolkit::ComboBox* box = link_.model()) {
        box->choose(index);
    }
    if (self) {
        showSelection();
    }
}

}  // namespace qt::widgets
