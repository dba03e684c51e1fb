#include "qt/SurfacePanel.h"

#include <QEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "editor/assignment.h"
#include "editor/controlNames.h"
#include "qt/FaceAccess.h"
#include "qt/FaceButton.h"
#include "qt/asText.h"
#include "qt/casePainting.h"
#include "qt/widgets.h"

namespace qt {

namespace {

/// Below this the lettering would be too small.
constexpr qreal smallestUnit = 0.94;

Place placeOf(int place) {
    if (place < firstModeLayerPlace) {
        return placeOfTag(place);
    }
    return place < firstPadLayerPlace ? placeOfModeLayer(place - firstModeLayerPlace)
                                      : placeOfPadLayer(place - firstPadLayerPlace);
}

std::optional<Move> moveOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return Move::Left;
        case Qt::Key_Right:
            return Move::Right;
        case Qt::Key_Up:
            return Move::Up;
        case Qt::Key_Down:
            return Move::Down;
        case Qt::Key_Home:
            return Move::Home;
        case Qt::Key_End:
            return Move::End;
        default:
            return std::nullopt;
    }
}

QSize planTimes(qreal unit) {
    return {static_cast<int>(std::ceil(planSize.width() * unit)),
            static_cast<int>(std::ceil(planSize.height() * unit))};
}

}  // namespace

SurfacePanel::SurfacePanel(editor::MainWindow& window, const editor::EditorState& state,
                           QWidget* parent)
    : QWidget(parent), state_(state), art_(palette()) {
    describeFaces();
    nameWidget(*this, QStringLiteral("surface"), QStringLiteral("Controller"));
    setToolTip({});
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    addControls(window);
    addLayers(window.moLaCtrls, firstModeLayerPlace, QStringLiteral("moLa"),
              QStringLiteral("Mode layer"));
    addLayers(window.paLaCtrls, firstPadLayerPlace, QStringLiteral("paLa"),
              QStringLiteral("Pad layer"));
    makeTabStop(faces_.front());
    refresh();
}

/// The keyboard may wander over the faces while they go.
SurfacePanel::~SurfacePanel() {
    for (FaceButton* face : faces_) {
        face->onFocus = nullptr;
    }
}

void SurfacePanel::addControls(editor::MainWindow& window) {
    int tag = 0;
    for (toolkit::Button& model : window.keysOrderedByTag) {
        const int control = editor::controlOfTag(tag);
        addFace(model, tag, asText(editor::controlCaption(control)),
                QStringLiteral("encoder%1").arg(tag), asText(editor::controlName(control)));
        ++tag;
    }
}

void SurfacePanel::addLayers(std::array<toolkit::Button, 4>& buttons, int firstPlace,
                             const QString& outlet, const QString& name) {
    int index = 0;
    for (toolkit::Button& model : buttons) {
        const QString number = QString::number(index + 1);
        addFace(model, firstPlace + index, number, outlet + number,
                name + QLatin1Char(' ') + number);
        ++index;
    }
}

FaceButton* SurfacePanel::addFace(toolkit::Button& model, int place, const QString& caption,
                                  const QString& outlet, const QString& name) {
    auto* face = new FaceButton(model, placeOf(place).shape, caption, art_, this);
    nameWidget(*face, outlet, name);
    face->onFocus = [this, face] { makeTabStop(face); };
    faces_.at(static_cast<std::size_t>(place)) = face;
    return face;
}

void SurfacePanel::makeTabStop(FaceButton* face) {
    if (tabStop_ == face) {
        return;
    }
    if (tabStop_ != nullptr) {
        tabStop_->setFocusPolicy(Qt::ClickFocus);
    }
    tabStop_ = face;
    tabStop_->setFocusPolicy(Qt::StrongFocus);
}

FaceButton* SurfacePanel::selectedFace() const {
    const auto* const end = faces_.begin() + firstModeLayerPlace;
    const auto* const found =
        std::find_if(faces_.begin(), end, [](const FaceButton* face) { return face->isChecked(); });
    return found == end ? nullptr : *found;
}

