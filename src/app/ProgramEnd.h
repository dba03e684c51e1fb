#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <vector>

namespace app {

/// How a program ends, by one rule for all the ways there are:
///
///     way                                        exit status
///     Quit, the close box of the main window     0
///     `exit` from code ("Exit now")              the code's own
///     SIGTERM, SIGHUP, SIGINT                    killed by that signal (a shell says 128 + n)
///     the display is lost                        1
///     the application's loop is left (a logout)  what it returns
///
/// On each of them the last words run, on the main thread, the one given last first; then the
/// process ends at once, and nothing that is under way is unwound: no window, no modal run, no
/// upload. What is not written then is lost, so whatever has to be done at the end is a last word.
///
/// A signal takes effect where the program waits: in its event loop, a dialog's too, and around
/// every pause of a long job, which is between two messages. So no message is cut in half, and no
/// pause is waited for. Should the main thread not get there, or a last word not come to its end,
/// the process ends without it after five seconds.
///
/// What a signal that was ignored before (nohup) asks for is ignored still. A process has one such
/// object, made after the application, and made to outlive everything its last words use.
class ProgramEnd {
public:
    ProgramEnd();
    ProgramEnd(const ProgramEnd&) = delete;
    ProgramEnd& operator=(const ProgramEnd&) = delete;
    /// A program that returns from `main` instead ends as any other.
    ~ProgramEnd();

    /// Adds a last word.
    void before(std::function<void()> lastWord) { lastWords_.push_back(std::move(lastWord)); }

    [[noreturn]] void end(int status);

    /// Ends the program if a signal has asked for it. For jobs that keep the event loop waiting.
    void attend();

private:
    std::vector<std::function<void()>> lastWords_;
    bool isEnding_ = false;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace app
