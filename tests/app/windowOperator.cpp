// Stands in for the person in front of a program under test. Qt loads it into the program when told
// so by its environment:
//
//     QT_QPA_GENERIC_PLUGINS=window-operator:close

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QGenericPlugin>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QProgressBar>
#include <QTimer>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

#include "support/windows/hands.h"

namespace {

namespace hands = support::hands;

void say(const QString& what) {
    std::printf("operator: %s\n", qUtf8Printable(what));
    std::fflush(stdout);
}

QMainWindow* mainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<QMainWindow*>(window); found && found->isVisible()) {
            return found;
        }
    }
    return nullptr;
}

/// Runs `then` as soon as `ready`.
void soon(std::function<bool()> ready, std::function<void()> then) {
    QTimer::singleShot(std::chrono::milliseconds(5),
                       [ready = std::move(ready), then = std::move(then)] {
                           if (ready()) {
                               then();
                           } else {
                               soon(ready, then);
                           }
                       });
}

void closeMainWindow() {
    say(QStringLiteral("closing the main window"));
    mainWindow()->close();
}

void quit() {
    say(QStringLiteral("pressing Ctrl+Q"));
    hands::press(*mainWindow(), Qt::Key_Q, Qt::ControlModifier);
}

void edit() {
    auto& channel = hands::find<QComboBox>(*mainWindow(), "combo_chan");
    hands::press(hands::find(*mainWindow(), "combo_mode"), Qt::Key_Home);
    for (int i = 0; i < 3; ++i) {
        hands::press(channel, Qt::Key_Down);
    }
    say(QStringLiteral("edited channel ") + channel.currentText());
}

void editAndClose() {
    edit();
    closeMainWindow();
}

/// Says what the line below the window says.
void tellStatusAndClose() {
    say(QStringLiteral("status: ") + hands::find<QLabel>(*mainWindow(), "status").text());
    closeMainWindow();
}

/// Runs `act` once there is a dialog of this title in front.
void inDialog(const QString& title, std::function<void(QWidget*)> act) {
    soon(
        [title] {
            const QWidget* dialog = QApplication::activeModalWidget();
            return dialog != nullptr && dialog->windowTitle() == title;
        },
        [act = std::move(act)] { act(QApplication::activeModalWidget()); });
}

/// Looks at the dialog that opens next, and leaves it.
void lookAtDialog() {
    soon([] { return QApplication::activeModalWidget() != nullptr; },
         [] {
             QWidget* dialog = QApplication::activeModalWidget();
             const auto* alert = qobject_cast<QMessageBox*>(dialog);
             say(QStringLiteral("saw ") + dialog->windowTitle() +
                 (alert == nullptr ? QString() : QStringLiteral(": ") + alert->text()));
             hands::press(*dialog, Qt::Key_Escape);
         });
}

void click(const char* button) {
    hands::click(hands::find(*mainWindow(), button));
}

/// Types the name of a file into a file panel and accepts it.
void enter(const QString& file, const QWidget* panel) {
    auto& name = hands::find<QLineEdit>(*panel, "fileNameEdit");
    name.setText(file);
    hands::press(name, Qt::Key_Enter);
}

void trigger(const char* action) {
    mainWindow()->findChild<QAction*>(QString::fromLatin1(action))->trigger();
}

void lookAroundAndClose() {
    trigger("actionAbout");
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QDialog*>(window) != nullptr && window->isVisible()) {
            say(QStringLiteral("saw ") + window->windowTitle());
            window->close();
        }
    }
    for (const char* button : {"midiDevices", "send", "paLa2"}) {
        lookAtDialog();
        click(button);
    }
    closeMainWindow();
}

/// Saves a preset in the folder for temporary files and reads what the alert says, if there is one.
void saveAndClose() {
    soon([] { return QApplication::activeModalWidget() != nullptr; },
         [] {
             const QWidget* panel = QApplication::activeModalWidget();
             lookAtDialog();
             enter(QDir(QDir::tempPath()).filePath(QStringLiteral("stage")), panel);
         });
    trigger("actionSavePreset");
    closeMainWindow();
}

/// Chooses the output of this name with the keyboard, and confirms.
void choose(const QString& name, const QWidget* dialog) {
    auto& outputs = hands::find<QComboBox>(*dialog, "combo_out");
    hands::press(outputs, Qt::Key_Home);
    for (int steps = outputs.findText(name); steps > 0; --steps) {
        hands::press(outputs, Qt::Key_Down);
    }
    say(QStringLiteral("chose ") + outputs.currentText());
    hands::click(hands::find(*dialog, "ok"));
}

