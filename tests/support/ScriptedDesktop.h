#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <typeinfo>
#include <vector>

#include "support/journal.h"
#include "toolkit/Desktop.h"

namespace support {

/// The person and the desktop of a test. Everything the program asks of them is written into one
/// journal, in order, and answered as the test has laid down beforehand:
///
///     ScriptedDesktop desktop;
///     desktop.onModal<devices::seldev>([](devices::seldev& dialog) { dialog.okButton.click(); });
///     desktop.answerAlert();
///     ...
///     EXPECT_THAT(desktop.journal(), ElementsAre(journal::modalBegins<devices::seldev>(), ...));
///
/// What was not laid down fails the test when it is asked for, and what was laid down fails it at
/// the end if it was never asked for. No sleep takes time, and `exit` returns.
class ScriptedDesktop : public toolkit::Desktop {
public:
    ScriptedDesktop() = default;
    ~ScriptedDesktop() override;

    // The journal. Its lines are those of support::journal, and those of the test.

    [[nodiscard]] const std::vector<std::string>& journal() const { return journal_; }
    /// Adds a line of the test's own, such as what it saw arrive at a device.
    void note(std::string line) { journal_.push_back(std::move(line)); }
    void clearJournal() { journal_.clear(); }

    // The same by kind, as values. Not emptied by clearJournal.

    [[nodiscard]] const std::vector<toolkit::Alert>& alerts() const { return alerts_; }
    [[nodiscard]] const std::vector<std::chrono::duration<double>>& sleeps() const {
        return sleeps_;
    }
    [[nodiscard]] const std::vector<int>& exits() const { return exits_; }

    // Alerts and panels: one answer for each, in order.

    using AlertScript = std::function<toolkit::AlertAnswer(const toolkit::Alert&)>;
    using Path = std::optional<std::filesystem::path>;

    void answerAlert(toolkit::AlertAnswer answer = toolkit::AlertAnswer::Default);
    /// Runs while the alert is on the screen.
    void onAlert(AlertScript script) { alertScripts_.push_back(std::move(script)); }
    /// No path is Cancel.
    void answerSavePanel(Path path) { savePaths_.push_back(std::move(path)); }
    void answerOpenPanel(Path path) { openPaths_.push_back(std::move(path)); }

    // Modal runs: one script for each run of a controller of the class, in order.

    /// What a person does while the window is modal. The script must end the run by what it does in
    /// the window, or the test fails. It may start another modal run.
    template <typename Controller>
    void onModal(std::function<void(Controller&)> script) {
        addModalScript(typeid(Controller), [script = std::move(script)](auto& controller) {
            script(static_cast<Controller&>(controller));
        });
    }
    /// The window cannot be shown: the run returns 0 at once.
    template <typename Controller>
    void refuseModal() {
        addModalScript(typeid(Controller), nullptr);
    }
    /// Modal runs that have begun and not ended.
    [[nodiscard]] std::size_t modalRuns() const { return runs_.size(); }

    /// Runs at each sleep.
    std::function<void(std::chrono::duration<double>)> onSleep;

    toolkit::AlertAnswer runAlertPanel(const toolkit::Alert& alert) override;
    Path runSavePanel(const toolkit::SavePanel& panel) override;
    Path runOpenPanel(const toolkit::OpenPanel& panel) override;
    int runModalForWindow(toolkit::WindowController& controller) override;
    void stopModal() override;
    void showWindow(toolkit::WindowController& controller) override;
    void sleepForTimeInterval(std::chrono::duration<double> seconds) override;
    void exit(int status) override;

private:
    using ModalScript = std::function<void(toolkit::WindowController&)>;
    struct ModalEntry {
        const std::type_info* controller;
        ModalScript script;  // none: the window cannot be shown
    };
    struct Run {
        bool stopped = false;
    };

    void addModalScript(const std::type_info& controller, ModalScript script);
    std::optional<ModalScript> takeModalScript(const std::type_info& controller);

    std::vector<std::string> journal_;
    std::vector<toolkit::Alert> alerts_;
    std::vector<std::chrono::duration<double>> sleeps_;
    std::vector<int> exits_;

    std::deque<AlertScript> alertScripts_;
    std::deque<Path> savePaths_;
    std::deque<Path> openPaths_;
    std::deque<ModalEntry> modalScripts_;
    std::vector<Run> runs_;
};

}  // namespace support
