#include "qt/desktop/QtDesktop.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <typeinfo>
#include <utility>

#include "qt/desktop/noSettings.h"
#include "qt/desktop/windowInFront.h"
#include "qt/widgets/asText.h"

namespace qt::desktop {

namespace {

/// Counts something for as long as it lives.
class Counted {
public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --count_; }

private:
    int& count_;
};

constexpr std::string_view lastWindowClosed = "LastWindowClosed";

/// Pixels. Beside an alert stands the program's own icon and no warning sign, for most alerts say
/// that all is well.
constexpr int iconSize = 40;

/// An alert of two words and a button would be so small a window that it is overlooked.
void widen(QMessageBox& box) {
    constexpr int width = 260;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        grid->setContentsMargins(16, 16, 16, 12);
        // Qt has put a spacer between icon and text; the usual spacing on both sides of it as well
        // would tear them apart.
        grid->setHorizontalSpacing(4);
        grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
    }
}

bool isAnyWindowVisible() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [](const QWidget* window) { return window->isVisible(); });
}

}  // namespace

QtDesktop::QtDesktop(EndProcess endProcess) : endProcess_(std::move(endProcess)) {
    keepNoSettings();
    QApplication::setQuitOnLastWindowClosed(false);
}

QtDesktop::~QtDesktop() = default;

QtDesktop::Registration QtDesktop::onLastWindowClosed(std::function<void()> handler) {
    return notificationCentre_.addObserver(
        lastWindowClosed, [handler = std::move(handler)](const void*) { handler(); });
}

toolkit::AlertAnswer QtDesktop::runAlertPanel(const toolkit::Alert& alert) {
    sleeper_.endJob();
    const Counted counted(panels_);
    QMessageBox box(windowInFront());
    box.setWindowTitle(widgets::asText(alert.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(widgets::asText(alert.message));
    QPushButton* defaultButton =
        box.addButton(widgets::asText(alert.defaultButton), QMessageBox::AcceptRole);
    box.setDefaultButton(defaultButton);
    box.setEscapeButton(defaultButton);
    if (!alert.alternateButton.empty()) {
        box.setEscapeButton(
            box.addButton(widgets::asText(alert.alternateButton), QMessageBox::RejectRole));
    }
    box.setIconPixmap(QApplication::windowIcon().pixmap(iconSize));
    widen(box);
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
    return box.clickedButton() == defaultButton ? toolkit::AlertAnswer::Default
                                                : toolkit::AlertAnswer::Alternate;
}

std::optional<std::filesystem::path> QtDesktop::runSavePanel(const toolkit::SavePanel& panel) {
    sleeper_.endJob();
    const Counted counted(panels_);
    return filePanels_.runSave(panel);
}

std::optional<std::filesystem::path> QtDesktop::runOpenPanel(const toolkit::OpenPanel& panel) {
    sleeper_.endJob();
    const Counted counted(panels_);
    return filePanels_.runOpen(panel);
}

int QtDesktop::runModalForWindow(toolkit::WindowController& controller) {
    sleeper_.endJob();
    const std::unique_ptr<widgets::DialogView> view = buildView(controller);
    if (!view) {
        return 0;
    }
    if (QWidget* behind = windowInFront()) {
        // So the window manager places it over that window and never lets it slip behind.
        view->setParent(behind, view->windowFlags());
    }
    view->setWindowModality(Qt::ApplicationModal);
    ModalRun run;
    modalRuns_.push_back(&run);
    controller.window().makeKeyAndOrderFront();
    if (!run.stopped) {
        run.loop.exec(QEventLoop::DialogExec);
    }
    modalRuns_.pop_back();
    return modalStopped;
}

void QtDesktop::stopModal() {
    if (modalRuns_.empty()) {
        return;
    }
    modalRuns_.back()->stopped = true;
    modalRuns_.back()->loop.quit();
}

void QtDesktop::showWindow(toolkit::WindowController& controller) {
    std::unique_ptr<widgets::DialogView>& view = shown_[&controller];
    if (!view || view->isOrphan()) {
        view = buildView(controller);
    }
    if (!view) {
        shown_.erase(&controller);
        return;
    }
    view->installEventFilter(&hideWatch_);
    controller.window().makeKeyAndOrderFront();
}

void QtDesktop::sleepForTimeInterval(std::chrono::duration<double> seconds) {
    sleeper_.sleep(seconds);
}

void QtDesktop::exit(int status) {
    if (endProcess_) {
        endProcess_(status);
        return;
    }
    // At once: who asks may be in the middle of a modal run or of an upload, and returning there
    // would let it go on.
    std::fflush(nullptr);
    std::_Exit(status);
}

std::unique_ptr<widgets::DialogView> QtDesktop::buildView(toolkit::WindowController& controller) {
    const auto builder = builders_.find(std::type_index(typeid(controller)));
    return builder == builders_.end() ? nullptr : builder->second(controller);
}

bool QtDesktop::HideWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        QTimer::singleShot(0, this, [this] { desktop_.lookForLastWindow(); });
    }
    return QObject::eventFilter(watched, event);
}

void QtDesktop::lookForLastWindow() {
    // The pad editor, which is modal, hides the main window and brings it back by itself. An alert
    // or a dialog that is still open will return to whoever opened it, and that may show a window.
    const bool busy = !modalRuns_.empty() || panels_ > 0;
    if (!busy && !isAnyWindowVisible()) {
        notificationCentre_.postNotification(lastWindowClosed, this);
    }
}

}  // namespace qt::desktop
