#include "app/openDisplay.h"

#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <cstdio>
#include <cstdlib>

namespace app {
namespace {

bool isSet(const char* variable) {
    return !qEnvironmentVariableIsEmpty(variable);
}

/// What Qt says while it looks for a display. It has no object to be found by; one display is
/// opened in a process.
struct Search {
    QString program;
    QString firstTrouble;
    QStringList messages;
};
Search* search = nullptr;

/// Qt's word for the trouble, or a better one where all it knows is a name that is empty.
QString causeOf(const QString& trouble) {
    const bool lacksName =
        trouble.startsWith(QLatin1String("could not connect to display")) && !isSet("DISPLAY");
    if (!lacksName) {
        return trouble.section(u'\n', 0, 0).trimmed();
    }
    return isSet("WAYLAND_DISPLAY") ? QStringLiteral("DISPLAY is not set")
                                    : QStringLiteral("neither DISPLAY nor WAYLAND_DISPLAY is set");
}

void keepMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (search->firstTrouble.isEmpty()) {
        search->firstTrouble = message;
    }
    search->messages.append(qFormatLogMessage(type, context, message));
    if (type != QtFatalMsg) {
        return;
    }
    const QString line = search->program + QLatin1String(": no window can be shown: ") +
                         causeOf(search->firstTrouble) + u'\n';
    std::fputs(qUtf8Printable(line), stderr);
    std::_Exit(1);
}

/// An address that leads nowhere keeps the bus library from starting a bus.
void startNoSessionBus() {
    const QString usual = qEnvironmentVariable("XDG_RUNTIME_DIR") + QLatin1String("/bus");
    if (!isSet("DBUS_SESSION_BUS_ADDRESS") && !QFileInfo::exists(usual)) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }
}

}  // namespace

std::unique_ptr<QApplication> openDisplay(int& count, char** arguments) {
    startNoSessionBus();
    Search looking;
    looking.program = QFileInfo(QString::fromLocal8Bit(arguments[0])).fileName();
    search = &looking;
    const QtMessageHandler others = qInstallMessageHandler(keepMessage);
    auto application = std::make_unique<QApplication>(count, arguments);
    qInstallMessageHandler(others);
    search = nullptr;
    for (const QString& message : looking.messages) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    }
    return application;
}

}  // namespace app
