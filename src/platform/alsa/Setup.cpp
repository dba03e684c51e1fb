// Following what comes and goes, and telling the clients.

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/alsa/AlsaMidiService.h"

namespace platform::alsa {
namespace {

/// Takes what makes an eventfd or a timer readable.
void drain(int descriptor) {
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t taken = read(descriptor, &count, sizeof count);
}

void startTimer(int timer, Coalescer::Duration duration) {
    // Zero would stop it.
    const auto nanoseconds = std::max<std::chrono::nanoseconds::rep>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(duration).count(), 1);
    constexpr std::chrono::nanoseconds::rep inASecond = 1'000'000'000;
    itimerspec time{};
    time.it_value.tv_sec = nanoseconds / inASecond;
    time.it_value.tv_nsec = nanoseconds % inASecond;
    timerfd_settime(timer, 0, &time, nullptr);
}

}  // namespace

void AlsaMidiService::watch(int descriptor) const {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    epoll_ctl(watch_, EPOLL_CTL_ADD, descriptor, &event);
}

void AlsaMidiService::wakeUp() const {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeUp_, &one, sizeof one);
}

void AlsaMidiService::openSequencer(const Lock& lock) {
    hasLooked_ = true;
    if (nodeWatch_ == nullptr) {  // before the look, so that nothing can fall between
        nodeWatch_ = std::make_unique<NodeWatch>(node_.path);
        watch(nodeWatch_->descriptor());
    }
    int error = node_.open(node_.path);
    if (error == 0) {
        announcements_ = Announcements::open(programName_ + " (setup)", error);
    }
    const ServiceState obstacle =
        announcements_ != nullptr ? ServiceState() : whereNodeFailsWith(error);
    stateChangeDue_ = stateChangeDue_ || obstacle != obstacle_;
    obstacle_ = obstacle;
    if (announcements_ == nullptr) {
        return;
    }
    nodeWatch_.reset();
    watch(announcements_->descriptor());
    output_.prepare();
    follow(lock);
}

/// Lists what is there at this moment.
void AlsaMidiService::lookAfresh(const Lock& lock) {
    readAnnouncements(lock);
    if (announcements_ != nullptr) {
        follow(lock);
    } else {
        openSequencer(lock);
    }
}

ServiceState AlsaMidiService::state() {
    const Lock lock(mutex_);
    if (!hasLooked_) {
        openSequencer(lock);
        stateChangeDue_ = false;  // it is told right here
    }
    ServiceState state = obstacle_;
    state.hasDestination = std::any_of(
        list_.endpoints().begin(), list_.endpoints().end(), [&](const ListedEndpoint& endpoint) {
            return endpoint.port.direction == Direction::Destination &&
                   !hasGone(lock, endpoint.port) && !output_.isOffline(endpoint.handle);
        });
    return state;
}

void AlsaMidiService::readAnnouncements(const Lock& lock) {
    if (announcements_ == nullptr) {
        return;
    }
    readNews(lock);
    if (news_.isLost) {
        loseSequencer(lock);
    }
}

void AlsaMidiService::readAnnouncementsAhead(const Lock& lock) {
    if (announcements_ == nullptr) {
        return;
    }
    if (readNews(lock) || news_.isLost) {
        wakeUp();
    }
}

bool AlsaMidiService::readNews(const Lock&) {
    const bool hadChanged = std::exchange(news_.changed, false);
    announcements_->read(news_);
    const bool isNew = news_.changed;
    if (isNew) {
        coalescer_.note(std::chrono::steady_clock::now());
    }
    news_.changed = news_.changed || hadChanged;
    return isNew;
}

void AlsaMidiService::follow(const Lock& lock) {
    std::vector<MIDIEndpointRef> gone = endpointsOf(lock, Direction::Destination);
    const std::vector<PortDescription> present =
        announcements_ == nullptr ? std::vector<PortDescription>()
                                  : portsOf(announcements_->sequencer(), input_.client());
    const bool changed = list_.follow(present, news_.exited);
    news_ = {};
    coalescer_.clear();
    sources_ = endpointsOf(lock, Direction::Source);
    destinations_ = endpointsOf(lock, Direction::Destination);
    for (const MIDIEndpointRef destination : gone) {
        const bool isThere = std::find(destinations_.begin(), destinations_.end(), destination) !=
                             destinations_.end();
        if (!isThere) {
            output_.forget(destination);
        }
    }
    if (changed) {
        makeDue(lock);
    }
}

void AlsaMidiService::loseSequencer(const Lock& lock) {
    announcements_.reset();
    follow(lock);
    openSequencer(lock);
}

void AlsaMidiService::makeDue(const Lock&) {
    for (auto& [handle, client] : clients_) {
        client.changeDue = true;
    }
    stateChangeDue_ = true;
}

bool AlsaMidiService::hasGone(const Lock&, const PortDescription& port) const {
    return news_.isLost || news_.exited.count(port.address) != 0;
}

void AlsaMidiService::takeNewsOfOutput(const Lock& lock) {
    // Nothing is sent to a port that may be another one by now.
    const bool isUpToDate = !news_.changed && !news_.isLost;
    if (output_.takeNews(isUpToDate)) {
        makeDue(lock);
    }
}

void AlsaMidiService::notifyDue(Lock& lock) {
    std::vector<Client> due;
    for (auto& [handle, client] : clients_) {
        if (client.changeDue) {
            client.changeDue = false;
            due.push_back(client);
        }
    }
    const bool stateChangeDue = std::exchange(stateChangeDue_, false);
    lock.unlock();
    const MIDINotification message{kMIDIMsgSetupChanged, sizeof(MIDINotification)};
    for (const Client& client : due) {
        if (client.notify != nullptr) {
            client.notify(&message, client.refCon);
        }
    }
    if (stateChangeDue) {
        stateChanges().postNotification(MIDIServiceStateChanged, this);
    }
    lock.lock();
}

void AlsaMidiService::rescan() {
    Lock lock(mutex_);
    lookAfresh(lock);
    takeNewsOfOutput(lock);
    notifyDue(lock);
}

void AlsaMidiService::dispatch() {
    Lock lock(mutex_);
    drain(wakeUp_);
    drain(timer_);
    if (nodeWatch_ != nullptr) {
        nodeWatch_->takeNews();
        openSequencer(lock);
    }
    readAnnouncements(lock);
    if (const auto wait = coalescer_.dueIn(std::chrono::steady_clock::now())) {
        if (*wait > Coalescer::Duration::zero()) {
            startTimer(timer_, *wait);
        } else {
            follow(lock);
        }
    }
    takeNewsOfOutput(lock);
    notifyDue(lock);
    tellSettled(lock);
}

}  // namespace platform::alsa
