// Shows every window, dialog and file panel once, and ends as the program ends.

#include <QApplication>
#include <QTimer>
#include <cstdio>

#include "app/Robot.h"
#include "qt/EveryWindow.h"
#include "qt/QtDesktop.h"

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    tests::forEveryWindow([](QWidget&, const QString&) {});
    qt::QtDesktop desktop;
    int panels = 0;
    const auto cancel = [&panels](QDialog& dialog) {
        ++panels;
        app::robot::press(dialog, Qt::Key_Escape);
    };
    app::robot::whenDialogOpens(QStringLiteral("Save it"), cancel);
    (void)desktop.runSavePanel({"Save it", "Tormelk", "Tormelk"});
    app::robot::whenDialogOpens(QStringLiteral("Open"), cancel);
    (void)desktop.runOpenPanel({"Tormelk", {"Tormelk"}});
    if (panels == 2) {
        std::printf("every window and both file panels were shown\n");
    }
    QTimer::singleShot(0, qApp, [&desktop] { desktop.exit(0); });
    return QApplication::exec();
}
