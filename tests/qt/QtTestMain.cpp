// The main function of every test program with windows. They open on no screen and in an empty home
// folder, and a warning of Qt that no test expects fails the test it comes from.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "qt/warnings.h"

namespace {

class FailOnWarnings final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { tests::takeWarnings(); }
    void OnTestEnd(const testing::TestInfo&) override {
        for (const QString& warning : tests::takeWarnings()) {
            ADD_FAILURE() << "Qt warned: " << warning.toStdString();
        }
    }
};

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    const QTemporaryDir home;
    const QByteArray path = home.path().toLocal8Bit();
    for (const char* variable : {"HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, path);
    }
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                 "XDG_STATE_HOME", "QT_SCALE_FACTOR"}) {
        qunsetenv(variable);
    }
    if (const QByteArray scale = qgetenv("TORMELK_TEST_SCALE"); !scale.isEmpty()) {
        qputenv("QT_SCALE_FACTOR", scale);
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    tests::collectWarnings();
    testing::UnitTest::GetInstance()->listeners().Append(new FailOnWarnings);
    const QApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
