#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QWidget>

#include "qt/access/Described.h"
#include "qt/desktop/FilePanels.h"
#include "qt/widgets/ModelLink.h"
#include "simulator/SimulatedController.h"

namespace qt::windows {

/// What a simulated Tormelk holds: its four layers, the bytes of one of them, its firmware, and
/// every message that came.
class SimulatorView final : public QWidget, public access::Described {
public:
    explicit SimulatorView(simulator::SimulatedController& controller);

    /// What stands above everything else, until it is empty: that nothing can arrive, and why.
    void setNotice(const QString& notice);

    /// Fits a small screen, with a notice too; the lists scroll.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessibleInterface* newAccess() override;

private:
    void layOut();
    [[nodiscard]] QLayout* makeFirmware();
    void showAll();
    void showLayers(const simulator::SimulatedController::Layers& layers);
    void showBytes();
    void showLog();
    void showFirmware();
    void saveFirmware();
    void selectFirstLayerHeld(const simulator::SimulatedController::Layers& layers);

    QLabel* notice_;
    QTableWidget* layers_;
    QPlainTextEdit* bytes_;
    QTreeWidget* log_;
    QLabel* firmware_;
    QPushButton* saveFirmware_;
    desktop::FilePanels filePanels_;
    widgets::ModelLink<simulator::SimulatedController> link_;
};

}  // namespace qt::windows
