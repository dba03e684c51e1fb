#pragma once

#include <QGuiApplication>

namespace app {

/// Under which name the desktop knows the program: its windows get the icon of that entry.
inline void setIdentity() {
    QGuiApplication::setApplicationName(QStringLiteral("tormelk-wyro"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tormelk-wyro"));
}

}  // namespace app
