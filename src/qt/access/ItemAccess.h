#pragma once

#include <QAccessible>
#include <QWidget>

namespace qt::access {

/// What is told of a part of a widget that is no widget itself and has no parts: an item of a list,
/// an entry of a menu. It can be pressed.
class ItemAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

protected:
    /// The widget that it is a part of; null once that is gone.
    [[nodiscard]] virtual QWidget* container() const = 0;

    // Asked only while it is valid.
    /// Where it is on the screen.
    [[nodiscard]] virtual QRect place() const = 0;
    [[nodiscard]] virtual bool isEnabled() const = 0;
    /// Completes the state of one that can have the focus and be selected.
    virtual void completeState(QAccessible::State& state) const = 0;
    /// Has what a press leads to done later: whoever pressed waits for an answer, which would not
    /// come before the person has closed the window that a press may open.
    virtual void pressSoon() = 0;
};

}  // namespace qt::access
