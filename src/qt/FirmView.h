#pragma once

#include <array>

#include "firmware/firm.h"
#include "qt/ButtonView.h"
#include "qt/DialogView.h"
#include "qt/StepRow.h"

namespace qt {

/// The firmware window: five steps under each other, the next one standing out, and below them how
/// far an upload is.
class FirmView final : public DialogView {
public:
    explicit FirmView(firmware::firm& controller);
    ~FirmView() override;

private:
    struct Step {
        StepRow* row;
        ButtonView* button;
    };
    Step makeStep(int number, const StepRow::Words& words, toolkit::Button& model,
                  const QString& outlet, const QString& caption);
    void showNextStep();

    // The controller outlives its view: it is what runs it.
    firmware::firm& controller_;
    std::array<Step, 5> steps_{};
    ButtonView* close_;
};

}  // namespace qt
