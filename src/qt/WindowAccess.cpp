#include "qt/WindowAccess.h"

#include <QAccessibleWidget>
#include <QAction>
#include <QMenu>
#include <QPointer>

#include "qt/DialogView.h"
#include "qt/MainWindowView.h"
#include "qt/SimulatorView.h"

namespace qt {

namespace {

class DialogAccess final : public QAccessibleWidget {
public:
    explicit DialogAccess(DialogView* dialog) : QAccessibleWidget(dialog, QAccessible::Dialog) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = widget()->isModal();
        return state;
    }
};

/// An entry of a menu that does something. Qt's own runs the whole command before it answers; a
/// screen reader then waits for the person who is to close the dialog, in vain.
class CommandAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    explicit CommandAccess(QAction* action) : action_(action) {}

    [[nodiscard]] bool isValid() const override { return !action_.isNull() && menu() != nullptr; }
    [[nodiscard]] QObject* object() const override { return action_; }
    [[nodiscard]] QWindow* window() const override {
        const QMenu* shown = menu();
        return shown == nullptr ? nullptr : shown->windowHandle();
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(menu());
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
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
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect inside = menu()->actionGeometry(action_);
        return {menu()->mapToGlobal(inside.topLeft()), inside.size()};
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (!state.invalid) {
            state.disabled = !action_->isEnabled();
            state.focusable = true;
            state.hotTracked = true;
            state.invisible = !menu()->isVisible();
            state.focused = menu()->isVisible() && menu()->activeAction() == action_;
            state.selectable = true;
            state.selected = state.focused;
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return isValid() && action_->isEnabled() ? QStringList(pressAction()) : QStringList();
    }
    void doAction(const QString& name) override {
        if (actionNames().contains(name)) {
            QMetaObject::invokeMethod(action_, &QAction::trigger, Qt::QueuedConnection);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        const QString keys = text(QAccessible::Accelerator);
        return name == pressAction() && !keys.isEmpty() ? QStringList(keys) : QStringList();
    }

private:
    [[nodiscard]] QMenu* menu() const { return action_ ? menuOf(*action_) : nullptr; }
    static QMenu* menuOf(const QAction& action) {
        for (QObject* place : action.associatedObjects()) {
            if (auto* menu = qobject_cast<QMenu*>(place)) {
                return menu;
            }
        }
        return nullptr;
    }

    const QPointer<QAction> action_;
};

QAccessibleInterface* describeWindow(const QString&, QObject* object) {
    if (auto* dialog = dynamic_cast<DialogView*>(object)) {
        return new DialogAccess(dialog);
    }
    if (auto* view = dynamic_cast<SimulatorView*>(object)) {
        return new QAccessibleWidget(view, QAccessible::Window);
    }
    auto* action = qobject_cast<QAction*>(object);
    const bool isCommand =
        action != nullptr && dynamic_cast<MainWindowView*>(action->parent()) != nullptr;
    return isCommand ? new CommandAccess(action) : nullptr;
}

}  // namespace

void describeWindows() {
    QAccessible::installFactory(describeWindow);
}

}  // namespace qt
