#include "platform/NotificationCentre.h"

#include <algorithm>
#include <utility>

namespace platform {

using Registration = NotificationCentre::Registration;

Registration::Registration(Registration&& other) noexcept
    : centre_(std::exchange(other.centre_, nullptr)), id_(other.id_) {}

Registration& Registration::operator=(Registration&& other) noexcept {
    std::swap(centre_, other.centre_);
    std::swap(id_, other.id_);
    return *this;
}

Registration::~Registration() {
    if (centre_ != nullptr) {
        centre_->remove(id_);
    }
}

Registration NotificationCentre::addObserver(std::string_view name, Observer observer) {
    entries_.push_back({++lastId_, std::string(name), std::move(observer)});
    return {this, lastId_};
}

void NotificationCentre::postNotification(std::string_view name, const void* object) {
    const int newestId = lastId_;
    ++posting_;
    for (const Entry& entry : entries_) {
        if (entry.id > newestId) {
            break;
        }
        if (entry.observer && entry.name == name) {
            const Observer observer = entry.observer;  // it may remove itself
            observer(object);
        }
    }
    --posting_;
    sweep();
}

void NotificationCentre::remove(int id) {
    const auto entry =
        std::find_if(entries_.begin(), entries_.end(), [id](const Entry& e) { return e.id == id; });
    if (entry != entries_.end()) {
        entry->observer = nullptr;
    }
    sweep();
}

void NotificationCentre::sweep() {
    if (posting_ == 0) {
        entries_.remove_if([](const Entry& entry) { return !entry.observer; });
    }
}

}  // namespace platform
