// The thread that gives subscriptions back, and looks whether a destination takes data again.

#include <pthread.h>

#include <algorithm>
#include <csignal>
#include <utility>

#include "platform/alsa/Output.h"

namespace platform::alsa {
namespace {

using std::chrono::milliseconds;

/// Enough for one destination in use while another is given back.
constexpr std::size_t mostSpares = 2;
/// How often a destination that took nothing is looked at.
constexpr milliseconds lookInterval{250};
/// Breaks into the kernel's waiting for a dead device. Nothing else uses this signal.
const int wakeUpSignal = SIGRTMAX - 3;

void ignoreSignal(int) {}

/// Sees to it that the signal breaks in without ending the program.
void makeSignalHarmless() {
    struct sigaction action {};
    action.sa_handler = ignoreSignal;
    sigemptyset(&action.sa_mask);
    sigaction(wakeUpSignal, &action, nullptr);
}

}  // namespace

void Output::startWorker(const Lock&) {
    if (!worker_.joinable()) {
        worker_ = std::thread([this] { work(); });
    }
}

std::unique_ptr<Sender> Output::takeSpare(const Lock&) {
    if (spares_.empty()) {
        return nullptr;
    }
    std::unique_ptr<Sender> spare = std::move(spares_.back());
    spares_.pop_back();
    return spare;
}

std::unique_ptr<Sender> Output::spareOrNew() {
    std::unique_ptr<Sender> spare;
    {
        const Lock lock(mutex_);
        spare = takeSpare(lock);
    }
    return spare != nullptr ? std::move(spare) : Sender::open(clientName_);
}

void Output::queueCurrent(const Lock&) {
    if (current_ != nullptr) {
        queue_.push_back(std::move(current_));
        changed_.notify_all();
    }
}

void Output::work() {
    Lock lock(mutex_);
    for (;;) {
        if (!queue_.empty()) {
            giveBackNext(lock);
            continue;
        }
        if (ending_) {
            break;
        }
        const bool mayIdle = current_ != nullptr && !current_->isBusy;
        if (mayIdle && std::chrono::steady_clock::now() - current_->lastUsed >= idleTime) {
            queueCurrent(lock);
        } else if (!notTaking_.empty()) {
            changed_.wait_for(lock, lookInterval);
            lookAtStalled(lock);
        } else if (mayIdle) {
            changed_.wait_until(lock, current_->lastUsed + idleTime);
        } else {
            changed_.wait(lock);
        }
    }
    workerEnded_ = true;
    changed_.notify_all();
}

void Output::giveBackNext(Lock& lock) {
    std::unique_ptr<Lease> lease = std::move(queue_.front());
    queue_.pop_front();
    beingGivenBack_ = lease->to.handle;
    lock.unlock();
    lease->sender->unsubscribe();
    lock.lock();
    beingGivenBack_ = 0;
    if (spares_.size() < mostSpares) {
        spares_.push_back(std::move(lease->sender));
    }
    changed_.notify_all();
    lock.unlock();
    lease.reset();  // closes the client that is too many
    lock.lock();
}

void Output::lookAtStalled(Lock& lock) {
    std::vector<MIDIEndpointRef> takeAgain;
    for (std::unique_ptr<Lease>& lease : stalled_) {
        const std::optional<FillLevel> level = lease->room.level();
        if (level && level->room > lease->roomWhenStalled) {
            takeAgain.push_back(lease->to.handle);
            lease->isStalled = false;
            lease->lastUsed = std::chrono::steady_clock::now();
            (current_ == nullptr ? current_ : queue_.emplace_back()) = std::move(lease);
        }
    }
    stalled_.erase(std::remove(stalled_.begin(), stalled_.end(), nullptr), stalled_.end());
    const std::vector<Destination> held = held_;
    for (const Destination& destination : held) {
        if (isFreeAgain(lock, destination)) {
            takeAgain.push_back(destination.handle);
            held_.erase(
                std::remove_if(held_.begin(), held_.end(),
                               [&](const auto& h) { return h.handle == destination.handle; }),
                held_.end());
        }
    }
    for (const MIDIEndpointRef handle : takeAgain) {
        notTaking_.erase(handle);
    }
    lock.unlock();
    for (const MIDIEndpointRef handle : takeAgain) {
        onTaking_(handle, true);
    }
    lock.lock();
}

bool Output::isFreeAgain(Lock& lock, const Destination& held) {
    lock.unlock();
    std::unique_ptr<Sender> sender = spareOrNew();
    const bool free = sender != nullptr && sender->subscribe(held.port.address, false) == 0;
    if (free) {
        sender->unsubscribe();
    }
    lock.lock();
    if (sender != nullptr) {
        spares_.push_back(std::move(sender));
    }
    return free;
}

void Output::end() {
    Lock lock(mutex_);
    const bool someAreStalled = !stalled_.empty();
    ending_ = true;
    // A message that another thread is sending has its own limit.
    changed_.wait_for(lock, RoomKeeper::longestWait,
                      [&] { return current_ == nullptr || !current_->isBusy; });
    queueCurrent(lock);
    for (std::unique_ptr<Lease>& lease : stalled_) {
        queue_.push_back(std::move(lease));
    }
    stalled_.clear();
    held_.clear();
    changed_.notify_all();
    if (!worker_.joinable()) {
        return;
    }
    const auto hasEnded = [this] { return workerEnded_; };
    const std::chrono::milliseconds patience =
        someAreStalled ? milliseconds(100) : milliseconds(longestFarewell);
    if (!changed_.wait_for(lock, patience, hasEnded)) {
        makeSignalHarmless();
        do {
            pthread_kill(worker_.native_handle(), wakeUpSignal);
        } while (!changed_.wait_for(lock, milliseconds(20), hasEnded));
    }
    lock.unlock();
    worker_.join();
}

}  // namespace platform::alsa
