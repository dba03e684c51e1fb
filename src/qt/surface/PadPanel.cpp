#include "qt/surface/PadPanel.h"

#include <QKeyEvent>
#include <algorithm>

#include "config/layout.h"
#include "describe/controlNames.h"
#include "qt/surface/FaceButton.h"
#include "qt/surface/moves.h"
#include "qt/surface/padPlan.h"
#include "qt/widgets/asText.h"

namespace qt::surface {

namespace {

// The faces: pads 0 to 8 in reading order, then the layer buttons, which stand above them.
constexpr int firstLayerFace = config::padCount;
constexpr int columns = 3;
constexpr int lastRow = 3;

int faceAt(int row, int column) {
    return row == 0 ? firstLayerFace + column : (row - 1) * columns + column;
}

int faceAfter(int face, Move move) {
    const int row = face >= firstLayerFace ? 0 : 1 + face / columns;
    const int column = face % columns;
    switch (move) {
        case Move::Left:
            return faceAt(row, std::max(column - 1, 0));
        case Move::Right:
            return faceAt(row, std::min(column + 1, columns - 1));
        case Move::Up:
            return faceAt(std::max(row - 1, 0), column);
        case Move::Down:
            return faceAt(std::min(row + 1, lastRow), column);
        case Move::Home:
            return faceAt(row, 0);
        case Move::End:
            break;
    }
    return faceAt(row, columns - 1);
}

}  // namespace

PadPanel::PadPanel(editor::pad& controller, QWidget* parent)
    : FacePanel(padCase(), QStringLiteral("pads"), QStringLiteral("Pads"), parent),
      controller_(controller) {
    addPads();
    addLayers();
    makeTabStop(face(0));
    refresh();
}

void PadPanel::addPads() {
    int position = 0;
    for (toolkit::Button& model : controller_.m_pads) {
        const QString caption = widgets::asText(
            describe::controlCaption(describe::controlOfTag(config::firstPad + position)));
        addFace(model, placeOfPad(position), caption, QStringLiteral("p%1").arg(position + 1),
                caption);
        ++position;
    }
}

void PadPanel::addLayers() {
    int index = 0;
    for (toolkit::Button* model :
         {&controller_.m_paLa1, &controller_.m_paLa2, &controller_.m_paLa3}) {
        const int layer = index + 2;
        addFace(*model, placeOfEditedLayer(index), QString::number(layer),
                QStringLiteral("m_paLa%1").arg(index + 1),
                QStringLiteral("Pad layer %1").arg(layer));
        ++index;
    }
}

void PadPanel::refresh() {
    for (int position = 0; position < config::padCount; ++position) {
        face(position).showAssignment(
            controller_.assignmentOfPad(describe::controlOfTag(config::firstPad + position)));
    }
    keepFocusAtSelection(firstLayerFace);
}

void PadPanel::keyPressEvent(QKeyEvent* event) {
    const int from = faceWithFocus();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const std::optional<Move> wanted = moveOf(event->key());
    if (from >= 0 && plain && wanted) {
        moveFocus(from, faceAfter(from, *wanted), firstLayerFace);
    } else if (from < 0 || !pressLayer(*event)) {
        event->ignore();  // Enter is the window's
    }
}

bool PadPanel::pressLayer(const QKeyEvent& event) {
    const int index = event.key() - Qt::Key_2;
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (index < 0 || index >= editedPadLayers ||
        (modifiers != Qt::NoModifier && modifiers != Qt::AltModifier)) {
        return false;
    }
    face(firstLayerFace + index).click();
    return true;
}

}  // namespace qt::surface
