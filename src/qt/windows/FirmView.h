#pragma once

#include <array>

#include "firmware/firm.h"
#include "qt/widgets/ButtonView.h"
#include "qt/widgets/DialogView.h"
#include "qt/windows/StepRow.h"

namespace qt::windows {

/// The firmware window: five steps under each other, the next one standing out, and below them how
/// far an upload is.
class FirmView final : public widgets::DialogView {
public:
    explicit FirmView(firmware::firm& controller);
    ~FirmView() override;

private:
    struct Step {
        StepRow* row;
        widgets::ButtonView* button;
    };
    Step makeStep(int number, const StepRow::Words& words, toolkit::Button& model,
                  const QString& outlet, const QString& caption);
    void showNextStep();

    // The controller outlives its view: it is what runs it.
    firmware::firm& controller_;
    std::array<Step, 5> steps_{};
    widgets::ButtonView* close_;
};

}  // namespace qt::windows
