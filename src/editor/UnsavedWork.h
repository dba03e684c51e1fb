#pragma once

// What a person has not saved yet outlives the program: a copy of it lies on disk, and what an
// editor has left that came to its end before is offered again. It watches the document and the
// controller from outside; no action knows of it.

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/mainController.h"
#include "rescue/Keeper.h"

namespace editor {

class UnsavedWork {
public:
    using Time = rescue::Keeper::Time;
    using Place = std::optional<std::filesystem::path>;

    /// Listens to the document and the controller from now on; all must outlive it. Without a place
    /// nothing is kept, and the status line says so once there is something to keep.
    UnsavedWork(
        mainController& controller, MainWindow& window, Place place,
        std::function<Time()> now = [] { return std::chrono::steady_clock::now(); });
    UnsavedWork(const UnsavedWork&) = delete;
    UnsavedWork& operator=(const UnsavedWork&) = delete;
    ~UnsavedWork();

    // Keeping. There is no clock in here that wakes anybody: the owner has one.

    /// How long until `timePassed` has to be called; none while there is nothing to do.
    [[nodiscard]] std::optional<Time::duration> wait() const;
    /// Runs when `wait` may be another one.
    std::function<void()> onWait;
    /// Writes or removes the copy if that is due. What cannot be done is said in the status line.
    void timePassed();
    /// The program ends: what is left to do is done now.
    void end() { keeper_.end(); }

    // Bringing back.

    /// At the start: says in the status line what can be brought back, and what is left alone.
    void lookAround();
    /// Looks at the disk again.
    void look();
    /// What there was at the last look, the newest first: what other editors have left, and what
    /// was brought back and is on no file yet.
    [[nodiscard]] const std::vector<rescue::Leftover>& offers() const { return offers_; }
    /// Puts it in place as one step that can be undone. The copy stays until it was saved.
    void bringBack(const rescue::Leftover& offer);
    /// Removes the copy, brought back or not.
    void discard(const rescue::Leftover& offer);

private:
    void follow();
    void beginTransfer();
    void endTransfer();
    void discardWhatWasSaved();
    void takeOffers(std::vector<rescue::Leftover> others);
    bool removeCopy(const std::string& stem);
    [[nodiscard]] int numberOf(const rescue::Leftover& offer);
    void tellWait() const;
    void say(const std::string& line);

    mainController& controller_;
    MainWindow& window_;
    Place place_;
    std::function<Time()> now_;
    rescue::Keeper keeper_;
    std::vector<rescue::Leftover> offers_;
    /// What was brought back, in this order; without a stem what was removed since.
    std::vector<rescue::Leftover> broughtBack_;
};

}  // namespace editor