/// Chooses the output that the environment names in the dialog that opens next.
void chooseOutputInDialog() {
    inDialog(QStringLiteral("MIDI Devices"), [](QWidget* dialog) {
        choose(qEnvironmentVariable("TORMELK_OPERATOR_OUTPUT"), dialog);
    });
}

void send() {
    lookAtDialog();
    click("send");
}

/// Sends everything to the output that the environment names.
void sendAndClose() {
    chooseOutputInDialog();
    click("midiDevices");
    send();
    closeMainWindow();
}

/// Does so a second time after the output has gone and is, for the dialogs, no longer there.
void sendAgainWhenGoneAndClose() {
    chooseOutputInDialog();
    click("midiDevices");
    send();
    QTimer::singleShot(std::chrono::seconds(3), [] {
        send();
        closeMainWindow();
    });
}

/// Puts the controller into its update mode and uploads the file that the environment names.
void uploadFrom(QWidget* window) {
    chooseOutputInDialog();
    hands::click(hands::find(*window, "select"));
    inDialog(QStringLiteral("Tormelk Wyro"), [](QWidget* alert) {
        say(QStringLiteral("saw ") + qobject_cast<QMessageBox*>(alert)->text());
        hands::press(*alert, Qt::Key_Escape);
    });
    hands::click(hands::find(*window, "update"));
    chooseOutputInDialog();
    hands::click(hands::find(*window, "select"));
    inDialog(QStringLiteral("Open"),
             [](QWidget* panel) { enter(qEnvironmentVariable("TORMELK_OPERATOR_FILE"), panel); });
    hands::click(hands::find(*window, "open"));
    inDialog(QStringLiteral("Firmware Update"), [](QWidget* confirmation) {
        say(QStringLiteral("uploading"));
        hands::click(hands::find(*confirmation, "ok"));
    });
    inDialog(QStringLiteral("Upload"), [](QWidget* alert) {
        say(QStringLiteral("saw Upload: ") + qobject_cast<QMessageBox*>(alert)->text());
        hands::press(*alert, Qt::Key_Escape);
    });
    hands::click(hands::find(*window, "upload"));
    hands::press(*window, Qt::Key_Escape);
}

void uploadAndClose() {
    inDialog(QStringLiteral("Firmware Upgrade"), uploadFrom);
    trigger("actionFirmwareUpdate");
    closeMainWindow();
}

/// Opens a dialog or a panel and leaves it to stand there.
void openDialog(const char* action) {
    soon([] { return QApplication::activeModalWidget() != nullptr; },
         [] { say(QStringLiteral("opened ") + QApplication::activeModalWidget()->windowTitle()); });
    trigger(action);
}

void openDevices() {
    openDialog("actionMidiDevices");
}

void openSavePanel() {
    openDialog("actionSavePreset");
}

void tellBusAndClose() {
    say(QStringLiteral("bus ") + qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    closeMainWindow();
}

void wait() {
    say(QStringLiteral("waiting"));
}

/// Sends, and the signal that the environment names arrives while it does.
void sendAndGetSignal() {
    chooseOutputInDialog();
    click("midiDevices");
    say(QStringLiteral("sending"));
    std::raise(qEnvironmentVariableIntValue("TORMELK_OPERATOR_SIGNAL"));
    send();
    say(QStringLiteral("sent"));
}

/// Stops answering anybody, as a program does that hangs.
void hang() {
    say(QStringLiteral("hanging"));
    std::this_thread::sleep_for(std::chrono::minutes(10));
}

/// A text in one line.
QString inOneLine(QString text) {
    return text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
}

/// Tells what comes to be read in the windows: the words that change while the program works, as
/// they are painted, and the dialogs that open.
class Reader final : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            read(qobject_cast<QLabel*>(watched));
        } else if (event->type() == QEvent::Show) {
            greet(qobject_cast<QDialog*>(watched));
        }
        return false;
    }

private:
    void read(const QLabel* label) {
        static const QStringList worthReading = {QStringLiteral("status"), QStringLiteral("step5"),
                                                 QStringLiteral("hint")};
        if (label == nullptr || !worthReading.contains(label->objectName()) ||
            lastRead_.value(label->objectName()) == label->text()) {
            return;
        }
        lastRead_.insert(label->objectName(), label->text());
        say(label->objectName() + QStringLiteral(": ") + inOneLine(label->text()));
    }
    static void greet(const QDialog* dialog) {
        if (const auto* alert = qobject_cast<const QMessageBox*>(dialog)) {
            say(QStringLiteral("alert %1: %2")
                    .arg(alert->windowTitle().trimmed(), inOneLine(alert->text())));
        } else if (dialog != nullptr) {
            say(QStringLiteral("in front: ") + dialog->windowTitle());
        }
    }

    QHash<QString, QString> lastRead_;
};

