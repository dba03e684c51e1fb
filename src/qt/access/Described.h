#pragma once

class QAccessibleInterface;
class QObject;

namespace qt::access {

/// A widget, or an action, that knows itself what assistive technology is to be told of it:
///
///     class Lamp final : public QPushButton, public access::Described {
///     public:
///         Lamp() : Described(this) {}
///         QAccessibleInterface* newAccess() override { return access::newLampAccess(*this); }
///     };
class Described {
public:
    Described(const Described&) = delete;
    Described& operator=(const Described&) = delete;

    /// What is told; the caller's own. Null where Qt's description of such a widget will do.
    [[nodiscard]] virtual QAccessibleInterface* newAccess() = 0;

protected:
    /// `self` is the whole object. What was kept about the plain one that it was until now is
    /// dropped.
    explicit Described(QObject* self);
    ~Described() = default;  // as the widget or action it is
};

}  // namespace qt::access
