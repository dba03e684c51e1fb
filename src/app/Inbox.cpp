#include "app/Inbox.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <utility>

namespace app {

Inbox::Inbox(std::function<void(std::span<const std::uint8_t>)> take)
    : take_(std::move(take)),
      filled_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      notifier_(filled_, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { handOn(); });
}

Inbox::~Inbox() {
    notifier_.setEnabled(false);
    if (filled_ >= 0) {
        close(filled_);
    }
}

void Inbox::processMIDIPacketList(const platform::MIDIPacketList& list, const void* /*sender*/) {
    const std::lock_guard lock(mutex_);
    platform::forEachPacket(list, [this](std::uint64_t, std::span<const std::uint8_t> bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    });
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(filled_, &one, sizeof one);
}

void Inbox::handOn() {
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t taken = read(filled_, &count, sizeof count);
    std::vector<std::uint8_t> bytes;
    {
        const std::lock_guard lock(mutex_);
        bytes.swap(bytes_);
    }
    take_(bytes);
}

}  // namespace app
