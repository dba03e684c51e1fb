#pragma once

#include <functional>

namespace toolkit {

/// A progress bar: a value between a minimum and a maximum. It is hidden until the program shows
/// it.
class ProgressIndicator {
public:
    ProgressIndicator() = default;
    ProgressIndicator(const ProgressIndicator&) = delete;
    ProgressIndicator& operator=(const ProgressIndicator&) = delete;

    void setDoubleValue(double value) { set(value_, value); }
    [[nodiscard]] double doubleValue() const { return value_; }
    void incrementBy(double difference) { setDoubleValue(value_ + difference); }

    void setMinValue(double value) { set(minimum_, value); }
    [[nodiscard]] double minValue() const { return minimum_; }
    void setMaxValue(double value) { set(maximum_, value); }
    [[nodiscard]] double maxValue() const { return maximum_; }

    void setHidden(bool hidden) { set(hidden_, hidden); }
    [[nodiscard]] bool isHidden() const { return hidden_; }

    /// Has the view draw itself now, during a job on the main thread, not when the event loop comes
    /// to it.
    void display() const {
        if (onDisplay) {
            onDisplay();
        }
    }

    /// Tells the one view of this bar to show it afresh.
    std::function<void()> onChange;

    /// Has the view draw itself at once.
    std::function<void()> onDisplay;

private:
    template <typename Value>
    void set(Value& member, Value value) {
        if (value == member) {
            return;
        }
        member = value;
        if (onChange) {
            onChange();
        }
    }

    double value_ = 0;
    double minimum_ = 0;
    double maximum_ = 100;
    bool hidden_ = true;
};

}  // namespace toolkit
