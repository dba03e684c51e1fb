#include "qt/surface/FacePanel.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QFontInfo>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/surface/FaceButton.h"
#include "qt/surface/casePainting.h"
#include "qt/widgets/naming.h"

namespace qt::surface {

namespace {

/// Pixels for a unit of the plan, at the least: the panel gets no smaller, because the lettering on
/// its faces could not be read any more.
constexpr qreal smallestUnit = 0.94;

QSize scaled(const QSizeF& plan, qreal unit) {
    return {static_cast<int>(std::ceil(plan.width() * unit)),
            static_cast<int>(std::ceil(plan.height() * unit))};
}

}  // namespace

FacePanel::FacePanel(CasePlan plan, const QString& outlet, const QString& name, QWidget* parent)
    : QWidget(parent),
      Described(this),
      plan_(std::move(plan)),
      art_(palette(), [this]() -> const QPixmap& { return drawnCase(); }) {
    widgets::nameWidget(*this, outlet, name);
    setToolTip({});
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

/// The faces are destroyed one by one after this. As one of them goes, Qt may give the focus to the
/// next, which must not tell a panel that is half gone.
FacePanel::~FacePanel() {
    for (FaceButton* face : faces_) {
        face->onFocus = nullptr;
    }
}

QAccessibleInterface* FacePanel::newAccess() {
    return new QAccessibleWidget(this, QAccessible::Grouping);
}

void FacePanel::addFace(toolkit::Button& model, const Place& place, const QString& caption,
                        const QString& outlet, const QString& name) {
    auto* face = new FaceButton(model, place.shape, caption, art_, this);
    widgets::nameWidget(*face, outlet, name);
    face->onFocus = [this, face] { makeTabStop(*face); };
    faces_.push_back(face);
    areas_.push_back(place.area.adjusted(-faceMargin, -faceMargin, faceMargin, faceMargin));
}

void FacePanel::makeTabStop(FaceButton& face) {
    if (tabStop_ == &face) {
        return;
    }
    if (tabStop_ != nullptr) {
        tabStop_->setFocusPolicy(Qt::ClickFocus);
    }
    tabStop_ = &face;
    tabStop_->setFocusPolicy(Qt::StrongFocus);
}

FaceButton* FacePanel::litFaceBefore(int end) const {
    const auto last = faces_.begin() + end;
    const auto found = std::find_if(faces_.begin(), last,
                                    [](const FaceButton* face) { return face->isChecked(); });
    return found == last ? nullptr : *found;
}

void FacePanel::keepFocusAtSelection(int end) {
    FaceButton* selected = litFaceBefore(end);
    const int focused = faceWithFocus();
    if (selected == nullptr || focused >= end) {
        return;
    }
    if (focused >= 0) {
        selected->setFocus(Qt::OtherFocusReason);
    }
    makeTabStop(*selected);
}

void FacePanel::moveFocus(int from, int to, int end) {
    if (to == from) {
        return;
    }
    face(to).setFocus(Qt::OtherFocusReason);
    if (to < end) {
        face(to).click();
    }
}

int FacePanel::faceWithFocus() const {
    const auto found = std::find_if(faces_.begin(), faces_.end(),
                                    [](const FaceButton* face) { return face->hasFocus(); });
    return found == faces_.end() ? -1 : static_cast<int>(found - faces_.begin());
}

qreal FacePanel::unit() const {
    return std::min(width() / plan_.size.width(), height() / plan_.size.height());
}

QPointF FacePanel::corner() const {
    const QSizeF drawn = plan_.size * unit();
    return {std::floor((width() - drawn.width()) / 2), std::floor((height() - drawn.height()) / 2)};
}

void FacePanel::arrange() {
    const qreal scale = unit();
    const QPointF origin = corner();
    std::size_t index = 0;
    for (FaceButton* face : faces_) {
        const QRectF& area = areas_[index++];
        face->setUnit(scale);
        face->setGeometry(QRectF(origin + area.topLeft() * scale, area.size() * scale).toRect());
    }
    case_ = {};
    art_.forget();
}

QSize FacePanel::sizeHint() const {
    // Larger lettering of the desktop's makes the drawing larger, so that what stands on the faces
    // can be read as easily; not without a limit, for the window must fit on a screen.
    constexpr qreal usualLettering = 13;  // pixels
    const qreal lettering = QFontInfo(font()).pixelSize();
    return scaled(plan_.size, std::clamp(lettering / usualLettering, 1.0, 1.5));
}

QSize FacePanel::minimumSizeHint() const {
    return scaled(plan_.size, smallestUnit);
}

const QPixmap& FacePanel::drawnCase() {
    const qreal ratio = devicePixelRatioF();
    if (case_.isNull() || case_.devicePixelRatio() != ratio) {
        case_ = QPixmap((QSizeF(size()) * ratio).toSize());
        case_.setDevicePixelRatio(ratio);
        case_.fill(Qt::transparent);
        QPainter painter(&case_);
        painter.translate(corner());
        paintCase(painter, plan_, unit(), font(), art_.colours());
    }
    return case_;
}

void FacePanel::paintEvent(QPaintEvent*) {
    QPainter(this).drawPixmap(0, 0, drawnCase());
}

void FacePanel::resizeEvent(QResizeEvent*) {
    arrange();
}

void FacePanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        art_.takeColours(palette());
        case_ = {};
        updateGeometry();
        update();
    }
    QWidget::changeEvent(event);
}

}  // namespace qt::surface
