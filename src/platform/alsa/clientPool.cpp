#include "platform/alsa/clientPool.h"

// The kernel's own description of the sequencer. It cannot stand beside the library's headers.
#include <sound/asequencer.h>
#include <sys/ioctl.h>

namespace platform::alsa {

std::optional<FillLevel> levelOfPool(int sequencer, int client) {
    snd_seq_client_pool pool{};
    pool.client = client;
    if (ioctl(sequencer, SNDRV_SEQ_IOCTL_GET_CLIENT_POOL, &pool) < 0 || pool.input_pool <= 0 ||
        pool.input_free < 0) {
        return std::nullopt;
    }
    return FillLevel{static_cast<std::size_t>(pool.input_free),
                     static_cast<std::size_t>(pool.input_pool)};
}

std::size_t cellsFor(std::size_t bytes) {
    constexpr std::size_t shortest = 3;  // fits into the event itself
    constexpr std::size_t cell = sizeof(snd_seq_event);
    return bytes <= shortest ? 1 : 1 + (bytes + cell - 1) / cell;
}

}  // namespace platform::alsa
