#include "editor/UnsavedWork.h"

#include <algorithm>

#include "rescue/words.h"

namespace editor {

namespace {

std::string whenWords(const rescue::Leftover& offer) {
    return rescue::whenWords(offer.written, std::chrono::system_clock::now());
}

config::Configuration with(const rescue::Work& work, config::Configuration configuration) {
    std::copy(work.shown.begin(), work.shown.end(), configuration.sysData.begin());
    rescue::giveBackUserDefined(work, configuration.stores);
    return configuration;
}

}  // namespace

UnsavedWork::UnsavedWork(mainController& controller, MainWindow& window, Place place,
                         std::function<Time()> now)
    : controller_(controller),
      window_(window),
      place_(std::move(place)),
      now_(std::move(now)),
      keeper_(place_) {
    controller.document().onChange = [this] { follow(); };
    controller.onTransferBegin = [this] { beginTransfer(); };
    controller.onTransferEnd = [this] { endTransfer(); };
    controller.onSaved = [this] { discardWhatWasSaved(); };
}

UnsavedWork::~UnsavedWork() {
    controller_.document().onChange = nullptr;
    controller_.onTransferBegin = nullptr;
    controller_.onTransferEnd = nullptr;
    controller_.onSaved = nullptr;
}

std::optional<UnsavedWork::Time::duration> UnsavedWork::wait() const {
    const std::optional<Time> due = keeper_.due();
    if (!due) {
        return std::nullopt;
    }
    const Time now = now_();
    return std::max(*due, now) - now;
}

void UnsavedWork::timePassed() {
    if (const std::string line = keeper_.timePassed(now_()); !line.empty()) {
        say(line);
    }
    tellWait();
}

void UnsavedWork::follow() {
    const Document& document = controller_.document();
    const config::Configuration& configuration = document.configuration();
    keeper_.configurationIs(rescue::workOf(configuration.sysData, configuration.stores),
                            !document.hasUnsavedWork(), now_());
    tellWait();
}

/// What is on disk before need not be written meanwhile.
void UnsavedWork::beginTransfer() {
    keeper_.keepNow(now_());
    keeper_.transferBegins();
    tellWait();
}

void UnsavedWork::endTransfer() {
    keeper_.transferEnds();
    tellWait();
}

void UnsavedWork::lookAround() {
    const rescue::Findings findings = keeper_.look();
    takeOffers(findings.leftovers);
    std::string line = rescue::offerWords(findings, std::chrono::system_clock::now());
    const std::string leftAlone = rescue::leftAloneWords(findings, place_.value_or(""));
    line += (line.empty() || leftAlone.empty() ? "" : ". ") + leftAlone;
    if (!line.empty()) {
        say(line);
    }
}

void UnsavedWork::look() {
    takeOffers(keeper_.look().leftovers);
}

void UnsavedWork::takeOffers(std::vector<rescue::Leftover> others) {
    offers_ = std::move(others);
    std::copy_if(broughtBack_.begin(), broughtBack_.end(), std::back_inserter(offers_),
                 [](const rescue::Leftover& copy) { return !copy.stem.empty(); });
    std::stable_sort(offers_.begin(), offers_.end(),
                     [](const rescue::Leftover& one, const rescue::Leftover& other) {
                         return one.written > other.written;
                     });
}

void UnsavedWork::bringBack(const rescue::Leftover& offer) {
    const std::string when = whenWords(offer);
    if (const std::optional<rescue::Work> work = keeper_.bringBack(offer.stem)) {
        controller_.takeOver(with(*work, controller_.document().configuration()),
                             "Bring back unsaved work from " + when, numberOf(offer));
        say("Brought back unsaved work from " + when);
    } else {
        say("Unsaved work from " + when +
            " cannot be brought back: it is gone, or another editor has it");
    }
    look();
}

void UnsavedWork::discard(const rescue::Leftover& offer) {
    const std::string when = whenWords(offer);
    const std::string stem = offer.stem;
    const bool wasThere = removeCopy(stem);
    look();
    if (std::any_of(offers_.begin(), offers_.end(),
                    [&stem](const rescue::Leftover& copy) { return copy.stem == stem; })) {
        say("Unsaved work from " + when + " cannot be removed from " + place_->string());
    } else {
        say(wasThere ? "Discarded unsaved work from " + when
                     : "Unsaved work from " + when +
                           " cannot be discarded: it is gone, or another editor has it");
    }
}

/// Not before all of it is on file: what a preset cannot hold would be lost with the copy.
void UnsavedWork::discardWhatWasSaved() {
    const int number = controller_.state().broughtBack;
    if (number > 0 && !controller_.document().hasUnsavedWork()) {
        const std::string stem = broughtBack_.at(static_cast<std::size_t>(number) - 1).stem;
        if (!stem.empty()) {
            removeCopy(stem);
            look();
        }
    }
}

bool UnsavedWork::removeCopy(const std::string& stem) {
    const bool wasThere = keeper_.discard(stem);
    for (rescue::Leftover& copy : broughtBack_) {
        if (copy.stem == stem) {
            copy.stem.clear();
        }
    }
    tellWait();
    return wasThere;
}

int UnsavedWork::numberOf(const rescue::Leftover& offer) {
    auto place = std::find_if(broughtBack_.begin(), broughtBack_.end(),
                              [&](const auto& copy) { return copy.stem == offer.stem; });
    if (place == broughtBack_.end()) {
        place = broughtBack_.insert(place, offer);
    }
    return static_cast<int>(place - broughtBack_.begin()) + 1;
}

void UnsavedWork::tellWait() const {
    if (onWait) {
        onWait();
    }
}

void UnsavedWork::say(const std::string& line) {
    window_.status.setStringValue(line);
}

}  // namespace editor
