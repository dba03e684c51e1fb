#pragma once

#include <QGuiApplication>
#include <QIcon>

namespace app {

/// Under which name and with which icon the desktop knows the program.
inline void setIdentity() {
    QGuiApplication::setApplicationName(QStringLiteral("tormelk-wyro"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tormelk-wyro"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/tormelk-wyro.svg")));
}

}  // namespace app
