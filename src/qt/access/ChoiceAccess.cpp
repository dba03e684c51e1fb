#include "qt/access/ChoiceAccess.h"

#include <QAccessibleWidget>
#include <QComboBox>
#include <QListView>
#include <QPointer>
#include <utility>
#include <vector>

#include "qt/access/ItemAccess.h"

namespace qt::access {

namespace {

/// The box is there as long as its list.
struct ChoiceList {
    QPointer<QListView> list;
    QComboBox* box;
    std::function<void(int row)> pick;
};

/// An item of a box's list.
class ChoiceAccess final : public ItemAccess {
public:
    ChoiceAccess(ChoiceList choices, int row)
        : box_(choices.box),
          list_(std::move(choices.list)),
          pick_(std::move(choices.pick)),
          row_(row) {}

    [[nodiscard]] int row() const { return row_; }

    [[nodiscard]] bool isValid() const override {
        return list_ && row_ < list_->model()->rowCount();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const bool named = kind == QAccessible::Name && isValid();
        return named ? index().data(Qt::DisplayRole).toString() : QString();
    }

protected:
    [[nodiscard]] QWidget* container() const override { return list_; }
    [[nodiscard]] QRect place() const override {
        const QRect inside = list_->visualRect(index());
        return {list_->viewport()->mapToGlobal(inside.topLeft()), inside.size()};
    }
    [[nodiscard]] bool isEnabled() const override { return box_->isEnabled(); }
    void completeState(QAccessible::State& state) const override {
        state.selected = box_->currentIndex() == row_;
        state.focused = list_->hasFocus() && list_->currentIndex().row() == row_;
        state.invisible = !list_->isVisible();
        state.offscreen = !list_->viewport()->rect().intersects(list_->visualRect(index()));
    }
    void pressSoon() override {
        QMetaObject::invokeMethod(
            list_, [pick = pick_, row = row_] { pick(row); }, Qt::QueuedConnection);
    }

private:
    [[nodiscard]] QModelIndex index() const { return list_->model()->index(row_, 0); }

    QComboBox* const box_;
    const QPointer<QListView> list_;
    const std::function<void(int row)> pick_;
    const int row_;
};

class ChoiceListAccess final : public QAccessibleWidget {
public:
    explicit ChoiceListAccess(ChoiceList choices)
        : QAccessibleWidget(choices.list, QAccessible::List), choices_(std::move(choices)) {}
    ChoiceListAccess(const ChoiceListAccess&) = delete;
    ChoiceListAccess& operator=(const ChoiceListAccess&) = delete;
    ~ChoiceListAccess() override {
        for (const QAccessible::Id item : items_) {
            QAccessible::deleteAccessibleInterface(item);
        }
    }

    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(choices_.box);
    }
    [[nodiscard]] int childCount() const override { return list().model()->rowCount(); }
    [[nodiscard]] QAccessibleInterface* child(int row) const override {
        if (row < 0 || row >= childCount()) {
            return nullptr;
        }
        while (items_.size() <= static_cast<std::size_t>(row)) {
            items_.push_back(QAccessible::registerAccessibleInterface(
                new ChoiceAccess(choices_, static_cast<int>(items_.size()))));
        }
        return QAccessible::accessibleInterface(items_.at(static_cast<std::size_t>(row)));
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* item = dynamic_cast<const ChoiceAccess*>(child);
        return item == nullptr ? -1 : item->row();
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint place = list().viewport()->mapFromGlobal(QPoint(x, y));
        return child(list().indexAt(place).row());
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return list().hasFocus() ? child(list().currentIndex().row()) : nullptr;
    }

private:
    [[nodiscard]] QListView& list() const { return *choices_.list; }

    const ChoiceList choices_;
    mutable std::vector<QAccessible::Id> items_;  ///< by row; those behind the last are not valid
};

}  // namespace

QAccessibleInterface* newChoiceListAccess(QListView& list, QComboBox& box,
                                          std::function<void(int row)> pick) {
    return new ChoiceListAccess({&list, &box, std::move(pick)});
}

}  // namespace qt::access
