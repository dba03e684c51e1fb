#pragma once

#include <QDialog>

#include "qt/access/Described.h"
#include "qt/widgets/WindowBinding.h"
#include "toolkit/WindowController.h"

namespace qt::widgets {

/// The base of every secondary window's view. Escape closes the window, unless the window knows
/// better.
class DialogView : public QDialog, public access::Described {
public:
    DialogView(toolkit::WindowController& controller, const QString& title);

    /// Whether the controller behind this view is gone.
    [[nodiscard]] bool isOrphan() const { return binding_.model() == nullptr; }

    void reject() override;
    [[nodiscard]] QAccessibleInterface* newAccess() override;

private:
    WindowBinding binding_;
};

}  // namespace qt::widgets
