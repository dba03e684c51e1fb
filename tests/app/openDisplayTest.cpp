// Programs where no window can be shown, each in a process of its own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <string>
#include <utility>
#include <vector>

#include "app/Home.h"

namespace app {
namespace {

struct Ending {
    int status = -1;
    std::string errors;
};

/// Runs a program without any display but what `variables` name.
Ending runWith(const char* program,
               const std::vector<std::pair<const char*, const char*>>& variables) {
    const Home home;
    QProcessEnvironment environment = home.environment({});
    for (const char* const name :
         {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE"}) {
        environment.remove(QString::fromLatin1(name));
    }
    for (const auto& [name, value] : variables) {
        environment.insert(QString::fromLatin1(name), QString::fromLatin1(value));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QString::fromLocal8Bit(program), {});
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(home.content(), emptyHome);
    Ending ending{process.exitCode(), process.readAllStandardError().toStdString()};
    process.kill();
    process.waitForFinished();
    return ending;
}

constexpr const char* noWindow = ": no window can be shown: ";

TEST(WithoutADisplay, AProgramSaysSoInALineAndEndsWithStatusOne) {
    for (const auto& [program, name] :
         {std::pair(TORMELK_WYRO, "tormelk-wyro"), std::pair(TORMELK_DEMO, "tormelk-demo")}) {
        for (const auto& variables :
             {std::vector<std::pair<const char*, const char*>>{}, {{"QT_QPA_PLATFORM", "xcb"}}}) {
            const Ending ending = runWith(program, variables);
            EXPECT_EQ(ending.status, 1);
            EXPECT_EQ(ending.errors, std::string(name) + noWindow +
                                         "neither DISPLAY nor WAYLAND_DISPLAY is set\n");
        }
    }
}

TEST(WithoutADisplay, AProgramNamesTheOneThatIsNotThere) {
    for (const auto& [program, name] : {std::pair(TORMELK_WYRO, "tormelk-wyro"),
                                        std::pair(TORMELK_SIMULATOR, "tormelk-simulator")}) {
        const Ending ending = runWith(program, {{"DISPLAY", ":54321"}});
        EXPECT_EQ(ending.status, 1);
        EXPECT_EQ(ending.errors,
                  std::string(name) + noWindow + "could not connect to display :54321\n");
    }
}

/// The session bus that a program is left with.
std::string busOf(const Home& home, const char* address) {
    QProcessEnvironment environment = home.environment(QStringLiteral("tell-bus-and-close"));
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    if (address != nullptr) {
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                           QString::fromLatin1(address));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TORMELK_WYRO), {});
    EXPECT_TRUE(process.waitForFinished(60000));
    return process.readLine().trimmed().toStdString();
}

TEST(SessionBus, IsNotStartedWhereThereIsNone) {
    const Home home;
    EXPECT_EQ(busOf(home, nullptr), "operator: bus disabled:");
    EXPECT_EQ(home.content(), emptyHome);
}

TEST(SessionBus, IsLeftAloneWhereThereIsOne) {
    const Home home;
    EXPECT_EQ(busOf(home, "unix:path=/nowhere"), "operator: bus unix:path=/nowhere");
    QFile(home.file("run/bus")).open(QFile::WriteOnly);
    EXPECT_EQ(busOf(home, nullptr), "operator: bus");
}

TEST(WithoutADisplay, AProgramNamesAPlatformThatIsUnknown) {
    const Ending ending = runWith(TORMELK_WYRO, {{"QT_QPA_PLATFORM", "nonsense"}});
    EXPECT_EQ(ending.status, 1);
    EXPECT_THAT(ending.errors, testing::StartsWith(std::string("tormelk-wyro") + noWindow));
    EXPECT_THAT(ending.errors, testing::HasSubstr("\"nonsense\""));
    EXPECT_EQ(ending.errors.find('\n'), ending.errors.size() - 1) << "one line";
}

}  // namespace
}  // namespace app
