#include "qt/TemporarySettings.h"

#include <QSettings>

namespace qt {

TemporarySettings::TemporarySettings() {
    // Without a place of their own the settings get one where nothing can be written.
    const QString path = folder_.isValid() ? folder_.path() : QStringLiteral("/dev/null");
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings::setPath(format, QSettings::UserScope, path);
    }
}

}  // namespace qt
