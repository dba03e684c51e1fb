#pragma once

#include <QTimer>

#include "editor/UnsavedWork.h"

namespace app {

/// Wakes the program when unsaved work is to be written, and at no other time.
class WakeUp {
public:
    /// It must outlive this.
    explicit WakeUp(editor::UnsavedWork& unsavedWork);
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;
    ~WakeUp() { unsavedWork_.onWait = nullptr; }

    [[nodiscard]] bool isSet() const { return timer_.isActive(); }

private:
    void set();

    editor::UnsavedWork& unsavedWork_;
    QTimer timer_;
};

}  // namespace app
