#include "qt/windows/SimulatorView.h"

#include <QAccessibleWidget>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <span>

#include "config/layout.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"
#include "tables/data.h"
#include "texts/List.h"

namespace qt::windows {

namespace {

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

/// What is to be seen of a layer, behind its number: a column each.
struct LayerColumn {
    QString title;
    QString (*cell)(const simulator::LayerMessage& layer);
    bool takesWhatIsLeft = false;
};

const std::array layerColumns = {
    LayerColumn{QStringLiteral("Received"),
                [](const simulator::LayerMessage& layer) {
                    return QStringLiteral("%1 bytes").arg(layer.size());
                }},
    LayerColumn{
        QStringLiteral("DAW mode"),
        [](const simulator::LayerMessage& layer) { return dawMode(layer[config::dawModeOffset]); },
        true},
    LayerColumn{QStringLiteral("Lock"),
                [](const simulator::LayerMessage& layer) {
                    return layer[config::lockOffset] != 0 ? QStringLiteral("on")
                                                          : QStringLiteral("off");
                }},
    LayerColumn{
        QStringLiteral("Pad curve"),
        [](const simulator::LayerMessage& layer) { return padCurve(layer[config::curveOffset]); }},
    LayerColumn{QStringLiteral("Pad interval"),
                [](const simulator::LayerMessage& layer) {
                    return QStringLiteral("%1 ms").arg(layer[config::intervalOffset]);
                }},
};

/// `layer` is null while none has come.
QStringList cellsOf(int number, const simulator::LayerMessage* layer) {
    QStringList cells = {QString::number(number)};
    if (layer == nullptr) {
        return cells << QStringLiteral("nothing yet");
    }
    for (const LayerColumn& column : layerColumns) {
        cells += column.cell(*layer);
    }
    return cells;
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

QTableWidget* makeLayers(int lineHeight) {
    auto* table = new QTableWidget(config::layerCount, 1 + static_cast<int>(layerColumns.size()));
    widgets::nameWidget(*table, QStringLiteral("layers"), QStringLiteral("The layers it holds"));
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(lineHeight + 8);
    table->setWordWrap(false);
    QHeaderView* header = table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QStringList titles = {QStringLiteral("Layer")};
    for (const LayerColumn& column : layerColumns) {
        if (column.takesWhatIsLeft) {
            header->setSectionResizeMode(static_cast<int>(titles.size()), QHeaderView::Stretch);
        }
        titles += column.title;
    }
    table->setHorizontalHeaderLabels(titles);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setTabKeyNavigation(false);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return table;
}

QPlainTextEdit* makeBytes() {
    auto* text = new QPlainTextEdit;
    widgets::nameWidget(*text, QStringLiteral("bytes"),
                        QStringLiteral("The bytes of the selected layer"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setPlaceholderText(QStringLiteral("Nothing received yet"));
    return text;
}

QTreeWidget* makeLog() {
    auto* log = new QTreeWidget;
    widgets::nameWidget(*log, QStringLiteral("log"), QStringLiteral("Every message that came"));
    log->setHeaderLabels(
        {QStringLiteral("No."), QStringLiteral("Bytes"), QStringLiteral("Message")});
    log->setRootIsDecorated(false);
    log->setSelectionMode(QAbstractItemView::NoSelection);
    return log;
}

QLabel* makeNotice() {
    auto* notice = new QLabel;
    notice->setObjectName(QStringLiteral("notice"));
    notice->setTextFormat(Qt::PlainText);
    notice->setWordWrap(true);
    notice->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    notice->hide();
    return notice;
}

/// So that all of it can be seen without scrolling.
void fitToRows(QTableWidget& table) {
    table.setFixedHeight(table.horizontalHeader()->sizeHint().height() +
                         table.verticalHeader()->length() + 2 * table.frameWidth());
}

/// So that a whole layer can be seen without scrolling.
void fitToDump(QPlainTextEdit& text) {
    const QFontMetrics fixed(text.font());
    text.setMinimumHeight(fixed.lineSpacing() * linesOfALayer + 16);
    text.setMinimumWidth(
        fixed.horizontalAdvance(QString(4 + 3 * bytesInALine + 5, QLatin1Char('0'))));
}

}  // namespace

SimulatorView::SimulatorView(simulator::SimulatedController& controller)
    : Described(this),
      notice_(makeNotice()),
      layers_(makeLayers(fontMetrics().height())),
      bytes_(makeBytes()),
      log_(makeLog()),
      firmware_(new QLabel),
      saveFirmware_(new QPushButton(QStringLiteral("Save &Firmware..."))),
      link_(controller, [this] { showAll(); }) {
    setWindowTitle(QStringLiteral("Simulated Tormelk"));
    // Neither has a place of its own to show that it has the focus.
    setStyleSheet(QStringLiteral(
        "QPlainTextEdit, QTreeWidget { border: 1px solid palette(mid); }"
        "QPlainTextEdit:focus, QTreeWidget:focus { border-color: palette(highlight); }"));
    connect(layers_, &QTableWidget::itemSelectionChanged, this, [this] { showBytes(); });
    layOut();
    showAll();
    fitToRows(*layers_);
    fitToDump(*bytes_);
}

void SimulatorView::layOut() {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(notice_);
    layout->addWidget(widgets::captionOf(*layers_, QStringLiteral("&Layers")));
    layout->addWidget(layers_);
    layout->addWidget(widgets::captionOf(*bytes_, QStringLiteral("&Bytes of the selected layer")));
    layout->addWidget(bytes_, 2);
    layout->addLayout(makeFirmware());
    layout->addWidget(widgets::captionOf(*log_, QStringLiteral("&Messages")));
    layout->addWidget(log_, 1);
}

QLayout* SimulatorView::makeFirmware() {
    firmware_->setObjectName(QStringLiteral("firmware"));
    saveFirmware_->setObjectName(QStringLiteral("saveFirmware"));
    connect(saveFirmware_, &QPushButton::clicked, this, [this] { saveFirmware(); });
    auto* row = new QHBoxLayout;
    row->addWidget(firmware_, 1);
    row->addWidget(saveFirmware_);
    return row;
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
        const QStringList cells = cellsOf(row + 1, layer ? &*layer : nullptr);
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
