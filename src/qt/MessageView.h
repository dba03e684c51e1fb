#pragma once

#include "qt/ButtonView.h"
#include "qt/DialogView.h"
#include "shell/message.h"

namespace qt {

/// The last question before the firmware is replaced. It wants an answer: there is no close box,
/// and Escape is Cancel.
class MessageView final : public DialogView {
public:
    explicit MessageView(shell::message& controller);

    void reject() override;

private:
    ButtonView* cancel_;
};

}  // namespace qt
