#include "app/live/Person.h"

#include <QProcess>
#include <array>
#include <chrono>
#include <utility>

namespace live {

namespace {

QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

}  // namespace

void act(const QStringList& action) {
    outputOf(QStringLiteral("xdotool"), action);
}

QString titleShown(unsigned long window) {
    return outputOf(QStringLiteral("xprop"), {QStringLiteral("-id"), QString::number(window),
                                              QStringLiteral("_NET_WM_VISIBLE_NAME")});
}

ImpatientPerson::ImpatientPerson(unsigned long window, QStringList buttons)
    : thread_([this, window, buttons = std::move(buttons)] { run(window, buttons); }) {}

ImpatientPerson::~ImpatientPerson() {
    stop();
    thread_.join();
}

void ImpatientPerson::run(unsigned long window, const QStringList& buttons) {
    const QString number = QString::number(window);
    const auto words = [](const char* text) { return QString::fromLatin1(text).split(u' '); };
    const std::array<QStringList, 10> actions = {
        words("key Return"),
        words("key space"),
        words("key Escape"),
        words("key Tab"),
        words("key alt+F4"),
        words("key ctrl+q"),
        words("key ctrl+Return"),
        words("key alt+f"),
        words("windowmove") << number << words("300 200"),
        words("windowmove") << number << words("40 60"),
    };
    for (std::size_t turn = 0; !stop_; ++turn) {
        act(actions.at(turn % actions.size()));
        ++actions_;
        for (const QString& place : buttons) {
            act(words("mousemove") << place.split(u' ') << words("click 1"));
            ++actions_;
        }
        sawItHang_ = sawItHang_ || titleShown(window).contains(QLatin1String("Responding"));
        std::this_thread::sleep_for(std::chrono::milliseconds(400));
    }
}

}  // namespace live
