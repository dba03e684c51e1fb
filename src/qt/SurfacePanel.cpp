#include "qt/SurfacePanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "editor/assignment.h"
#include "editor/controlNames.h"
#include "qt/ControlButton.h"
#include "qt/asText.h"
#include "qt/controlFaces.h"
#include "qt/widgets.h"

namespace qt {

namespace {

constexpr int strips = 8;
constexpr int buttonsOfAStrip = 4;
constexpr int keysInARow = 4;
constexpr int padsInARow = 3;

/// Makes all columns as wide as the widest.
void evenOut(QGridLayout& grid) {
    int widest = 0;
    for (int i = 0; i < grid.count(); ++i) {
        widest = std::max(widest, grid.itemAt(i)->widget()->sizeHint().width());
    }
    for (int column = 0; column < grid.columnCount(); ++column) {
        grid.setColumnMinimumWidth(column, widest);
        grid.setColumnStretch(column, 1);
    }
}

QLabel* heading(const QString& caption) {
    auto* label = new QLabel(caption);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}  // namespace

SurfacePanel::SurfacePanel(editor::MainWindow& window, const editor::EditorState& state,
                           QWidget* parent)
    : QWidget(parent), window_(window), state_(state) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(28);
    layout->addWidget(makeStrips(), strips + 1);
    layout->addWidget(makeKeysAndPads(), keysInARow);
    refresh();
}

void SurfacePanel::refresh() {
    int tag = 0;
    for (QWidget* face : faces_) {
        const int control = editor::controlOfTag(tag++);
        const editor::Assignment assignment =
            editor::assignmentOf(state_.sysData, editor::shownLayer(state_.layers, control),
                                 state_.modes.machn_mod, control);
        const QString sent = asText(assignment.fullText());
        face->setAccessibleDescription(sent);
        face->setToolTip(face->accessibleName() + QLatin1Char('\n') + sent);
    }
}

QWidget* SurfacePanel::makeStrips() {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int strip = 0; strip < strips; ++strip) {
        int row = 0;
        grid->addWidget(heading(QString::number(strip + 1)), row++, strip);
        addControl(*grid, config::firstEncoder + strip, row++, strip);
        addControl(*grid, config::firstEncoderPush + strip, row++, strip);
        for (int button = 0; button < buttonsOfAStrip; ++button) {
            addControl(*grid, buttonsOfAStrip * strip + button, row++, strip);
        }
        addControl(*grid, config::firstFader + strip, row, strip);
        grid->setRowStretch(row, 1);
    }
    const int faderRow = grid->rowCount() - 1;
    grid->addWidget(heading(QStringLiteral("Master")), faderRow - 1, strips);
    addControl(*grid, config::lastFader, faderRow, strips);
    evenOut(*grid);
    return panel;
}

QWidget* SurfacePanel::makeKeysAndPads() {
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* keys = new QGridLayout;
    int row = 0;
    for (const int first : {config::firstLayerKey, config::firstTransportKey}) {
        for (int key = 0; key < keysInARow; ++key) {
            addControl(*keys, first + key, row, key);
        }
        ++row;
    }
    evenOut(*keys);
    layout->addLayout(keys);

    auto* layers = new QGridLayout;
    addLayerButtons(*layers, 0, window_.moLaCtrls, QStringLiteral("Mode layer"),
                    QStringLiteral("moLa"));
    addLayerButtons(*layers, 1, window_.paLaCtrls, QStringLiteral("Pad layer"),
                    QStringLiteral("paLa"));
    layout->addSpacing(10);
    layout->addLayout(layers);

    auto* pads = new QGridLayout;
    for (int position = 0; position < config::padCount; ++position) {
        addControl(*pads, config::firstPad + position, position / padsInARow,
                   position % padsInARow);
    }
    evenOut(*pads);
    layout->addSpacing(10);
    layout->addLayout(pads, 1);
    return panel;
}

void SurfacePanel::addControl(QGridLayout& grid, int tag, int row, int column) {
    const ControlFace face = faceOf(tag);
    toolkit::Button& model = window_.keysOrderedByTag[static_cast<std::size_t>(tag)];
    auto* button = new ControlButton(model, face.shape, face.caption);
    nameWidget(*button, QStringLiteral("encoder%1").arg(tag), face.name);
    grid.addWidget(button, row, column);
    faces_.at(static_cast<std::size_t>(tag)) = button;
}

void SurfacePanel::addLayerButtons(QGridLayout& grid, int row,
                                   std::array<toolkit::Button, 4>& buttons, const QString& caption,
                                   const QString& outlet) {
    grid.addWidget(new QLabel(caption), row, 0);
    int number = 1;
    for (toolkit::Button& model : buttons) {
        auto* button = new ControlButton(model, ControlButton::Shape::Key, QString::number(number));
        nameWidget(*button, outlet + QString::number(number),
                   QStringLiteral("%1 %2").arg(caption).arg(number));
        grid.addWidget(button, row, number);
        grid.setColumnStretch(number, 1);
        ++number;
    }
}

}  // namespace qt
