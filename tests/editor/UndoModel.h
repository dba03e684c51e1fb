#pragma once

// What undo and redo have to bring back, kept in the simplest way: everything as it was before and
// after each action, and the actions themselves, to be done again by somebody else.

#include <cstddef>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace editor {

/// `Action` can be repeated; `Snapshot` can be compared, and `isSameWork` tells whether two of them
/// differ in nothing that is worth a step.
template <typename Action, typename Snapshot>
class UndoModel {
public:
    struct Entry {
        Action action{};
        Snapshot before;
        Snapshot after;
    };
    struct Choice {
        const void* box = nullptr;
        int index = -1;
    };

    void act(Entry entry, const Choice& choice) {
        const bool goesOn = choice.box != nullptr && choice.box == last_.box &&
                            std::abs(choice.index - last_.index) == 1;
        const bool changed = !isSameWork(entry.before, entry.after);
        since_.push_back(std::move(entry));
        if (!changed) {
            last_ = goesOn ? choice : Choice{};
            return;
        }
        last_ = choice;
        const std::size_t first = goesOn ? steps_.back().first : path_.size() + since_.size() - 1;
        if (goesOn) {
            steps_.pop_back();
        } else {
            steps_.resize(done_);
            path_.resize(at_);
        }
        const std::size_t start = goesOn ? first : at_ + since_.size() - 1;
        path_.insert(path_.end(), since_.begin(), since_.end());
        since_.clear();
        if (isSameWork(path_[start].before, path_.back().after)) {
            const auto begin = path_.begin() + static_cast<std::ptrdiff_t>(start);
            since_.assign(begin, path_.end());
            path_.resize(start);
            last_ = {};
        } else {
            steps_.push_back({start, path_.size()});
        }
        done_ = steps_.size();
        at_ = path_.size();
    }

    [[nodiscard]] bool canUndo() const { return done_ > 0; }
    [[nodiscard]] bool canRedo() const { return done_ < steps_.size(); }
    [[nodiscard]] std::size_t numberOfSteps() const { return steps_.size(); }

    const Snapshot& undo() {
        --done_;
        return arriveAt(steps_[done_].first);
    }
    const Snapshot& redo() {
        ++done_;
        return arriveAt(steps_[done_ - 1].end);
    }

    /// The actions that are in effect.
    [[nodiscard]] std::vector<Entry> inEffect() const {
        std::vector<Entry> entries(path_.begin(), path_.begin() + static_cast<std::ptrdiff_t>(at_));
        entries.insert(entries.end(), since_.begin(), since_.end());
        return entries;
    }

private:
    struct Step {
        std::size_t first;
        std::size_t end;
    };

    const Snapshot& arriveAt(std::size_t position) {
        since_.clear();
        last_ = {};
        at_ = position;
        return position < path_.size() && isBefore(position) ? path_[position].before
                                                             : path_[position - 1].after;
    }
    [[nodiscard]] bool isBefore(std::size_t position) const {
        return done_ < steps_.size() && steps_[done_].first == position;
    }

    std::vector<Entry> path_;   // up to the last step, undone ones too
    std::vector<Entry> since_;  // what was done since, without a step
    std::vector<Step> steps_;
    std::size_t done_ = 0;
    std::size_t at_ = 0;
    Choice last_;
};

}  // namespace editor
