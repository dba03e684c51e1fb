#pragma once

#include <QWidget>

#include "editor/MainWindow.h"

namespace qt {

/// What the selected control sends, in the boxes that change it.
class AssignmentPanel final : public QWidget {
public:
    explicit AssignmentPanel(editor::MainWindow& window, QWidget* parent = nullptr);
};

}  // namespace qt
