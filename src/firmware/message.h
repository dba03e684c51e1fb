#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "toolkit/Button.h"
#include "toolkit/Desktop.h"

namespace firmware {

/// What a person must know before agreeing.
struct Confirmation {
    struct Fact {
        std::string name;
        std::string value;
        bool operator==(const Fact&) const = default;
    };

    std::vector<std::string> warnings;  ///< said first, and strongly
    std::vector<Fact> facts;
    std::string advice;
};

/// The confirmation window, run modally. Whoever runs it reads the answer afterwards: 1 for OK, 0
/// for Cancel. Closed in another way it leaves the answer as it was, so its view offers none.
class message final : public toolkit::WindowController {
public:
    /// `answer` is the byte the window writes; it must outlive the window.
    message(toolkit::Desktop& desktop, std::uint8_t& answer, Confirmation content = {});

    /// What the window shows.
    [[nodiscard]] const Confirmation& content() const { return content_; }

    toolkit::Button okButton;
    toolkit::Button cancelButton;

    void ok();
    void cancel();
    void windowWillClose() override;

private:
    toolkit::Desktop& desktop_;
    std::uint8_t& a_;
    Confirmation content_;
};

}  // namespace firmware
