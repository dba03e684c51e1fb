#include "qt/warnings.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tests {

namespace {

QStringList& collected() {
    static QStringList warnings;
    return warnings;
}

/// What the platform without a screen says it cannot do, and need not.
bool isHarmless(const QString& warning) {
    return warning.startsWith(QLatin1String("This plugin does not support "));
}

void collect(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg) {
        return;
    }
    if (type == QtFatalMsg) {  // the process ends after this
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    }
    collected().append(message);
}

}  // namespace

void collectWarnings() {
    qInstallMessageHandler(collect);
}

QStringList takeWarnings() {
    QStringList warnings;
    warnings.swap(collected());
    warnings.removeIf(isHarmless);
    return warnings;
}

}  // namespace tests
