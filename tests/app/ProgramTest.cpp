// The programs as a person starts them, each in a process of its own with an empty home folder. An
// operator, loaded by Qt as a plug-in, stands in for the person.

#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>

#include "app/Home.h"

namespace app {
namespace {

struct Result {
    bool ended = false;
    int status = -1;
    std::string output;
    std::string errors;
};

Result run(const char* program, const Home& home, const QString& operatorsTask = {},
           const QStringList& arguments = {}) {
    QProcess process;
    process.setProcessEnvironment(home.environment(operatorsTask));
    process.start(QString::fromLocal8Bit(program), arguments);
    constexpr int longest = 120000;  // ms
    Result result;
    result.ended = process.waitForFinished(longest) && process.exitStatus() == QProcess::NormalExit;
    result.status = process.exitCode();
    result.output = process.readAllStandardOutput().toStdString();
    result.errors = process.readAllStandardError().toStdString();
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
    return result;
}

TEST(Program, EndsWithStatusZeroWhenItsWindowIsClosed) {
    const Home home;
    const Result result = run(TORMELK_WYRO, home, QStringLiteral("close"));
    EXPECT_TRUE(result.ended) << result.errors;
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, "operator: closing the main window\n");
}

TEST(Program, EndsWithStatusZeroOnQuit) {
    const Home home;
    const Result result = run(TORMELK_WYRO, home, QStringLiteral("quit"));
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, "operator: pressing Ctrl+Q\n");
}

TEST(Program, EndsWithStatusZeroWithAnUnsavedEdit) {
    const Home home;
    const Result result = run(TORMELK_WYRO, home, QStringLiteral("edit-and-close"));
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, "operator: edited channel 4\noperator: closing the main window\n");
}

TEST(Program, ReadsNoCommandLine) {
    const Home home;
    const Result result = run(TORMELK_WYRO, home, QStringLiteral("close"),
                              {QStringLiteral("--help"), QStringLiteral("-platform"),
                               QStringLiteral("nonsense"), QStringLiteral("file.Tormelk")});
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, "operator: closing the main window\n");
}

TEST(Program, LeavesNothingBehind) {
    const Home home;
    ASSERT_EQ(home.content(), emptyHome);
    const Result result = run(TORMELK_WYRO, home, QStringLiteral("look-around-and-close"));
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output,
              "operator: saw About Tormelk Wyro\n"
              "operator: saw MIDI Devices\n"
              "operator: saw Tormelk Wyro: Please select MIDI device first\n"
              "operator: saw Pad Editor\n"
              "operator: closing the main window\n");
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
}

TEST(Program, SaysSoWhenALimitOnFileSizesStopsASave) {
    const Home home;
    const Result result = run("prlimit", home, QStringLiteral("save-and-close"),
                              {QStringLiteral("--fsize=100"), QStringLiteral(TORMELK_WYRO)});
    EXPECT_TRUE(result.ended) << result.errors;
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output.rfind("operator: saw Tormelk Wyro: Fail to save Tormelk file\n\n", 0),
              0U)
        << result.output;
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
}

TEST(Program, WarnsOfNothing) {
    const Home home;
    const Result result = run(TORMELK_WYRO, home, QStringLiteral("close"));
    std::istringstream lines(result.errors);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_EQ(line.rfind("This plugin does not support", 0), 0U) << line;
    }
}

TEST(EveryWindowAndPanel, LeavesNothingBehind) {
    const Home home;
    const Result result = run(TORMELK_EVERY_WINDOW_ONCE, home);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output,
              "every window and both file panels were shown\n"
              "a preset was saved and loaded\n");
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
}

TEST(Demo, ChecksItselfAndTellsWhatArrived) {
    const Home home;
    const QString picture = home.file("picture.png");
    const Result result =
        run(TORMELK_DEMO_CHECK, home, {}, {QStringLiteral("--screenshot"), picture});
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    for (int message = 1; message <= 4; ++message) {
        const std::string line = "message " + std::to_string(message) +
                                 ": 254 bytes, F0 1D 03 00 69 4E 0" + std::to_string(message);
        EXPECT_NE(result.output.find(line), std::string::npos) << line;
    }
    EXPECT_NE(result.output.find("output chosen: Tormelk MIDI 1"), std::string::npos);
    EXPECT_NE(result.output.find("\"Send Done\""), std::string::npos);
    EXPECT_EQ(result.output.find("WRONG"), std::string::npos);
    const QImage image(picture);
    EXPECT_GT(image.width(), 1000);
    EXPECT_GT(image.height(), 400);
}

TEST(Demo, FailsWhenThePictureCannotBeWritten) {
    const Home home;
    const Result result =
        run(TORMELK_DEMO_CHECK, home, {},
            {QStringLiteral("--screenshot"), home.file("no/such/folder/picture.png")});
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.output.find("WRONG"), std::string::npos);
}

TEST(Demo, EndsWithStatusZeroWhenTheEditorIsClosed) {
    const Home home;
    const Result result = run(TORMELK_DEMO, home, QStringLiteral("close"));
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(home.content(), emptyHome);
}

TEST(Demo, RefusesEveryOption) {
    const Home home;
    const Result result = run(TORMELK_DEMO, home, {}, {QStringLiteral("--nonsense")});
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("Usage: tormelk-demo\n"), std::string::npos);
}

TEST(DemoCheck, RefusesOptionsItDoesNotKnow) {
    const Home home;
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("--nonsense")}, QStringList{QStringLiteral("--screenshot")},
          QStringList{QStringLiteral("--screenshot"), QStringLiteral("x.png"),
                      QStringLiteral("y.png")}}) {
        const Result result = run(TORMELK_DEMO_CHECK, home, {}, arguments);
        EXPECT_TRUE(result.ended);
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.errors.find("Usage: tormelk-demo-check"), std::string::npos);
    }
}

}  // namespace
}  // namespace app
