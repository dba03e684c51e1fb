#include "rescue/Keeper.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "files/failed.h"

namespace rescue {

void Keeper::configurationIs(const Work& work, bool isOnFile, Time now) {
    const std::optional<Work> unsaved = isOnFile ? std::nullopt : std::optional(work);
    if (unsaved == unsaved_) {
        return;
    }
    unsaved_ = unsaved;
    if (isSettled()) {
        due_.reset();
    } else if (isOnFile) {
        due_ = now;
    } else if (!due_) {
        // From the first change on, not from the last: who goes on and on is kept up with.
        due_ = now + patience;
    }
}

std::optional<Keeper::Time> Keeper::due() const {
    return transfers_ == 0 ? due_ : std::nullopt;
}

std::string Keeper::timePassed(Time now) {
    return due() && *due() <= now ? settle() : "";
}

void Keeper::keepNow(Time now) {
    if (due() && !settle().empty()) {
        toldFailure_.clear();
        due_ = now;
    }
}

void Keeper::end() {
    if (!isSettled()) {
        (void)settle();
    }
}

bool Keeper::needsOwnCopy() const {
    return unsaved_ && std::none_of(taken_.begin(), taken_.end(), [this](const auto& entry) {
               return entry.second.work == *unsaved_;
           });
}

bool Keeper::isSettled() const {
    return needsOwnCopy() ? written_ == unsaved_ : !own_;
}

std::string Keeper::settle() {
    due_.reset();
    if (!needsOwnCopy()) {
        removeOwn();
        return "";
    }
    const files::ReplaceResult result = write(*unsaved_);
    if (result.replaced) {
        toldFailure_.clear();
        return "";
    }
    std::string line = "Unsaved work cannot be kept: " + result.reason;
    return std::exchange(toldFailure_, line) == line ? "" : line;
}

files::ReplaceResult Keeper::write(const Work& work) {
    if (!folder_) {
        return {false, "There is no home folder"};
    }
    if (!own_ || !own_->isInPlace()) {
        written_.reset();
        own_ = HeldCopy::begin(*folder_);
        if (!own_) {
            return files::failed(errno);
        }
        tidy(*folder_, mostLeftovers - 1);
    }
    files::ReplaceResult result = own_->write(work);
    if (result.replaced) {
        written_ = work;
    } else if (!written_) {
        removeOwn();
    }
    return result;
}

void Keeper::removeOwn() {
    written_.reset();
    if (own_) {
        HeldCopy::discard(std::move(*std::exchange(own_, std::nullopt)));
    }
}

Findings Keeper::look() const {
    Findings findings = folder_ ? lookInto(*folder_) : Findings();
    std::erase_if(findings.leftAlone, [this](const LeftAlone& file) {
        const auto name = parsedName(file.name);
        return name && ((own_ && own_->stem() == name->stem) || taken_.count(name->stem) != 0);
    });
    return findings;
}

std::optional<Work> Keeper::bringBack(const std::string& stem) {
    if (const auto taken = taken_.find(stem); taken != taken_.end()) {
        return taken->second.work;
    }
    auto copy = folder_ ? HeldCopy::take(*folder_, stem) : std::nullopt;
    if (!copy) {
        return std::nullopt;
    }
    const std::optional<Work> work = copy->read();
    if (work) {
        taken_.emplace(stem, Taken{std::move(*copy), *work});
    } else {
        HeldCopy::discard(std::move(*copy));  // there is no copy: the lock alone goes
    }
    return work;
}

bool Keeper::discard(const std::string& stem) {
    const bool isHeld = bringBack(stem).has_value();
    if (isHeld) {
        HeldCopy::discard(std::move(taken_.at(stem).copy));
        taken_.erase(stem);
    }
    if (!isSettled()) {
        due_ = Time::min();  // it was the copy of what is unsaved
    }
    return isHeld;
}

}  // namespace rescue
