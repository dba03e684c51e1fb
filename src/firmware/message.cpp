#include "firmware/message.h"

#include <utility>

namespace firmware {

message::message(toolkit::Desktop& desktop, std::uint8_t& answer, Confirmation content)
    : desktop_(desktop), a_(answer), content_(std::move(content)) {
    okButton.action = [this](toolkit::Button&) { ok(); };
    cancelButton.action = [this](toolkit::Button&) { cancel(); };
}

void message::ok() {
    a_ = 1;
    window().close();
}

void message::cancel() {
    a_ = 0;
    window().close();
}

void message::windowWillClose() {
    desktop_.stopModal();
}

}  // namespace firmware