void SurfacePanel::refresh() {
    for (int tag = 0; tag < firstModeLayerPlace; ++tag) {
        const int control = editor::controlOfTag(tag);
        faces_.at(static_cast<std::size_t>(tag))
            ->showAssignment(editor::assignmentOf(state_.sysData,
                                                  editor::shownLayer(state_.layers, control),
                                                  state_.modes.machn_mod, control));
    }
    FaceButton* selected = selectedFace();
    const int focused = placeWithFocus();
    if (selected == nullptr || focused >= firstModeLayerPlace) {
        return;
    }
    if (focused >= 0) {
        selected->setFocus(Qt::OtherFocusReason);
    }
    makeTabStop(selected);
}

int SurfacePanel::placeWithFocus() const {
    const auto* const found = std::find_if(faces_.begin(), faces_.end(),
                                           [](const FaceButton* face) { return face->hasFocus(); });
    return found == faces_.end() ? -1 : static_cast<int>(found - faces_.begin());
}

void SurfacePanel::keyPressEvent(QKeyEvent* event) {
    const int place = placeWithFocus();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const std::optional<Move> wanted = moveOf(event->key());
    if (place >= 0 && plain && wanted) {
        move(place, *wanted);
    } else if (place < 0 || !pressLayer(*event)) {
        event->ignore();
    }
}

void SurfacePanel::move(int place, Move move) {
    const int target = placeAfter(place, move);
    if (target == place) {
        return;
    }
    FaceButton* face = faces_.at(static_cast<std::size_t>(target));
    face->setFocus(Qt::OtherFocusReason);
    if (target < firstModeLayerPlace) {
        face->click();
    }
}

bool SurfacePanel::pressLayer(const QKeyEvent& event) {
    const int layer = event.key() - Qt::Key_1;
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const bool forPads = modifiers == Qt::AltModifier;
    if (!editor::isLayer(layer) || (modifiers != Qt::NoModifier && !forPads)) {
        return false;
    }
    const int place = layer + (forPads ? firstPadLayerPlace : firstModeLayerPlace);
    faces_.at(static_cast<std::size_t>(place))->click();
    return true;
}

qreal SurfacePanel::unit() const {
    return std::min(width() / planSize.width(), height() / planSize.height());
}

QPointF SurfacePanel::corner() const {
    const QSizeF drawn = planSize * unit();
    return {std::floor((width() - drawn.width()) / 2), std::floor((height() - drawn.height()) / 2)};
}

void SurfacePanel::arrange() {
    const qreal scale = unit();
    const QPointF origin = corner();
    int place = 0;
    for (FaceButton* face : faces_) {
        const QRectF room =
            placeOf(place++).room.adjusted(-faceMargin, -faceMargin, faceMargin, faceMargin);
        face->setUnit(scale);
        face->setGeometry(QRectF(origin + room.topLeft() * scale, room.size() * scale).toRect());
    }
    case_ = {};
    art_.forgetBodies();
}

QSize SurfacePanel::sizeHint() const {
    constexpr qreal usualLettering = 13;  // pixels of a desktop's font
    const qreal lettering = QFontInfo(font()).pixelSize();
    return planTimes(std::clamp(lettering / usualLettering, 1.0, 1.5));
}

QSize SurfacePanel::minimumSizeHint() const {
    return planTimes(smallestUnit);
}

void SurfacePanel::paintEvent(QPaintEvent*) {
    if (case_.isNull()) {
        const qreal ratio = devicePixelRatioF();
        case_ = QPixmap((QSizeF(size()) * ratio).toSize());
        case_.setDevicePixelRatio(ratio);
        case_.fill(Qt::transparent);
        QPainter painter(&case_);
        painter.translate(corner());
        paintCase(painter, unit(), font(), art_.colours());
    }
    QPainter(this).drawPixmap(0, 0, case_);
}

void SurfacePanel::resizeEvent(QResizeEvent*) {
    arrange();
}

void SurfacePanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        art_.takeColours(palette());
        case_ = {};
        updateGeometry();
        update();
    }
    QWidget::changeEvent(event);
}

}  // namespace qt
