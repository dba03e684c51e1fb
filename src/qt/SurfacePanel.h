#pragma once

#include <QGridLayout>
#include <QWidget>

#include "editor/MainWindow.h"

namespace qt {

/// The controller as it is built: eight strips and the master fader on the left, keys and pads on
/// the right, a button for each control.
class SurfacePanel final : public QWidget {
public:
    explicit SurfacePanel(editor::MainWindow& window, QWidget* parent = nullptr);

private:
    QWidget* makeStrips();
    QWidget* makeKeysAndPads();
    void addControl(QGridLayout& grid, int tag, int row, int column);
    void addLayerButtons(QGridLayout& grid, int row, std::array<toolkit::Button, 4>& buttons,
                         const QString& caption, const QString& outlet);

    editor::MainWindow& window_;
};

}  // namespace qt
