#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "toolkit/WindowController.h"

namespace toolkit {

/// A modal alert: a title, a message and one or two buttons.
struct Alert {
    std::string title;
    std::string message;
    std::string defaultButton = "OK";
    std::string alternateButton = {};  ///< no second button where empty

    bool operator==(const Alert&) const = default;
};

enum class AlertAnswer { Default, Alternate };

/// Asks for a file to write. A file without a type gets `requiredFileType`.
struct SavePanel {
    std::string title;
    std::string requiredFileType;
    std::string proposedName;
};

/// Asks for a file to read. An empty list of types offers every file.
struct OpenPanel {
    std::string requiredFileType;
    std::vector<std::string> fileTypes;
};

/// Everything a program asks of the person in front of it and of the desktop around it: the one
/// abstract class between the logic and the screen. The windows implement it for real; tests
/// script it. All of it happens on the main thread.
class Desktop {
public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    /// Shows an alert and returns when it has been answered. Closing it, or Escape, is the
    /// alternate answer where there is one.
    virtual AlertAnswer runAlertPanel(const Alert& alert) = 0;

    /// The chosen path; none if cancelled.
    virtual std::optional<std::filesystem::path> runSavePanel(const SavePanel& panel) = 0;
    virtual std::optional<std::filesystem::path> runOpenPanel(const OpenPanel& panel) = 0;

    /// Shows the controller's window and blocks the others until `stopModal`. Returns what ended
    /// the run: `modalStopped`, or 0 if the window could not be shown.
    virtual int runModalForWindow(WindowController& controller) = 0;

    /// Ends the innermost modal run. Without one it does nothing.
    virtual void stopModal() = 0;

    /// Shows the controller's window, not modal, and brings it to the front.
    virtual void showWindow(WindowController& controller) = 0;

    /// Blocks the calling thread. Never shorter than asked.
    virtual void sleepForTimeInterval(std::chrono::duration<double> seconds) = 0;

    /// Ends the process at once with this status. (Tests: returns after noting it.)
    virtual void exit(int status) = 0;

    /// The result of a modal run that `stopModal` ended; any value but 0 means so.
    static constexpr int modalStopped = -1000;
};

}  // namespace toolkit
