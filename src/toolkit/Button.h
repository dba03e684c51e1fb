#pragma once

#include <functional>

namespace toolkit {

/// A button: a tag that says which one it is, a state (0 off, 1 highlighted), enabled or not.
class Button {
public:
    /// What a person's click does to the state before the action runs.
    enum class Click {
        Keeps,   ///< a command: the state is not touched
        Lights,  ///< a control, layer or pad button: lit, and never put out by a click
        Flips    ///< a two-state button
    };

    explicit Button(Click click = Click::Keeps, int tag = 0) : click_(click), tag_(tag) {}
    Button(const Button&) = delete;
    Button& operator=(const Button&) = delete;

    [[nodiscard]] int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    void setState(int state);
    [[nodiscard]] int state() const { return state_; }

    void setEnabled(bool enabled);
    [[nodiscard]] bool isEnabled() const { return enabled_; }

    /// A person clicks: the state changes as `Click` says, then the action runs. A disabled button
    /// takes no click.
    void click();

    /// The action, with this button as its sender.
    std::function<void(Button&)> action;

    /// Tells the one view of this button that state or enabled changed.
    std::function<void()> onChange;

private:
    void tell() const;

    Click click_;
    int tag_;
    int state_ = 0;
    bool enabled_ = true;
};

}  // namespace toolkit
