#include "app/WakeUp.h"

#include <chrono>

namespace app {

WakeUp::WakeUp(editor::UnsavedWork& unsavedWork) : unsavedWork_(unsavedWork) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);  // the others may come too early, and in vain
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { unsavedWork_.timePassed(); });
    unsavedWork_.onWait = [this] { set(); };
    set();
}

void WakeUp::set() {
    if (const auto wait = unsavedWork_.wait()) {
        timer_.start(std::chrono::ceil<std::chrono::milliseconds>(*wait));
    } else {
        timer_.stop();
    }
}

}  // namespace app
