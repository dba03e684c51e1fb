#pragma once

#include <QMainWindow>

#include "editor/mainController.h"
#include "qt/WindowBinding.h"

class QBoxLayout;

namespace qt {

/// The main window: the surface of the controller, the assignment of the selected control, and the
/// menu. Window and controller must outlive it.
class MainWindowView final : public QMainWindow {
public:
    MainWindowView(editor::MainWindow& window, editor::mainController& controller);

private:
    void makeActions(editor::mainController& controller);
    void makeMenus();
    QBoxLayout* makeTopBar(editor::MainWindow& window);
    QAction* addAction(const QString& outlet, const QString& caption);

    QAction* loadPreset_ = nullptr;
    QAction* savePreset_ = nullptr;
    QAction* quit_ = nullptr;
    QAction* send_ = nullptr;
    QAction* midiDevices_ = nullptr;
    QAction* firmwareUpdate_ = nullptr;
    QAction* about_ = nullptr;
    WindowBinding binding_;
};

}  // namespace qt
