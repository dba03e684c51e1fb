#pragma once

#include <string>

namespace platform {

/// What a MIDI service has to offer, at a plain look: nobody has to be its client for that.
struct ServiceState {
    /// What stands between this program and the service.
    enum class Obstacle {
        None,
        NotAllowed,  ///< this user may not open it
        NotLoaded,   ///< the system can have it, but does not have it now
        Other,
    };

    Obstacle obstacle = Obstacle::None;
    std::string remedy = {};  ///< NotAllowed, NotLoaded: the command that mends it
    std::string group = {};   ///< NotAllowed: its members are allowed
    std::string reason = {};  ///< Other: what the system says of it
    /// Other programs or devices offer a destination that takes data.
    bool hasDestination = false;

    bool operator==(const ServiceState&) const = default;
};

}  // namespace platform
