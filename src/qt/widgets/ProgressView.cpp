#include "qt/widgets/ProgressView.h"

#include <cmath>

namespace qt::widgets {

namespace {

/// The bar's own range; the model's may have fractions, or be larger than an int.
constexpr int wholeRange = 10000;

int positionOf(const toolkit::ProgressIndicator& model) {
    const double range = model.maxValue() - model.minValue();
    const double done = model.doubleValue() - model.minValue();
    const bool inside = range > 0 && done >= 0 && done <= range;
    return inside ? static_cast<int>(std::lround(done / range * wholeRange)) : 0;
}

}  // namespace

ProgressView::ProgressView(toolkit::ProgressIndicator& model, QWidget* parent)
    : QProgressBar(parent), link_(model, [this] { showModel(); }) {
    model.onDisplay = [this] { repaint(); };  // and what else of the window waits to be painted
    setRange(0, wholeRange);
    setTextVisible(false);  // the per cent are told beside it
    showModel();
}

ProgressView::~ProgressView() {
    if (toolkit::ProgressIndicator* shown = link_.model()) {
        shown->onDisplay = nullptr;
    }
}

void ProgressView::showModel() {
    if (const toolkit::ProgressIndicator* shown = link_.model()) {
        setValue(positionOf(*shown));
        if (shown->isHidden()) {
            hide();
        } else if (parentWidget() != nullptr) {  // without one it would be a window
            show();
        }
    }
}

}  // namespace qt::widgets
