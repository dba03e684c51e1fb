// Writes a picture of every window, light and dark, into a folder, for people to leaf through:
//
//     qt-pictures FOLDER SUFFIX
//
// The suffix tells the scale, which QT_SCALE_FACTOR sets. It fails where a text on the drawn
// controller has too little contrast to be read.

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QStyleFactory>
#include <cstdio>

#include "qt/EveryWindow.h"
#include "qt/SurfaceEditor.h"
#include "qt/letterContrast.h"
#include "qt/palettes.h"

namespace {

bool writePictures(const QDir& folder, const QString& theme, const QString& suffix) {
    bool written = true;
    const auto write = [&](QWidget& window, const QString& name) {
        const QString file =
            folder.filePath(QStringLiteral("%1-%2-%3.png").arg(name, theme, suffix));
        const QPixmap picture = window.grab();
        if (picture.isNull() || !picture.save(file, "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(file));
            written = false;
        }
    };
    tests::forEverySurface([&](tests::SurfaceEditor& editor, const QString& name) {
        write(editor.panel, name);
        const QImage picture = editor.panel.grab().toImage();
        for (const QString& text : tests::unreadableTexts(picture, editor)) {
            std::fprintf(stderr, "%s, %s: %s\n", qUtf8Printable(name), qUtf8Printable(theme),
                         qUtf8Printable(text));
            written = false;
        }
    });
    tests::forEveryWindow(write);
    return written;
}

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    const QStringList words = QApplication::arguments();
    if (words.size() != 3 || !QDir().mkpath(words[1])) {
        std::fputs("Usage: qt-pictures FOLDER SUFFIX\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(tests::lightPalette());
    const bool light = writePictures(QDir(words[1]), QStringLiteral("light"), words[2]);
    QApplication::setPalette(tests::darkPalette());
    const bool dark = writePictures(QDir(words[1]), QStringLiteral("dark"), words[2]);
    return light && dark ? 0 : 1;
}
