#pragma once

#include <QStringList>
#include <atomic>
#include <thread>

namespace live {

/// Presses a key or a button of the mouse, through the display and its window manager, and waits
/// until the display has taken it: `act({"key", "alt+F4"})`.
void act(const QStringList& action);

/// The title that the window manager shows for a window. It says so there when it takes the window
/// for hung.
[[nodiscard]] QString titleShown(unsigned long window);

/// A person who cannot wait: types, clicks, moves the window about and asks to close it, all the
/// time, on a thread of their own.
class ImpatientPerson {
public:
    /// `window` is the number of the one in front; `buttons` are places on the screen to click at.
    ImpatientPerson(unsigned long window, QStringList buttons);
    ImpatientPerson(const ImpatientPerson&) = delete;
    ImpatientPerson& operator=(const ImpatientPerson&) = delete;
    ~ImpatientPerson();

    /// Takes their hands off, as soon as what they are doing is done; does not wait for it.
    void stop() { stop_ = true; }
    [[nodiscard]] int actions() const { return actions_; }
    [[nodiscard]] bool sawItHang() const { return sawItHang_; }

private:
    void run(unsigned long window, const QStringList& buttons);

    std::atomic<bool> stop_ = false;
    std::atomic<int> actions_ = 0;
    std::atomic<bool> sawItHang_ = false;
    std::thread thread_;
};

}  // namespace live
