#include "qt/noSettings.h"

#include <QSettings>

namespace qt {

void keepNoSettings() {
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings::setPath(format, QSettings::UserScope, QStringLiteral("/dev/null"));
    }
}

}  // namespace qt
