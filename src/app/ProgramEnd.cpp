#include "app/ProgramEnd.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QString>
#include <QThread>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace app {
namespace {

constexpr std::array endingSignals = {SIGTERM, SIGHUP, SIGINT};
constexpr unsigned patience = 5;  // s, for the last words

// Neither a signal nor the C library's `exit` has an object to find the program's end by.
ProgramEnd* current = nullptr;
QtMessageHandler otherMessages = nullptr;
int wakeUp = -1;  // an eventfd
std::atomic<int> signalAsked = 0;
std::atomic<int> exitStatus = 0;
static_assert(std::atomic<int>::is_always_lock_free, "signal handlers use them");

/// The very end; it may be called in a signal handler.
[[noreturn]] void leave() {
    if (const int signal = signalAsked; signal != 0) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
    ::_exit(exitStatus);
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN && handler != SIG_DFL) {
        return;
    }
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

extern "C" {

void askForTheEnd(int signal) {
    const int error = errno;
    int none = 0;
    signalAsked.compare_exchange_strong(none, signal);
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp, &one, sizeof one);
    if (none == 0) {
        ::alarm(patience);
    }
    errno = error;
}

void endWithoutLastWords(int /*signal*/) {
    leave();
}

void endAtExit(int status, void* /*nothing*/) {
    if (current != nullptr) {
        current->end(status);
    }
}

}  // extern "C"

/// A Wayland display that is lost says so, and then ends the process without a further word; an X
/// display calls `exit`.
void hearOfLostDisplay(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    otherMessages(type, context, message);
    if (type == QtWarningMsg && message.startsWith(QLatin1String("The Wayland connection ")) &&
        current != nullptr && QThread::currentThread() == QCoreApplication::instance()->thread()) {
        current->end(1);
    }
}

}  // namespace

ProgramEnd::ProgramEnd() {
    current = this;
    wakeUp = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    notifier_ = std::make_unique<QSocketNotifier>(wakeUp, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { attend(); });
    for (const int signal : endingSignals) {
        handle(signal, askForTheEnd);
    }
    handle(SIGALRM, endWithoutLastWords);
    otherMessages = qInstallMessageHandler(hearOfLostDisplay);
    [[maybe_unused]] static const int registered = ::on_exit(endAtExit, nullptr);
}

ProgramEnd::~ProgramEnd() {
    qInstallMessageHandler(otherMessages);
    for (const int signal : endingSignals) {
        handle(signal, SIG_DFL);
    }
    current = nullptr;
    notifier_.reset();
    ::close(wakeUp);
}

void ProgramEnd::end(int status) {
    if (!isEnding_) {
        isEnding_ = true;
        exitStatus = status;
        ::alarm(patience);
        for (auto word = lastWords_.rbegin(); word != lastWords_.rend(); ++word) {
            (*word)();
        }
        std::fflush(nullptr);
    }
    leave();
}

void ProgramEnd::attend() {
    if (signalAsked != 0) {
        end(0);
    }
}

}  // namespace app
