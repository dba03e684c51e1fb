#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace toolkit {

/// A text that the program shows and a person cannot edit.
class TextField {
public:
    TextField() = default;
    TextField(const TextField&) = delete;
    TextField& operator=(const TextField&) = delete;

    void setStringValue(std::string_view text) {
        if (text == text_) {
            return;
        }
        text_ = text;
        if (onChange) {
            onChange();
        }
    }
    [[nodiscard]] const std::string& stringValue() const { return text_; }

    /// Tells the one view of this field to show the text afresh.
    std::function<void()> onChange;

private:
    std::string text_;
};

}  // namespace toolkit
