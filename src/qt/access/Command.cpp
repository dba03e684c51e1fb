#include "qt/access/Command.h"

#include <QMenu>
#include <QPointer>

#include "qt/access/ItemAccess.h"

namespace qt::access {

namespace {

QMenu* menuOf(const QAction& action) {
    for (QObject* place : action.associatedObjects()) {
        if (auto* menu = qobject_cast<QMenu*>(place)) {
            return menu;
        }
    }
    return nullptr;
}

/// Qt's own runs the whole command before it answers; a screen reader then waits for the person who
/// is to close the dialog, in vain.
class CommandAccess final : public ItemAccess {
public:
    explicit CommandAccess(QAction* action) : action_(action) {}

    [[nodiscard]] bool isValid() const override { return menu() != nullptr; }
    [[nodiscard]] QObject* object() const override { return action_; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::MenuItem; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (!isValid()) {
            return {};
        }
        if (kind == QAccessible::Accelerator) {
            return action_->shortcut().toString(QKeySequence::NativeText);
        }
        return kind == QAccessible::Name ? action_->text().remove(u'&') : QString();
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        const QString keys = text(QAccessible::Accelerator);
        return name == pressAction() && !keys.isEmpty() ? QStringList(keys) : QStringList();
    }

protected:
    [[nodiscard]] QWidget* container() const override { return menu(); }
    [[nodiscard]] QRect place() const override {
        const QRect inside = menu()->actionGeometry(action_);
        return {menu()->mapToGlobal(inside.topLeft()), inside.size()};
    }
    [[nodiscard]] bool isEnabled() const override { return action_->isEnabled(); }
    void completeState(QAccessible::State& state) const override {
        state.hotTracked = true;
        state.invisible = !menu()->isVisible() || !action_->isVisible();
        state.focused = menu()->isVisible() && menu()->activeAction() == action_;
        state.selected = state.focused;
    }
    void pressSoon() override {
        QMetaObject::invokeMethod(action_, &QAction::trigger, Qt::QueuedConnection);
    }

private:
    [[nodiscard]] QMenu* menu() const { return action_ ? menuOf(*action_) : nullptr; }

    const QPointer<QAction> action_;
};

}  // namespace

Command::Command(const QString& caption, QObject* parent)
    : QAction(caption, parent), Described(this) {}

QAccessibleInterface* Command::newAccess() {
    return new CommandAccess(this);
}

}  // namespace qt::access
