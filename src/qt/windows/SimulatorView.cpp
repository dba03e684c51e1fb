#include "qt/windows/SimulatorView.h"

#include <QAccessibleWidget>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>
#include <span>

#include "config/layout.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"
#include "tables/data.h"
#include "texts/List.h"

namespace qt::windows {

namespace {

const QStringList layerColumns = {
    QStringLiteral("Layer"), QStringLiteral("Received"),  QStringLiteral("DAW mode"),
    QStringLiteral("Lock"),  QStringLiteral("Pad curve"), QStringLiteral("Pad interval"),
};
const QStringList logColumns = {QStringLiteral("No."), QStringLiteral("Bytes"),
                                QStringLiteral("Message")};
constexpr int dawModeColumn = 2;
constexpr int bytesInALine = 16;
constexpr int linesOfALayer = 16;

QString dawMode(int mode) {
    const texts::List names = tables::data::Machin_Mod();
    const auto position = static_cast<std::size_t>(mode);
    return position < names.size() ? widgets::asText(names[position]) : QString::number(mode);
}

QString padCurve(int curve) {
    constexpr int lastCurve = 4;
    return curve > lastCurve ? QStringLiteral("Const %1").arg(curve)
                             : QStringLiteral("Curve%1").arg(curve);
}

QStringList describe(const simulator::LayerMessage& layer) {
    return {
        QStringLiteral("%1 bytes").arg(layer.size()),
        dawMode(layer[config::dawModeOffset]),
        layer[config::lockOffset] != 0 ? QStringLiteral("on") : QStringLiteral("off"),
        padCurve(layer[config::curveOffset]),
        QStringLiteral("%1 ms").arg(layer[config::intervalOffset]),
    };
}

/// The offset of its first byte, then the bytes of a line, hexadecimal.
QString dump(std::span<const std::uint8_t> bytes) {
    QString all;
    int offset = 0;
    for (const std::uint8_t byte : bytes) {
        if (offset % bytesInALine == 0) {
            all += offset == 0 ? QString() : QStringLiteral("\n");
            all += QStringLiteral("%1 ").arg(offset, 3);
        }
        all += QStringLiteral(" %1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
        ++offset;
    }
    return all;
}

QString describe(const simulator::SimulatedController& controller) {
    const simulator::FirmwareReceiver& firmware = controller.firmware();
    QString text;
    if (controller.isOffline()) {
        text = QStringLiteral("Offline. ");
    } else if (controller.isInUpdateMode()) {
        text = QStringLiteral("In its update mode. ");
    }
    if (!firmware.isErased()) {
        return text + QStringLiteral("Firmware: the one it came with");
    }
    if (firmware.blocks() == 0) {
        return text + QStringLiteral("Firmware: none, it is erased");
    }
    return text + QStringLiteral("Firmware: %L1 bytes in %2 blocks")
                      .arg(firmware.written().size())
                      .arg(firmware.blocks());
}

}  // namespace

SimulatorView::SimulatorView(simulator::SimulatedController& controller)
    : Described(static_cast<QObject&>(*this)),
      link_(controller, [this] { showAll(); }),
      notice_(new QLabel),
      layers_(new QTableWidget(config::layerCount, static_cast<int>(layerColumns.size()))),
      bytes_(new QPlainTextEdit),
      log_(new QTreeWidget),
      firmware_(new QLabel),
      saveFirmware_(new QPushButton(QStringLiteral("Save &Firmware..."))) {
    setWindowTitle(QStringLiteral("Simulated Tormelk"));
    widgets::nameWidget(*layers_, QStringLiteral("layers"), QStringLiteral("The layers it holds"));
    layers_->setHorizontalHeaderLabels(layerColumns);
    layers_->verticalHeader()->hide();
    layers_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    layers_->setWordWrap(false);
    layers_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    layers_->horizontalHeader()->setSectionResizeMode(dawModeColumn, QHeaderView::Stretch);
    layers_->horizontalHeader()->setHighlightSections(false);
    layers_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    layers_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    layers_->setSelectionBehavior(QAbstractItemView::SelectRows);
    layers_->setSelectionMode(QAbstractItemView::SingleSelection);
    layers_->setTabKeyNavigation(false);
    layers_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layers_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(layers_, &QTableWidget::itemSelectionChanged, this, [this] { showBytes(); });

    widgets::nameWidget(*bytes_, QStringLiteral("bytes"),
                        QStringLiteral("The bytes of the selected layer"));
    bytes_->setReadOnly(true);
    bytes_->setTabChangesFocus(true);
    bytes_->setLineWrapMode(QPlainTextEdit::NoWrap);
    bytes_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bytes_->setPlaceholderText(QStringLiteral("Nothing received yet"));

    widgets::nameWidget(*log_, QStringLiteral("log"), QStringLiteral("Every message that came"));
    log_->setHeaderLabels(logColumns);
    log_->setRootIsDecorated(false);
    log_->setSelectionMode(QAbstractItemView::NoSelection);

    // Neither has a place of its own to show that it has the focus.
    setStyleSheet(QStringLiteral(
        "QPlainTextEdit, QTreeWidget { border: 1px solid palette(mid); }"
        "QPlainTextEdit:focus, QTreeWidget:focus { border-color: palette(highlight); }"));

    firmware_->setObjectName(QStringLiteral("firmware"));
    saveFirmware_->setObjectName(QStringLiteral("saveFirmware"));
    connect(saveFirmware_, &QPushButton::clicked, this, [this] { saveFirmware(); });
    auto* firmware = new QHBoxLayout;
    firmware->addWidget(firmware_, 1);
    firmware->addWidget(saveFirmware_);

    notice_->setObjectName(QStringLiteral("notice"));
    notice_->setTextFormat(Qt::PlainText);
    notice_->setWordWrap(true);
    notice_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    notice_->hide();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(notice_);
    layout->addWidget(widgets::captionOf(*layers_, QStringLiteral("&Layers")));
    layout->addWidget(layers_);
    layout->addWidget(widgets::captionOf(*bytes_, QStringLiteral("&Bytes of the selected layer")));
    layout->addWidget(bytes_, 2);
    layout->addLayout(firmware);
    layout->addWidget(widgets::captionOf(*log_, QStringLiteral("&Messages")));
    layout->addWidget(log_, 1);
    showAll();
    layers_->setFixedHeight(layers_->horizontalHeader()->sizeHint().height() +
                            layers_->verticalHeader()->length() + 2 * layers_->frameWidth());
    const QFontMetrics fixed(bytes_->font());
    bytes_->setMinimumHeight(fixed.lineSpacing() * linesOfALayer + 16);
    bytes_->setMinimumWidth(
        fixed.horizontalAdvance(QString(4 + 3 * bytesInALine + 5, QLatin1Char('0'))));
}

void SimulatorView::setNotice(const QString& notice) {
    notice_->setText(notice);
    notice_->setVisible(!notice.isEmpty());
}

QSize SimulatorView::sizeHint() const {
    constexpr int tallest = 680;
    return QWidget::sizeHint().boundedTo(QSize(QWIDGETSIZE_MAX, tallest));
}

QAccessibleInterface* SimulatorView::newAccess() {
    return new QAccessibleWidget(this, QAccessible::Window);
}

void SimulatorView::showAll() {
    if (const simulator::SimulatedController* controller = link_.model()) {
        showLayers(controller->layers());
        selectFirstLayerHeld(controller->layers());
        showBytes();
        showLog();
        showFirmware();
    }
}

void SimulatorView::showFirmware() {
    firmware_->setText(describe(*link_.model()));
    saveFirmware_->setEnabled(link_.model()->firmware().blocks() > 0);
}

void SimulatorView::saveFirmware() {
    const auto path = filePanels_.runSave({"Save the firmware it holds", "BIN", "received"});
    const simulator::SimulatedController* controller = link_.model();
    if (!path || controller == nullptr) {
        return;
    }
    const files::ReplaceResult result = controller->saveFirmware(*path);
    if (!result.replaced) {
        QMessageBox::warning(this, windowTitle(), widgets::asText(result.reason + "."));
    }
}

void SimulatorView::showLayers(const simulator::SimulatedController::Layers& layers) {
    for (int row = 0; row < config::layerCount; ++row) {
        const auto& layer = layers[static_cast<std::size_t>(row)];
        QStringList cells = {QString::number(row + 1)};
        cells += layer ? describe(*layer) : QStringList{QStringLiteral("nothing yet")};
        for (int column = 0; column < cells.size(); ++column) {
            layers_->setItem(row, column, new QTableWidgetItem(cells[column]));
        }
    }
    const QAbstractItemView* cells = layers_;
    int width = 2 * layers_->frameWidth();
    for (int column = 0; column < layers_->columnCount(); ++column) {
        width += std::max(cells->sizeHintForColumn(column),
                          layers_->horizontalHeader()->sectionSizeHint(column)) +
                 1;
    }
    layers_->setMinimumWidth(width);
}

void SimulatorView::selectFirstLayerHeld(const simulator::SimulatedController::Layers& layers) {
    for (int row = 0; row < config::layerCount && layers_->selectedItems().isEmpty(); ++row) {
        if (layers[static_cast<std::size_t>(row)]) {
            layers_->selectRow(row);
        }
    }
}

void SimulatorView::showBytes() {
    const simulator::SimulatedController* controller = link_.model();
    // Not the current row: assistive technology selects another without making it that.
    const QModelIndexList rows = layers_->selectionModel()->selectedRows();
    if (controller == nullptr || rows.isEmpty()) {
        return;
    }
    const auto& layer = controller->layers()[static_cast<std::size_t>(rows.constFirst().row())];
    bytes_->setPlainText(layer ? dump(*layer) : QString());
}

void SimulatorView::showLog() {
    log_->clear();
    for (const simulator::LogEntry& entry : link_.model()->log()) {
        const QString verdict = entry.accepted
                                    ? widgets::asText(entry.text)
                                    : QStringLiteral("Refused: ") + widgets::asText(entry.text);
        log_->addTopLevelItem(new QTreeWidgetItem(
            {QString::number(entry.number), QString::number(entry.bytes), verdict}));
    }
    log_->resizeColumnToContents(0);
    log_->resizeColumnToContents(1);
    log_->scrollToBottom();
}

}  // namespace qt::windows
