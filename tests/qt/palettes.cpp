#include "qt/palettes.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>
#include <memory>

namespace tests {

QPalette lightPalette() {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("Fusion")));
    return fusion->standardPalette();
}

QPalette darkPalette() {
    QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2a, 0x2a, 0x2a));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        dark.setColor(role, QColor(0xf0, 0xf0, 0xf0));
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    }
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    dark.setColor(QPalette::AlternateBase, QColor(0x2d, 0x2d, 0x2d));
    dark.setColor(QPalette::ToolTipBase, QColor(0x2d, 0x2d, 0x2d));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
    dark.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x50, 0x50, 0x50));
    dark.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
    return dark;
}

}  // namespace tests
