#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace app {

/// A home of which nothing else makes use.
class Home {
public:
    Home() {
        for (const char* part : {"home", "run"}) {
            QDir(folder_.path()).mkdir(QString::fromLatin1(part));
        }
        // Qt insists on a private folder for sockets.
        QFile::setPermissions(folder_.filePath(QStringLiteral("run")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QProcessEnvironment environment(const QString& operatorsTask) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                     "XDG_STATE_HOME", "DBUS_SESSION_BUS_ADDRESS"}) {
            environment.remove(QString::fromLatin1(variable));
        }
        environment.insert(QStringLiteral("HOME"), folder_.filePath(QStringLiteral("home")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"),
                           folder_.filePath(QStringLiteral("run")));
        environment.insert(QStringLiteral("TMPDIR"), folder_.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        if (!operatorsTask.isEmpty()) {
            environment.insert(QStringLiteral("QT_PLUGIN_PATH"),
                               QStringLiteral(TORMELK_OPERATOR_FOLDER));
            environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"),
                               QStringLiteral("window-operator:") + operatorsTask);
        }
        return environment;
    }

    /// Everything in it, the folder for temporary files included.
    [[nodiscard]] QStringList content() const {
        QStringList found;
        QDirIterator entries(folder_.path(),
                             QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            found.append(QDir(folder_.path()).relativeFilePath(entries.next()));
        }
        found.sort();
        return found;
    }
    [[nodiscard]] QString file(const char* name) const {
        return folder_.filePath(QString::fromLatin1(name));
    }

private:
    QTemporaryDir folder_;
};

/// What is in it when nothing was left there.
inline const QStringList emptyHome = {QStringLiteral("home"), QStringLiteral("run")};

}  // namespace app
