#include "platform/alsa/SequencerNode.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace platform::alsa {

int tryToOpen(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0) {
        return errno;
    }
    close(descriptor);
    return 0;
}

ServiceState whereNodeFailsWith(int error) {
    using Obstacle = ServiceState::Obstacle;
    ServiceState state;
    switch (error) {
        case EACCES:
            state.obstacle = Obstacle::NotAllowed;
            state.group = "audio";
            state.remedy = "sudo usermod -aG audio $USER";
            break;
        case ENOENT:
        case ENODEV:  // the node is there, the module behind it is not
        case ENXIO:
            state.obstacle = Obstacle::NotLoaded;
            state.remedy = "sudo modprobe snd-seq";
            break;
        default:
            state.obstacle = Obstacle::Other;
            state.reason = std::generic_category().message(error);
            break;
    }
    return state;
}

NodeWatch::NodeWatch(std::string path)
    : path_(std::move(path)), descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    watchFolders();
}

NodeWatch::~NodeWatch() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void NodeWatch::takeNews() {
    std::array<char, 4096> news{};
    while (read(descriptor_, news.data(), news.size()) > 0) {
    }
    watchFolders();  // the node's own may be a new one
}

void NodeWatch::watchFolders() const {
    // Without any sound the node's folder is not there either. Rights are changed after a node was
    // made; a folder that goes takes its watch along.
    constexpr std::uint32_t comings = IN_CREATE | IN_MOVED_TO | IN_ATTRIB | IN_ONLYDIR;
    const std::filesystem::path folder = std::filesystem::path(path_).parent_path();
    inotify_add_watch(descriptor_, folder.parent_path().c_str(), comings);
    inotify_add_watch(descriptor_, folder.c_str(), comings);
}

}  // namespace platform::alsa
