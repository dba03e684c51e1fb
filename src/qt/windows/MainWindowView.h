#pragma once

#include <QMainWindow>
#include <memory>

#include "editor/mainController.h"
#include "qt/widgets/ModelLink.h"
#include "qt/widgets/WindowBinding.h"
#include "qt/windows/UndoActions.h"
#include "qt/windows/UnsavedWorkMenu.h"

class QBoxLayout;

namespace qt::surface {
class SurfacePanel;
}

namespace qt::windows {

class AssignmentPanel;

/// The main window: the surface of the controller, the assignment of the selected control, and the
/// menu. Window and controller must outlive it.
class MainWindowView final : public QMainWindow {
public:
    MainWindowView(editor::MainWindow& window, editor::mainController& controller);

    /// Puts what concerns unsaved work into the File menu; it must outlive this.
    void offer(editor::UnsavedWork& unsavedWork);

private:
    void makeActions(editor::mainController& controller);
    void makeMenus();
    QBoxLayout* makeTopBar(editor::MainWindow& window);
    QLayout* makeContent(editor::MainWindow& window);
    void showStatus(editor::MainWindow& window);
    /// Shows what no widget model tells: faces, selection, unsaved changes.
    void refresh();
    QAction* addAction(const QString& outlet, const QString& caption);

    editor::mainController& controller_;
    surface::SurfacePanel* surface_ = nullptr;
    AssignmentPanel* assignment_ = nullptr;
    QAction* loadPreset_ = nullptr;
    QAction* savePreset_ = nullptr;
    QAction* quit_ = nullptr;
    QAction* send_ = nullptr;
    QAction* midiDevices_ = nullptr;
    QAction* firmwareUpdate_ = nullptr;
    QAction* about_ = nullptr;
    std::unique_ptr<UndoActions> undo_;
    QMenu* file_ = nullptr;
    std::unique_ptr<UnsavedWorkMenu> unsavedWork_;
    widgets::WindowBinding binding_;
    widgets::ModelLink<editor::MainWindow, &editor::MainWindow::actionEnded> link_;
};

}  // namespace qt::windows
