// Writes a picture of every window, light and dark, into a folder, for people to leaf through:
//
//     window-pictures FOLDER          at 1x and at 2x
//     window-pictures FOLDER SCALE    at one of them, or any other
//
// No display is needed. It fails where a text on the drawn controller has too little contrast to be
// read.

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QStyleFactory>
#include <QTemporaryFile>
#include <cstdio>
#include <string>
#include <vector>

#include "app/identity.h"
#include "app/windows/EveryWindow.h"
#include "qt/letterContrast.h"
#include "qt/palettes.h"
#include "qt/surface/SurfaceEditor.h"

namespace {

/// The menus that are open over the window.
void addMenus(QPixmap& picture, const QWidget& window) {
    QPainter painter(&picture);
    for (QMenu* menu : window.findChildren<QMenu*>()) {
        if (menu->isVisible()) {
            painter.drawPixmap(window.mapFromGlobal(menu->pos()), menu->grab());
        }
    }
}

/// Stands in for a display, with room for menus side by side at 2x. To be made before the
/// application.
class LargeScreen {
public:
    LargeScreen() {
        if (file_.open()) {
            file_.write(R"({"screens": [{"name": "large", "x": 0, "y": 0, "width": 3840,)"
                        R"( "height": 2400, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
            file_.close();
        }
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file_.fileName().toLocal8Bit());
    }

private:
    QTemporaryFile file_;
};

bool writePictures(const QDir& folder, const QString& theme, const QString& suffix) {
    bool written = true;
    const auto write = [&](QWidget& window, const QString& name) {
        const QString file =
            folder.filePath(QStringLiteral("%1-%2-%3.png").arg(name, theme, suffix));
        QPixmap picture = window.grab();
        addMenus(picture, window);
        if (picture.isNull() || !picture.save(file, "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(file));
            written = false;
        }
    };
    const auto read = [&](qt::surface::FacePanel& panel, const QString& name) {
        for (const QString& text : tests::unreadableTexts(panel.grab().toImage(), panel)) {
            std::fprintf(stderr, "%s, %s: %s\n", qUtf8Printable(name), qUtf8Printable(theme),
                         qUtf8Printable(text));
            written = false;
        }
    };
    tests::forEverySurface([&](tests::SurfaceEditor& editor, const QString& name) {
        write(editor.panel, name);
        read(editor.panel, name);
    });
    tests::forEveryMenu(write);
    tests::forEveryWindow([&](QWidget& window, const QString& name) {
        write(window, name);
        for (QWidget* child : window.findChildren<QWidget*>()) {
            if (auto* panel = dynamic_cast<qt::surface::FacePanel*>(child)) {
                read(*panel, name);
            }
        }
    });
    return written;
}

/// A process of its own for each: the scale is settled when a program starts.
bool writeAtEveryScale(const std::string& program, const std::string& folder) {
    bool written = true;
    for (const char* scale : {"1", "2"}) {
        const int status =
            QProcess::execute(QString::fromStdString(program),
                              {QString::fromStdString(folder), QString::fromLatin1(scale)});
        written = status == 0 && written;
    }
    return written;
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments, arguments + count);
    if (words.size() != 2 && words.size() != 3) {
        std::fputs("Usage: window-pictures FOLDER [SCALE]\n", stderr);
        return 2;
    }
    if (words.size() == 2) {
        return writeAtEveryScale(words[0], words[1]) ? 0 : 1;
    }
    const LargeScreen screen;
    qputenv("QT_SCALE_FACTOR", words[2].c_str());  // read when the application is made
    const QApplication application(count, arguments);
    app::setIdentity();
    const QString folder = QString::fromStdString(words[1]);
    const QString suffix = QString::fromStdString(words[2] + "x");
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "there can be no folder %s\n", words[1].c_str());
        return 1;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(tests::lightPalette());
    const bool light = writePictures(QDir(folder), QStringLiteral("light"), suffix);
    QApplication::setPalette(tests::darkPalette());
    const bool dark = writePictures(QDir(folder), QStringLiteral("dark"), suffix);
    return light && dark ? 0 : 1;
}
