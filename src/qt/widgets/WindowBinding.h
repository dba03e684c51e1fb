#pragma once

#include <QObject>
#include <QWidget>

#include "qt/widgets/ModelLink.h"
#include "toolkit/Window.h"

namespace qt::widgets {

/// Makes a top-level widget the view of a `toolkit::Window`: its title, whether it is shown, its
/// place in front. Closing the widget closes the model, which decides what becomes of it. The
/// widget is shown by the next change, not at once, so that it can be put together first.
class WindowBinding final : public QObject {
public:
    /// Whether the desktop's mark for unsaved changes has a place in the title.
    enum class Title { Plain, MarksUnsavedChanges };

    WindowBinding(QWidget& widget, toolkit::Window& model, Title title = Title::Plain);

    /// Null once the window's model is gone.
    [[nodiscard]] toolkit::Window* model() const { return link_.model(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(toolkit::Window::Change change);

    QWidget& widget_;
    QString mark_;
    ModelLink<toolkit::Window> link_;
};

}  // namespace qt::widgets