/// Tells what stands in the window in front now.
void tell(const QString&, QWidget* window) {
    for (const auto* label : window->findChildren<QLabel*>()) {
        if (!label->objectName().isEmpty() &&
            !label->objectName().startsWith(QLatin1String("qt_"))) {
            say(QStringLiteral("now %1: %2").arg(label->objectName(), inOneLine(label->text())));
        }
    }
    for (const auto* bar : window->findChildren<QProgressBar*>()) {
        say(QStringLiteral("now bar: %1 %").arg(100.0 * bar->value() / bar->maximum()));
    }
    QString next = QStringLiteral("none");
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        const QString about = button->accessibleDescription();
        next = about.contains(QLatin1String("the next one")) ? about : next;
    }
    say(QStringLiteral("now next: ") + next);
}

/// What can be ordered: a word, and what it is about. The window is the one in front.
const std::pair<const char*, void (*)(const QString& what, QWidget* window)> orders[] = {
    {"press", [](const QString& button,
                 QWidget* window) { hands::click(hands::find(*window, qPrintable(button))); }},
    {"trigger", [](const QString& action,
                   QWidget* window) { window->findChild<QAction*>(action)->trigger(); }},
    {"choose", [](const QString& output, QWidget* window) { choose(output, window); }},
    {"open", [](const QString& file, QWidget* window) { enter(file, window); }},
    {"leave", [](const QString&, QWidget* window) { hands::press(*window, Qt::Key_Escape); }},
    {"close", [](const QString&, QWidget* window) { window->close(); }},
    {"tell", tell},
};

void carryOut(const QString& order) {
    QWidget* modal = QApplication::activeModalWidget();
    for (const auto& [word, act] : orders) {
        if (order.section(QLatin1Char(' '), 0, 0) == QLatin1String(word)) {
            act(order.section(QLatin1Char(' '), 1), modal != nullptr ? modal : mainWindow());
            return;
        }
    }
    say(QStringLiteral("no such order: ") + order);
}

/// Carries out what is written to a file, line after line, also while an order before goes on.
void obeyLinesOf(const std::shared_ptr<QFile>& file) {
    const auto line = std::make_shared<QString>();
    soon(
        [file, line] {
            *line = QString::fromUtf8(file->readLine()).trimmed();
            return !line->isEmpty();
        },
        [file, line] {
            obeyLinesOf(file);
            carryOut(*line);
        });
}

/// Does what the file says that the environment names, and tells what is to be read in the windows.
void obey() {
    QApplication::instance()->installEventFilter(new Reader(QApplication::instance()));
    mainWindow()->update();
    const auto file = std::make_shared<QFile>(qEnvironmentVariable("TORMELK_OPERATOR_FILE"));
    if (!file->open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        say(QStringLiteral("cannot read ") + file->fileName());
        return;
    }
    obeyLinesOf(file);
    say(QStringLiteral("ready"));
}

const std::pair<const char*, void (*)()> tasks[] = {
    {"obey", obey},
    {"tell-bus-and-close", tellBusAndClose},
    {"wait", wait},
    {"open-devices", openDevices},
    {"open-save-panel", openSavePanel},
    {"send-and-get-signal", sendAndGetSignal},
    {"hang", hang},
    {"close", closeMainWindow},
    {"quit", quit},
    {"edit", edit},
    {"edit-and-close", editAndClose},
    {"tell-status-and-close", tellStatusAndClose},
    {"look-around-and-close", lookAroundAndClose},
    {"save-and-close", saveAndClose},
    {"send-and-close", sendAndClose},
    {"send-again-when-gone-and-close", sendAgainWhenGoneAndClose},
    {"upload-and-close", uploadAndClose},
};

class WindowOperator final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "windowOperator.json")

public:
    QObject* create(const QString&, const QString& specification) override {
        for (const auto& [name, task] : tasks) {
            if (specification == QLatin1String(name)) {
                soon([] { return mainWindow() != nullptr && mainWindow()->isActiveWindow(); },
                     task);
            }
        }
        return new QObject(this);
    }
};

}  // namespace

#include "windowOperator.moc"
