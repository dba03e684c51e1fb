#include "qt/surface/SurfacePanel.h"

#include <QKeyEvent>

#include "describe/assignment.h"
#include "describe/controlNames.h"
#include "editor/shownLayer.h"
#include "qt/surface/FaceButton.h"
#include "qt/surface/surfaceMoves.h"
#include "qt/surface/surfacePlan.h"
#include "qt/widgets/asText.h"

namespace qt::surface {

namespace {

Place placeOf(int place) {
    if (place < firstModeLayerPlace) {
        return placeOfTag(place);
    }
    return place < firstPadLayerPlace ? placeOfModeLayer(place - firstModeLayerPlace)
                                      : placeOfPadLayer(place - firstPadLayerPlace);
}

}  // namespace

SurfacePanel::SurfacePanel(editor::MainWindow& window, const editor::EditorState& state,
                           QWidget* parent)
    : FacePanel(surfaceCase(), QStringLiteral("surface"), QStringLiteral("Controller"), parent),
      state_(state) {
    addControls(window);
    addLayers(window.moLaCtrls, firstModeLayerPlace, QStringLiteral("moLa"),
              QStringLiteral("Mode layer"));
    addLayers(window.paLaCtrls, firstPadLayerPlace, QStringLiteral("paLa"),
              QStringLiteral("Pad layer"));
    makeTabStop(face(0));
    refresh();
}

void SurfacePanel::addControls(editor::MainWindow& window) {
    int tag = 0;
    for (toolkit::Button& model : window.keysOrderedByTag) {
        const int control = describe::controlOfTag(tag);
        addFace(model, placeOf(tag), widgets::asText(describe::controlCaption(control)),
                QStringLiteral("encoder%1").arg(tag),
                widgets::asText(describe::controlName(control)));
        ++tag;
    }
}

void SurfacePanel::addLayers(std::array<toolkit::Button, 4>& buttons, int firstPlace,
                             const QString& outlet, const QString& name) {
    int index = 0;
    for (toolkit::Button& model : buttons) {
        const QString number = QString::number(index + 1);
        addFace(model, placeOf(firstPlace + index), number, outlet + number,
                name + QLatin1Char(' ') + number);
        ++index;
    }
}

void SurfacePanel::refresh() {
    for (int tag = 0; tag < firstModeLayerPlace; ++tag) {
        const int control = describe::controlOfTag(tag);
        face(tag).showAssignment(describe::assignmentOf(state_.sysData,
                                                        editor::shownLayer(state_.layers, control),
                                                        state_.modes.machn_mod, control));
        face(tag).setCurrent(control == state_.selection.keyEvnt);
    }
    for (int layer = 0; layer < config::layerCount; ++layer) {
        face(firstPadLayerPlace + layer).setCurrent(layer == state_.layers.m_paLa);
    }
    keepFocusAtSelection(firstModeLayerPlace);
}

void SurfacePanel::keyPressEvent(QKeyEvent* event) {
    const int place = faceWithFocus();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const std::optional<Move> wanted = moveOf(event->key());
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (place >= 0 && plain && wanted) {
        moveFocus(place, placeAfter(place, *wanted), firstModeLayerPlace);
    } else if (place >= 0 && plain && enters) {
        face(place).click();
    } else if (place < 0 || !pressLayer(*event)) {
        event->ignore();
    }
}

bool SurfacePanel::pressLayer(const QKeyEvent& event) {
    const int layer = event.key() - Qt::Key_1;
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const bool forPads = modifiers == Qt::AltModifier;
    if (!editor::isLayer(layer) || (modifiers != Qt::NoModifier && !forPads)) {
        return false;
    }
    face(layer + (forPads ? firstPadLayerPlace : firstModeLayerPlace)).click();
    return true;
}

}  // namespace qt::surface
