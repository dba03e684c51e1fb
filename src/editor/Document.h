#pragma once

// The document: the configuration as it is, what of it is on file, and its history. It watches the
// actions from where they end; no action knows of it. Whoever has to know that the configuration is
// another one (a rescue copy, say) listens here.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "config/Configuration.h"
#include "config/presetText.h"
#include "editor/EditorState.h"
#include "editor/History.h"
#include "editor/MainWindow.h"
#include "editor/Shown.h"

namespace editor {

class Document {
public:
    /// Both must outlive the document.
    Document(EditorState& state, MainWindow& window);
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// The editor has started: there is nothing to undo, and the image counts as on file.
    void begin();

    /// An action has ended. Where it changed the work it was a step, named by what the status line
    /// says of it. `choice` tells which box it was made in, if in one.
    void actionEnded(const Choice& choice = {});

    [[nodiscard]] const config::Configuration& configuration() const { return state_; }

    // History. Sends, saves, firmware, devices and windows are not part of it.
    [[nodiscard]] bool canUndo() const { return history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return history_.canRedo(); }
    /// What would be undone or done again; empty where there is nothing.
    [[nodiscard]] std::string_view undoName() const { return history_.undoName(); }
    [[nodiscard]] std::string_view redoName() const { return history_.redoName(); }
    /// Each puts everything back, and shows it where it was changed. Without a step it does
    /// nothing.
    void undo();
    void redo();
    [[nodiscard]] std::size_t numberOfSteps() const { return history_.numberOfSteps(); }
    /// What the history takes, in bytes.
    [[nodiscard]] std::size_t memory() const { return history_.memory(); }

    /// Puts a whole configuration in place, bit for bit, as one step of this name. The selection
    /// stays. Where nothing differs it is no step. `broughtBack` tells which copy of unsaved work
    /// it is, if it is one.
    void takeOver(const config::Configuration& configuration, std::string name,
                  int broughtBack = 0);

    // What is on file: the bytes that were saved or loaded last, or the start's.
    void filed(const config::PresetBytes& bytes);
    /// A load may rewrite a byte of what it read; the image differs from the file at once then.
    [[nodiscard]] bool differsFromFile() const;
    /// Whether anything is on no file. Unlike the title's mark it knows of the person's own
    /// assignments behind a DAW mode, which no preset of that mode holds.
    [[nodiscard]] bool hasUnsavedWork() const {
        return differsFromFile() || parkedDiffersFromFile();
    }

    /// `bChange` after the state was put back: set where a channel or number of the User Defined
    /// assignments, shown or parked, is not as it was saved or loaded last.
    void judgeChange();

    /// Tells that the configuration, or what is on file, may be another one.
    std::function<void()> onChange;

private:
    /// Everything a step may change, and what was shown then.
    struct Moment {
        EditorState state;
        Shown shown;
        std::uint32_t filings = 0;  ///< so many saves and loads before
    };

    friend bool sameWork(const Moment& one, const Moment& other) {
        return haveSameWork(one.state, other.state);
    }

    [[nodiscard]] Moment moment() const { return {state_, shownBy(window_), filings_}; }
    void goTo(const Moment& moment);
    [[nodiscard]] bool parkedDiffersFromFile() const;
    void tell();

    EditorState& state_;
    MainWindow& window_;
    History<Moment> history_;
    config::PresetBytes onFile_{};
    config::Image userDefinedOnFile_{};
    std::uint32_t filings_ = 0;
    bool isNews_ = false;
};

}  // namespace editor
