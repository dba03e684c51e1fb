#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "kernel/Program.h"

namespace kernel {

/// The editor program, with an operator in it who does one thing after the other as told, and tells
/// what is to be read in the windows (tests/app/windowOperator.cpp).
///
/// Whoever waits for words in vain gets an exception with all that was told.
class OperatedEditor {
public:
    static constexpr std::chrono::seconds patience{30};

    /// Started by way of these words, if there are any: {"setpriv", "--reuid=65534"}.
    explicit OperatedEditor(const std::vector<std::string>& starter = {});

    void order(const std::string& what) const;

    /// Waits for the next line that begins so, and returns what it says after that. The lines up to
    /// there count as read.
    std::string next(const std::string& beginning, std::chrono::milliseconds limit = patience);
    /// Lets all that was told until now count as read.
    void skip();
    /// What was told since that beginning of the read lines, up to now.
    [[nodiscard]] std::size_t read() const { return read_; }
    [[nodiscard]] std::string toldSince(std::size_t begin) const;

    /// What stands in the window in front: "status", "step5", "bar", "next".
    std::string now(const std::string& what);

    void chooseOutput(const std::string& name);
    /// Presses Send and leaves the alert, which says what is returned.
    std::string send();
    /// The same once the device is there, for the program too.
    std::string sendOnceItIsThere();

    /// Opens the firmware window and leaves it.
    void openFirmwareWindow();
    void leaveWindow() const { order("leave"); }
    /// Steps 3 to 5 there; returns when the upload has begun.
    void beginUpload(const std::string& output, const std::string& file);
    /// Waits until it is over and leaves the alert, which says what is returned.
    std::string endUpload(std::chrono::milliseconds limit);

    /// Stops it where it is, and lets it go on.
    void freeze() const;
    void thaw() const;

    /// Closes its window; its exit status.
    int close();

private:
    std::filesystem::path orders_;
    Program program_;
    std::size_t read_ = 0;
};

}  // namespace kernel
