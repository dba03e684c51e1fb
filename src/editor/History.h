#pragma once

// What was done, step by step, so that it can be undone and done again. A moment is everything that
// a step may change, as one value; of a step only the difference between the moment before it and
// the moment after it is kept. What happens between two steps (a control is selected) is no step
// and is kept with the next one, so that going back to before a step shows where it was made.
//
//   start --way--> before 1 ==step 1==> after 1 --way--> before 2 ==step 2==> after 2 ...

#include <cstdlib>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "editor/Difference.h"
#include "toolkit/ComboBox.h"

namespace editor {

/// The most that a history keeps. Ten thousand of the largest steps take less than half of it;
/// beyond it the oldest go.
inline constexpr std::size_t historyLimit = std::size_t{64} << 20;

/// What a person did last in a box.
struct Choice {
    const toolkit::ComboBox* box = nullptr;  ///< null where it was no choice
    int index = -1;

    /// Whether a person goes on through a list, entry by entry.
    [[nodiscard]] bool goesOnFrom(const Choice& before) const {
        return box != nullptr && box == before.box && std::abs(index - before.index) == 1;
    }
};

/// `Moment` is a plain value of bytes, and `sameWork` says whether nothing a step consists of
/// differs between two of them.
template <typename Moment>
class History {
    static_assert(std::is_trivially_copyable_v<Moment>);

public:
    explicit History(const Moment& start, std::size_t limit = historyLimit)
        : limit_(limit), mark_(start), last_(start) {}

    /// An action has ended. It is a step where the work is not the same any more, and goes on with
    /// the last one where a person went on through the same list. `name` is asked for a new step's.
    /// Returns whether it was a step.
    template <typename Name>
    bool actionEnded(const Moment& now, Name name, const Choice& choice = {}) {
        const bool goesOn = choice.goesOnFrom(lastChoice_);
        if (sameWork(now, last_)) {
            last_ = now;
            lastChoice_ = goesOn ? choice : Choice{};
            return false;
        }
        if (goesOn) {
            takeBackLast();
        } else {
            dropWhatWasUndone();
        }
        lastChoice_ = choice;
        if (sameWork(now, last_)) {  // through the list and back to where it began
            lastChoice_ = {};
        } else {
            add(now, name());
        }
        last_ = now;
        return true;
    }

    /// The moment is another one now, without an action: what is not undone has changed.
    void goOnFrom(const Moment& now) { last_ = now; }

    [[nodiscard]] bool canUndo() const { return done_ > 0; }
    [[nodiscard]] bool canRedo() const { return done_ < steps_.size(); }
    [[nodiscard]] std::string_view undoName() const {
        return canUndo() ? std::string_view(steps_[done_ - 1].name) : std::string_view();
    }
    [[nodiscard]] std::string_view redoName() const {
        return canRedo() ? std::string_view(steps_[done_].name) : std::string_view();
    }

    /// Goes to before the last step that was done; there must be one.
    const Moment& undo() {
        markAfterLast();
        --done_;
        steps_[done_].change.applyTo(bytesOf(mark_));
        return arrive(true);
    }

    /// Goes to after the last step that was undone; there must be one.
    const Moment& redo() {
        markBeforeNext();
        steps_[done_].change.applyTo(bytesOf(mark_));
        ++done_;
        return arrive(false);
    }

    [[nodiscard]] std::size_t numberOfSteps() const { return steps_.size(); }
    /// What the steps take, in bytes.
    [[nodiscard]] std::size_t memory() const { return memory_; }

private:
    struct Step {
        std::string name;
        Difference way;     ///< from after the step before it to before it
        Difference change;  ///< from before it to after it

        [[nodiscard]] std::size_t memory() const {
            return sizeof(Step) + name.capacity() + way.memory() + change.memory();
        }
    };

    static std::span<std::byte> bytesOf(Moment& moment) {
        return std::as_writable_bytes(std::span<Moment, 1>(&moment, 1));
    }
    static std::span<const std::byte> bytesOf(const Moment& moment) {
        return std::as_bytes(std::span<const Moment, 1>(&moment, 1));
    }

    const Moment& arrive(bool beforeNext) {
        isBeforeNext_ = beforeNext;
        last_ = mark_;
        lastChoice_ = {};
        return mark_;
    }

    void markAfterLast() {
        if (isBeforeNext_) {
            steps_[done_].way.applyTo(bytesOf(mark_));
            isBeforeNext_ = false;
        }
    }

    void markBeforeNext() {
        if (!isBeforeNext_) {
            steps_[done_].way.applyTo(bytesOf(mark_));
            isBeforeNext_ = true;
        }
    }

    /// The last step is none any more: it is to be made again with another end.
    void takeBackLast() {
        last_ = undo();
        dropWhatWasUndone();
    }

    void dropWhatWasUndone() {
        markAfterLast();
        while (canRedo()) {
            memory_ -= steps_.back().memory();
            steps_.pop_back();
        }
    }

    void add(const Moment& now, std::string name) {
        steps_.push_back({std::move(name),
                          Difference(bytesOf(std::as_const(mark_)), bytesOf(std::as_const(last_))),
                          Difference(bytesOf(std::as_const(last_)), bytesOf(now))});
        ++done_;
        mark_ = now;
        memory_ += steps_.back().memory();
        while (memory_ > limit_ && steps_.size() > 1) {
            memory_ -= steps_.front().memory();
            steps_.pop_front();
            --done_;
        }
    }

    std::size_t limit_;
    std::deque<Step> steps_;
    std::size_t done_ = 0;  ///< so many are done; the others are undone
    std::size_t memory_ = 0;
    Moment mark_;  ///< after the last step that is done, or before the next one
    bool isBeforeNext_ = false;
    Moment last_;  ///< at the end of the last action
    Choice lastChoice_;
};

}  // namespace editor
