#include "qt/desktop/noSettings.h"

#include <QSettings>

namespace qt::desktop {

void keepNoSettings() {
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings::setPath(format, QSettings::UserScope, QStringLiteral("/dev/null"));
    }
}

}  // namespace qt::desktop
