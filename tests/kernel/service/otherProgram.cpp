// Stands for another program with ports of its own:
//
//     other-program NAME PORT...
//
// A port is its name and what others can do with it: "out=read", "in=write", "both=read,write",
// "odd=hidden" (all of it, but not exported), "odd=half" (addressed only, no subscriptions);
// "in=write*250" is 250 of them, called "in 1" and so on. Prints "ready" and stays until it is
// killed; SIGUSR1 has it send a note, 90 3C 64, from its first port to all that are connected
// there. It reads nothing that comes in.

#include <alsa/asoundlib.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

unsigned int capabilitiesOf(const std::string& words) {
    constexpr unsigned int readable = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
    constexpr unsigned int writable = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
    if (words == "hidden") {
        return readable | writable | SND_SEQ_PORT_CAP_NO_EXPORT;
    }
    if (words == "half") {
        return SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_WRITE;
    }
    return (words.find("read") == std::string::npos ? 0 : readable) |
           (words.find("write") == std::string::npos ? 0 : writable);
}

bool addPort(snd_seq_t* sequencer, const std::string& name, unsigned int capabilities) {
    return snd_seq_create_simple_port(sequencer, name.c_str(), capabilities,
                                      SND_SEQ_PORT_TYPE_APPLICATION) >= 0;
}

bool addPorts(snd_seq_t* sequencer, const std::string& description) {
    const std::size_t equals = description.find('=');
    const std::size_t star = description.find('*');
    const std::string name = description.substr(0, equals);
    const unsigned int capabilities =
        capabilitiesOf(description.substr(equals + 1, star - equals - 1));
    if (star == std::string::npos) {
        return addPort(sequencer, name, capabilities);
    }
    const int count = std::stoi(description.substr(star + 1));
    for (int number = 1; number <= count; ++number) {
        if (!addPort(sequencer, name + " " + std::to_string(number), capabilities)) {
            return false;
        }
    }
    return true;
}

void playNote(snd_seq_t& sequencer) {
    snd_seq_event_t event{};
    event.type = SND_SEQ_EVENT_NOTEON;
    event.queue = SND_SEQ_QUEUE_DIRECT;
    event.dest = {SND_SEQ_ADDRESS_SUBSCRIBERS, SND_SEQ_ADDRESS_UNKNOWN};
    event.data.note.note = 60;
    event.data.note.velocity = 100;
    snd_seq_event_output_direct(&sequencer, &event);
}

int run(int count, char** arguments) {
    snd_seq_t* sequencer = nullptr;
    if (count < 2 || snd_seq_open(&sequencer, "hw", SND_SEQ_OPEN_DUPLEX, 0) < 0) {
        return 1;
    }
    snd_seq_set_client_name(sequencer, arguments[1]);
    for (int argument = 2; argument < count; ++argument) {
        if (!addPorts(sequencer, arguments[argument])) {
            return 1;
        }
    }
    sigset_t wanted;
    sigemptyset(&wanted);
    sigaddset(&wanted, SIGUSR1);
    sigprocmask(SIG_BLOCK, &wanted, nullptr);
    std::puts("ready");
    std::fflush(stdout);
    for (int signal = 0; sigwait(&wanted, &signal) == 0;) {
        playNote(*sequencer);
    }
    snd_seq_close(sequencer);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return run(count, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
