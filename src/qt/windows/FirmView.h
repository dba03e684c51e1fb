#pragma once

#include <array>

#include "firmware/firm.h"
#include "qt/widgets/ButtonView.h"
#include "qt/widgets/DialogView.h"
#include "qt/widgets/ModelLink.h"
#include "qt/windows/StepRow.h"

class QLayout;

namespace qt::windows {

/// The firmware window: five steps under each other, the next one standing out, and below them how
/// far an upload is.
class FirmView final : public widgets::DialogView {
public:
    /// The controller must outlive it: it is what runs it.
    explicit FirmView(firmware::firm& controller);

private:
    struct Step {
        StepRow* row;
        widgets::ButtonView* button;
    };
    void addSteps(QLayout& layout);
    [[nodiscard]] QLayout* makeBottom();
    void showNextStep();

    firmware::firm& controller_;
    std::array<Step, 5> steps_{};
    widgets::ButtonView* chooseOutput_;
    widgets::ButtonView* close_;
    widgets::ModelLink<firmware::firm, &firmware::firm::onNextStep> link_;
};

}  // namespace qt::windows
