#pragma once

// A person who does anything at random, and undoes and does again any number of steps of it.

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "editor/PresetFiles.h"
#include "editor/TestEditor.h"
#include "editor/UndoModel.h"

namespace editor {

/// What a box shows, cheap to take and to compare.
struct BoxSeen {
    const char* firstItem = nullptr;
    int items = 0;
    int blanks = 0;
    int selected = -1;
    bool isEnabled = false;

    bool operator==(const BoxSeen&) const = default;
};

/// The whole editor: state and widget models. `bChange` stands apart.
struct Seen {
    EditorState state;
    int bChange = 0;
    std::array<BoxSeen, 5> boxes;
    std::vector<std::pair<int, bool>> buttons;
    std::string texts;

    [[nodiscard]] bool equals(const Seen& other) const {
        return state == other.state && boxes == other.boxes && buttons == other.buttons &&
               texts == other.texts;
    }
};
[[nodiscard]] Seen seenIn(const TestEditor& editor);
[[nodiscard]] BoxSeen seenIn(const toolkit::ComboBox& box);
/// Whether nothing differs that a step consists of.
[[nodiscard]] bool isSameWork(const Seen& one, const Seen& other);

/// One thing a person does; what it means is settled by where it is done.
struct Deed {
    enum class Kind {
        Control,
        ModeLayer,
        PadLayer,
        DawMode,
        Channel,
        Number,
        MessageKind,
        Trigger,
        Lock,
        Load,
        Save
    };
    Kind kind = Kind::Control;
    unsigned which = 0;
    bool goesOn = false;          ///< to the entry behind the one that is selected
    unsigned refusal = 0;         ///< 1: the pad editor cannot be shown, 2: it is given up
    std::vector<unsigned> inPad;  ///< what is done in the pad editor
};

class UndoWalk {
public:
    explicit UndoWalk(std::uint64_t seed);

    /// One action, or some steps back or forth.
    void step();
    /// All the way down, all the way up, with everything compared.
    void downAndUp();
    /// Does what is in effect once more in an editor that has just started, and compares.
    void replay();

    [[nodiscard]] TestEditor& editor() { return editor_; }
    [[nodiscard]] const std::string& problem() const { return problem_; }
    [[nodiscard]] std::size_t actions() const { return actions_; }
    [[nodiscard]] std::size_t undone() const { return undone_; }
    [[nodiscard]] std::size_t redone() const { return redone_; }
    [[nodiscard]] std::size_t replayed() const { return replayed_; }

private:
    using Model = UndoModel<Deed, Seen>;

    unsigned below(unsigned count) { return static_cast<unsigned>(random_() % count); }
    /// Mostly a few; now and then very many.
    unsigned manySteps() { return 1 + below(below(100) == 0 ? 200 : 3); }
    Deed randomDeed();
    /// None where nothing was done: a box did not take the choice.
    std::optional<Model::Choice> perform(TestEditor& editor, const Deed& deed);
    void undo();
    void redo();
    void require(bool holds, const std::string& promise);
    void checkArrival(const Seen& expected);
    void checkAlways();
    void checkMark();
    [[nodiscard]] bool losesWork() const;
    void noteFile(const Deed& deed);

    std::mt19937_64 random_;
    files::TemporaryFolder folder_{files::parentInMemory()};
    TestEditor editor_;
    Model model_;
    Seen start_;
    std::array<config::Image, 6> presets_{};
    config::PresetBytes onFile_{};
    config::Image userDefinedOnFile_{};
    std::size_t actions_ = 0;
    std::size_t undone_ = 0;
    std::size_t redone_ = 0;
    std::size_t replayed_ = 0;
    std::string problem_;
};

}  // namespace editor
