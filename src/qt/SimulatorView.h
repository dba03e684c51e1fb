#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QWidget>

#include "qt/FilePanels.h"
#include "qt/ModelLink.h"
#include "simulator/SimulatedController.h"

namespace qt {

/// What a simulated Tormelk holds: its four layers, the bytes of one of them, its firmware, and
/// every message that came.
class SimulatorView final : public QWidget {
public:
    explicit SimulatorView(simulator::SimulatedController& controller);

    /// What stands above everything else, until it is empty: that nothing can arrive, and why.
    void setNotice(const QString& notice);

    /// Fits a small screen, with a notice too; the lists scroll.
    [[nodiscard]] QSize sizeHint() const override;

private:
    void showAll();
    void showLayers(const simulator::SimulatedController::Layers& layers);
    void showBytes();
    void showLog();
    void showFirmware();
    void saveFirmware();
    void selectFirstLayerHeld(const simulator::SimulatedController::Layers& layers);

    ModelLink<simulator::SimulatedController> link_;
    QLabel* notice_;
    QTableWidget* layers_;
    QPlainTextEdit* bytes_;
    QTreeWidget* log_;
    QLabel* firmware_;
    QPushButton* saveFirmware_;
    FilePanels filePanels_;
};

}  // namespace qt
