#pragma once

#include <functional>
#include <string>

#include "platform/ServiceState.h"

namespace platform::alsa {

/// Opens a device node as the sequencer is opened, and closes it. Returns 0, or the number of the
/// error. Asking makes the system load the sequencer where it can.
[[nodiscard]] int tryToOpen(const std::string& path);

/// Where the sequencer is, and how one finds out whether it can be had.
struct SequencerNode {
    std::string path = "/dev/snd/seq";
    std::function<int(const std::string& path)> open = tryToOpen;
};

/// What it means that the node cannot be opened, by the number of the error.
[[nodiscard]] ServiceState whereNodeFailsWith(int error);

/// Notices that a node may have come, or may be opened now by somebody who was not allowed to.
class NodeWatch {
public:
    explicit NodeWatch(std::string path);
    NodeWatch(const NodeWatch&) = delete;
    NodeWatch& operator=(const NodeWatch&) = delete;
    ~NodeWatch();

    /// Becomes readable when it is worth while to look. -1 where nothing can be watched.
    [[nodiscard]] int descriptor() const { return descriptor_; }
    /// Takes what made it readable. What happens from now on makes it readable again.
    void takeNews();

private:
    void watchFolders() const;

    const std::string path_;
    const int descriptor_;  // an inotify
};

}  // namespace platform::alsa
