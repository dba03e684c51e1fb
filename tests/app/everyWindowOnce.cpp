// Shows every window, dialog and file panel once, saves a preset and loads it, and ends as the
// program ends.

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "app/Demo.h"
#include "app/windows/EveryWindow.h"
#include "qt/desktop/QtDesktop.h"
#include "support/windows/hands.h"

namespace {

/// Types a path into a file panel and accepts it.
auto enter(const QString& path) {
    return [path](QDialog& panel) {
        auto& name = support::hands::find<QLineEdit>(panel, "fileNameEdit");
        name.setText(path);
        support::hands::press(name, Qt::Key_Enter);
    };
}

/// Whether a byte that was changed after saving is back after loading.
bool saveAndLoad() {
    const QTemporaryDir folder;
    platform::software::SoftwareMidiService midiService;
    app::Demo demo(midiService);
    demo.show();
    config::Image& image = demo.editor.state.sysData;
    const std::uint8_t saved = image[config::channelOffset];
    support::hands::whenDialogOpens(QStringLiteral("Specify the Tormelk file name"),
                                    enter(folder.filePath(QStringLiteral("Stage"))));
    demo.editor.view.findChild<QAction*>(QStringLiteral("actionSavePreset"))->trigger();
    image[config::channelOffset] = saved + 1;
    support::hands::whenDialogOpens(QStringLiteral("Open"),
                                    enter(folder.filePath(QStringLiteral("Stage.Tormelk"))));
    demo.editor.view.findChild<QAction*>(QStringLiteral("actionLoadPreset"))->trigger();
    return image[config::channelOffset] == saved;
}

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    tests::forEveryWindow([](QWidget&, const QString&) {});
    qt::desktop::QtDesktop desktop;
    int panels = 0;
    const auto cancel = [&panels](QDialog& dialog) {
        ++panels;
        support::hands::press(dialog, Qt::Key_Escape);
    };
    support::hands::whenDialogOpens(QStringLiteral("Save it"), cancel);
    (void)desktop.runSavePanel({"Save it", "Tormelk", "Tormelk"});
    support::hands::whenDialogOpens(QStringLiteral("Open"), cancel);
    (void)desktop.runOpenPanel({"Tormelk", {"Tormelk"}});
    if (panels == 2) {
        std::printf("every window and both file panels were shown\n");
    }
    if (saveAndLoad()) {
        std::printf("a preset was saved and loaded\n");
    }
    QTimer::singleShot(0, qApp, [&desktop] { desktop.exit(0); });
    return QApplication::exec();
}
