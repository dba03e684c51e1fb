#pragma once

// The desktop for real: alerts, file panels, modal runs and windows by Qt. Which view belongs to
// which controller is told beforehand:
//
//     QtDesktop desktop;
//     desktop.addView<devices::seldev>(
//         [](devices::seldev& controller) { return std::make_unique<SeldevView>(controller); });
//
// An application (QApplication) must exist.

#include <QEventLoop>
#include <QObject>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <typeindex>
#include <vector>

#include "platform/NotificationCentre.h"
#include "qt/desktop/FilePanels.h"
#include "qt/desktop/Sleeper.h"
#include "qt/widgets/DialogView.h"
#include "toolkit/Desktop.h"

namespace qt::desktop {

class QtDesktop final : public toolkit::Desktop {
public:
    using EndProcess = std::function<void(int status)>;

    /// Without `endProcess` the process is ended for real.
    explicit QtDesktop(EndProcess endProcess = nullptr);
    ~QtDesktop() override;

    /// What is shown for controllers of this type. A controller without a view cannot be shown.
    template <typename Controller, typename Build>
    void addView(Build build) {
        builders_.insert_or_assign(
            std::type_index(typeid(Controller)),
            [build](toolkit::WindowController& controller) -> std::unique_ptr<widgets::DialogView> {
                return build(static_cast<Controller&>(controller));
            });
    }

    using Registration = platform::NotificationCentre::Registration;
    /// Runs when the last visible window has been closed, unless a modal run or a panel is under
    /// way; for as long as the registration lives, which must not outlive the desktop. Everyone who
    /// registers is called, for several editors may share a desktop.
    [[nodiscard]] Registration onLastWindowClosed(std::function<void()> handler);

    /// Runs around every wait of a sleep: for what cannot wait until the job is done.
    void onSleep(std::function<void()> lookUp) { sleeper_.onSleep(std::move(lookUp)); }

    toolkit::AlertAnswer runAlertPanel(const toolkit::Alert& alert) override;
    std::optional<std::filesystem::path> runSavePanel(const toolkit::SavePanel& panel) override;
    std::optional<std::filesystem::path> runOpenPanel(const toolkit::OpenPanel& panel) override;
    int runModalForWindow(toolkit::WindowController& controller) override;
    void stopModal() override;
    void showWindow(toolkit::WindowController& controller) override;
    void sleepForTimeInterval(std::chrono::duration<double> seconds) override;
    void exit(int status) override;

private:
    using Builder = std::function<std::unique_ptr<widgets::DialogView>(toolkit::WindowController&)>;

    /// A window was hidden; afterwards somebody has to look whether it was the last.
    class HideWatch final : public QObject {
    public:
        explicit HideWatch(QtDesktop& desktop) : desktop_(desktop) {}
        bool eventFilter(QObject* watched, QEvent* event) override;

    private:
        QtDesktop& desktop_;
    };

    struct ModalRun {
        QEventLoop loop;
        bool stopped = false;
    };

    [[nodiscard]] std::unique_ptr<widgets::DialogView> buildView(
        toolkit::WindowController& controller);
    void lookForLastWindow();

    FilePanels filePanels_;
    EndProcess endProcess_;
    Sleeper sleeper_;
    std::map<std::type_index, Builder> builders_;
    std::vector<ModalRun*> modalRuns_;  // the innermost last
    int panels_ = 0;                    // alerts and file panels being shown
    std::map<toolkit::WindowController*, std::unique_ptr<widgets::DialogView>> shown_;
    platform::NotificationCentre notificationCentre_;
    HideWatch hideWatch_{*this};
};

}  // namespace qt::desktop
