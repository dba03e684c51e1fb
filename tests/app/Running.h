#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <csignal>
#include <string>

#include "app/Home.h"

namespace app {

inline constexpr int patience = 60000;  // ms, on a machine that does other things, too

/// A program that is running, with nobody but an operator in front of it.
class Running {
public:
    Running(const char* program, const QString& task, const Home& home,
            const QProcessEnvironment& others = {}) {
        QProcessEnvironment environment = home.environment(task);
        environment.insert(others);
        process_.setProcessEnvironment(environment);
        process_.setProcessChannelMode(QProcess::MergedChannels);
        // A test that runs in the background has it ignored, and so would what it starts.
        process_.setChildProcessModifier([] { std::signal(SIGINT, SIG_DFL); });
        process_.start(QString::fromLocal8Bit(program), {});
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        process_.kill();
        process_.waitForFinished();
    }

    /// Waits until it has said so.
    [[nodiscard]] bool says(const std::string& text) {
        while (output_.find(text) == std::string::npos) {
            if (!process_.waitForReadyRead(patience)) {
                ADD_FAILURE() << "it never said \"" << text << "\": " << output_;
                return false;
            }
            output_ += process_.readAll().toStdString();
        }
        return true;
    }

    void get(int signal) const { ::kill(static_cast<pid_t>(process_.processId()), signal); }

    /// Its exit status; 128 and the signal's number if a signal ended it.
    [[nodiscard]] int status() {
        EXPECT_TRUE(process_.waitForFinished(patience)) << output_;
        output_ += process_.readAll().toStdString();
        return process_.exitStatus() == QProcess::CrashExit ? 128 + process_.exitCode()
                                                            : process_.exitCode();
    }

    [[nodiscard]] const std::string& output() const { return output_; }

private:
    QProcess process_;
    std::string output_;
};

}  // namespace app
