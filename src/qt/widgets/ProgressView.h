#pragma once

#include <QProgressBar>

#include "qt/widgets/ModelLink.h"
#include "toolkit/ProgressIndicator.h"

namespace qt::widgets {

/// Shows a `toolkit::ProgressIndicator`. A value outside its range is shown as nothing done. Told
/// to draw at once it does so with whatever else of its window waits to be painted.
class ProgressView final : public QProgressBar {
public:
    explicit ProgressView(toolkit::ProgressIndicator& model, QWidget* parent = nullptr);
    ~ProgressView() override;

private:
    void showModel();

    ModelLink<toolkit::ProgressIndicator> link_;
};

}  // namespace qt::widgets
