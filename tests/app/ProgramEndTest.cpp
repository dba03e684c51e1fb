// How the programs end on every way there is, each in a process of its own.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <tuple>

#include "app/Running.h"

namespace app {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

struct Situation {
    const char* program;
    const char* task;
    const char* words;  // of the operator, once it has come to it
    const char* name;
};

class EndBySignal : public testing::TestWithParam<std::tuple<Situation, int>> {};

TEST_P(EndBySignal, IsPromptAndLeavesNothing) {
    const auto& [situation, signal] = GetParam();
    const Home home;
    QProcessEnvironment others;
    others.insert(QStringLiteral("TORMELK_OPERATOR_OUTPUT"), QStringLiteral("Tormelk MIDI 1"));
    const QString firmware = home.file("tormelk_2.bin");
    others.insert(QStringLiteral("TORMELK_OPERATOR_FILE"), firmware);
    std::ofstream(firmware.toStdString()) << std::string(40000, 'x');
    Running program(situation.program, QString::fromLatin1(situation.task), home, others);
    ASSERT_TRUE(program.says(situation.words));
    const auto began = Clock::now();
    program.get(signal);
    EXPECT_EQ(program.status(), 128 + signal) << program.output();
    EXPECT_LT(Clock::now() - began, 4s) << "a little more than a second on a machine that is idle";
    EXPECT_EQ(program.output().find("completed"), std::string::npos);
    QFile::remove(firmware);
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Everywhere, EndBySignal,
    testing::Combine(
        testing::Values(Situation{TORMELK_WYRO, "wait", "waiting", "Idle"},
                        Situation{TORMELK_WYRO, "open-devices", "opened MIDI Devices", "InADialog"},
                        Situation{TORMELK_WYRO, "open-save-panel", "opened Specify",
                                  "InAFilePanel"},
                        Situation{TORMELK_DEMO, "wait", "waiting", "TheDemoIdle"},
                        Situation{TORMELK_DEMO, "upload-and-close", "uploading", "InAnUpload"}),
        testing::Values(SIGTERM, SIGHUP, SIGINT)),
    [](const auto& test) {
        const int signal = std::get<1>(test.param);
        return std::string(std::get<0>(test.param).name) + "On" +
               (signal == SIGTERM  ? "Term"
                : signal == SIGHUP ? "Hup"
                                   : "Int");
    });

TEST(EndOfAProgram, InASendComesAfterTheMessageThatWasGoingOut) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        const Home home;
        QProcessEnvironment others;
        others.insert(QStringLiteral("TORMELK_OPERATOR_OUTPUT"), QStringLiteral("Tormelk MIDI 1"));
        others.insert(QStringLiteral("TORMELK_OPERATOR_SIGNAL"), QString::number(signal));
        Running program(TORMELK_DEMO, QStringLiteral("send-and-get-signal"), home, others);
        EXPECT_EQ(program.status(), 128 + signal) << program.output();
        EXPECT_NE(program.output().find("operator: sending\n"), std::string::npos);
        EXPECT_EQ(program.output().find("Send Done"), std::string::npos) << program.output();
        EXPECT_EQ(home.content(), emptyHome);
    }
}

TEST(EndOfAProgram, DoesNotWaitForOneThatHangs) {
    const Home home;
    Running program(TORMELK_WYRO, QStringLiteral("hang"), home);
    ASSERT_TRUE(program.says("hanging"));
    program.get(SIGTERM);
    EXPECT_EQ(program.status(), 128 + SIGTERM);
    EXPECT_EQ(home.content(), emptyHome);
}

TEST(EndOfAProgram, IsNotAskedForByASignalThatIsIgnored) {
    const Home home;
    QProcess process;
    process.setProcessEnvironment(home.environment(QStringLiteral("wait")));
    process.start(QStringLiteral("nohup"), {QStringLiteral(TORMELK_WYRO)});
    ASSERT_TRUE(process.waitForReadyRead(patience));
    const auto number = static_cast<pid_t>(process.processId());
    ::kill(number, SIGHUP);
    EXPECT_FALSE(process.waitForFinished(500));
    ::kill(number, SIGTERM);
    EXPECT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitCode(), SIGTERM);
}

/// A display of its own, without a screen.
class Display {
public:
    Display() {
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1920x1200x24")});
        if (server_.waitForReadyRead(patience)) {
            number_ = QString::fromLatin1(server_.readLine().trimmed());
        }
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display() {
        server_.terminate();
        server_.waitForFinished();
    }

    [[nodiscard]] bool isThere() const { return !number_.isEmpty(); }
    [[nodiscard]] QProcessEnvironment environment() const {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("DISPLAY"), u':' + number_);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        return environment;
    }
    void lose() {
        server_.kill();
        server_.waitForFinished();
        QFile::remove(QStringLiteral("/tmp/.X%1-lock").arg(number_));
        QFile::remove(QStringLiteral("/tmp/.X11-unix/X") + number_);
    }

private:
    QProcess server_;
    QString number_;
};

TEST(EndOfAProgram, WithItsDisplayLostHasStatusOneAndLeavesNothing) {
    for (const auto& [task, words] :
         {std::pair("wait", "waiting"), std::pair("open-save-panel", "opened Specify"),
          std::pair("upload-and-close", "uploading")}) {
        Display display;
        ASSERT_TRUE(display.isThere());
        const Home home;
        QProcessEnvironment others = display.environment();
        others.insert(QStringLiteral("TORMELK_OPERATOR_OUTPUT"), QStringLiteral("Tormelk MIDI 1"));
        const QString firmware = home.file("tormelk_2.bin");
        others.insert(QStringLiteral("TORMELK_OPERATOR_FILE"), firmware);
        std::ofstream(firmware.toStdString()) << std::string(40000, 'x');
        Running program(TORMELK_DEMO, QString::fromLatin1(task), home, others);
        ASSERT_TRUE(program.says(words));
        display.lose();
        EXPECT_EQ(program.status(), 1) << program.output();
        EXPECT_EQ(program.output().find("completed"), std::string::npos);
        QFile::remove(firmware);
        EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
    }
}

TEST(EndOfAProgram, OnADisplayIsAsPromptAndLeavesAsLittle) {
    const Display display;
    ASSERT_TRUE(display.isThere());
    for (const char* const program : {TORMELK_WYRO, TORMELK_DEMO}) {
        const Home home;
        Running running(program, QStringLiteral("open-save-panel"), home, display.environment());
        ASSERT_TRUE(running.says("opened Specify"));
        running.get(SIGTERM);
        EXPECT_EQ(running.status(), 128 + SIGTERM);
        EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
    }
}

}  // namespace
}  // namespace app
