#include "platform/alsa/Announcements.h"

#include <cerrno>

namespace platform::alsa {

void Announcements::News::add(const snd_seq_event_t& event) {
    switch (event.type) {
        case SND_SEQ_EVENT_PORT_EXIT:
            exited.insert({event.data.addr.client, event.data.addr.port});
            changed = true;
            break;
        case SND_SEQ_EVENT_PORT_START:
        case SND_SEQ_EVENT_PORT_CHANGE:
        case SND_SEQ_EVENT_CLIENT_CHANGE:
        case SND_SEQ_EVENT_CLIENT_EXIT:
            changed = true;
            break;
        default:
            // A client that starts has no ports yet, and may still get its name.
            break;
    }
}

std::unique_ptr<Announcements> Announcements::open(const std::string& name, int& error) {
    Sequencer sequencer = openSequencer(name, SND_SEQ_OPEN_DUPLEX, &error);
    if (sequencer == nullptr) {
        return nullptr;
    }
    snd_seq_set_client_pool_input(sequencer.get(), largestInputPool);
    const int port = createHiddenPort(*sequencer, "Announcements", SND_SEQ_PORT_CAP_WRITE);
    const int connected = port < 0
                              ? port
                              : snd_seq_connect_from(sequencer.get(), port, SND_SEQ_CLIENT_SYSTEM,
                                                     SND_SEQ_PORT_SYSTEM_ANNOUNCE);
    if (connected < 0) {
        error = -connected;
        return nullptr;
    }
    return std::unique_ptr<Announcements>(new Announcements(std::move(sequencer)));
}

void Announcements::read(News& news) {
    for (;;) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(sequencer_.get(), &event);
        if (result >= 0) {
            if (event != nullptr) {
                news.add(*event);
            }
        } else if (result == -ENOSPC) {
            news.changed = true;  // the kernel has thrown away what it had kept
        } else if (result != -EINTR) {
            news.isLost = news.isLost || result != -EAGAIN;
            return;
        }
    }
}

}  // namespace platform::alsa
