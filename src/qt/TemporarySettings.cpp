#include "qt/TemporarySettings.h"

#include <QSettings>

namespace qt {

namespace {

std::shared_ptr<QTemporaryDir> sharedFolder() {
    static std::weak_ptr<QTemporaryDir> folder;
    std::shared_ptr<QTemporaryDir> found = folder.lock();
    if (!found) {
        found = std::make_shared<QTemporaryDir>();
        folder = found;
    }
    return found;
}

}  // namespace

TemporarySettings::TemporarySettings() : folder_(sharedFolder()) {
    // Without a place of their own the settings get one where nothing can be written.
    const QString path = folder_->isValid() ? folder_->path() : QStringLiteral("/dev/null");
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings::setPath(format, QSettings::UserScope, path);
    }
}

}  // namespace qt
