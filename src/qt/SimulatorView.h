#pragma once

#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTreeWidget>
#include <QWidget>

#include "qt/ModelLink.h"
#include "simulator/SimulatedController.h"

namespace qt {

/// What a simulated Tormelk holds: its four layers, the bytes of one of them, and every message
/// that came.
class SimulatorView final : public QWidget {
public:
    explicit SimulatorView(simulator::SimulatedController& controller);

private:
    void showAll();
    void showLayers(const simulator::SimulatedController::Layers& layers);
    void showBytes();
    void showLog();
    void selectFirstLayerHeld(const simulator::SimulatedController::Layers& layers);

    ModelLink<simulator::SimulatedController> link_;
    QTableWidget* layers_;
    QPlainTextEdit* bytes_;
    QTreeWidget* log_;
};

}  // namespace qt
