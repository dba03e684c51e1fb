#include "qt/ChoiceAccess.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <vector>

#include "qt/ComboBoxView.h"
#include "qt/SearchedList.h"

namespace qt {

namespace {

/// An item of a box's list.
class ChoiceAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ChoiceAccess(SearchedList* list, int row) : list_(list), row_(row) {}

    [[nodiscard]] int row() const { return row_; }

    [[nodiscard]] bool isValid() const override {
        return list_ && row_ < list_->model()->rowCount();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override {
        return list_ ? list_->window()->windowHandle() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return list_ ? QAccessible::queryAccessibleInterface(list_) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const bool named = kind == QAccessible::Name && isValid();
        return named ? index().data(Qt::DisplayRole).toString() : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect inside = list_->visualRect(index());
        return {list_->viewport()->mapToGlobal(inside.topLeft()), inside.size()};
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid) {
            return state;
        }
        state.disabled = !list_->box().isEnabled();
        state.selectable = true;
        state.focusable = true;
        state.selected = list_->box().currentIndex() == row_;
        state.focused = list_->hasFocus() && list_->currentIndex().row() == row_;
        state.invisible = !list_->isVisible();
        state.offscreen = !list_->viewport()->rect().intersects(list_->visualRect(index()));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override {
        const bool choosable = isValid() && list_->box().isEnabled();
        return choosable ? QStringList(pressAction()) : QStringList();
    }
    /// The answer does not wait for what a choice leads to.
    void doAction(const QString& action) override {
        if (actionNames().contains(action)) {
            QMetaObject::invokeMethod(
                list_, [list = list_, row = row_] { list->box().pick(row); }, Qt::QueuedConnection);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    [[nodiscard]] QModelIndex index() const { return list_->model()->index(row_, 0); }

    const QPointer<SearchedList> list_;
    const int row_;
};

class ChoiceListAccess final : public QAccessibleWidget {
public:
    explicit ChoiceListAccess(SearchedList* list)
        : QAccessibleWidget(list, QAccessible::List), list_(list) {}
    ChoiceListAccess(const ChoiceListAccess&) = delete;
    ChoiceListAccess& operator=(const ChoiceListAccess&) = delete;
    ~ChoiceListAccess() override {
        for (const QAccessible::Id item : items_) {
            QAccessible::deleteAccessibleInterface(item);
        }
    }

    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&list_->box());
    }
    [[nodiscard]] int childCount() const override { return list_->model()->rowCount(); }
    [[nodiscard]] QAccessibleInterface* child(int row) const override {
        if (row < 0 || row >= childCount()) {
            return nullptr;
        }
        while (items_.size() <= static_cast<std::size_t>(row)) {
            items_.push_back(QAccessible::registerAccessibleInterface(
                new ChoiceAccess(list_, static_cast<int>(items_.size()))));
        }
        return QAccessible::accessibleInterface(items_.at(static_cast<std::size_t>(row)));
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* item = dynamic_cast<const ChoiceAccess*>(child);
        return item == nullptr ? -1 : item->row();
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint place = list_->viewport()->mapFromGlobal(QPoint(x, y));
        return child(list_->indexAt(place).row());
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return list_->hasFocus() ? child(list_->currentIndex().row()) : nullptr;
    }

private:
    SearchedList* list_;
    mutable std::vector<QAccessible::Id> items_;  ///< by row; those behind the last are not valid
};

QAccessibleInterface* describeList(const QString&, QObject* object) {
    auto* list = dynamic_cast<SearchedList*>(object);
    return list == nullptr ? nullptr : new ChoiceListAccess(list);
}

}  // namespace

void describeChoices() {
    QAccessible::installFactory(describeList);
}

}  // namespace qt
