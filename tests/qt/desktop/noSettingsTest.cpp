#include "qt/desktop/noSettings.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QSettings>

namespace qt::desktop {
namespace {

TEST(NoSettings, WhatTheToolkitsDialogsWriteDownGoesNowhereWithoutAWord) {
    keepNoSettings();
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings settings(format, QSettings::UserScope, QStringLiteral("QtProject"));
        settings.setValue(QStringLiteral("FileDialog/lastVisited"), QStringLiteral("/home"));
        settings.sync();
        EXPECT_EQ(settings.status(), QSettings::AccessError);
        EXPECT_TRUE(settings.fileName().startsWith(QLatin1String("/dev/null/")));
        EXPECT_FALSE(QFileInfo::exists(settings.fileName()));
    }
}

}  // namespace
}  // namespace qt::desktop
