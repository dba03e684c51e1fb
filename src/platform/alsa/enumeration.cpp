#include "platform/alsa/enumeration.h"

#include <unistd.h>

#include <algorithm>
#include <set>

namespace platform::alsa {
namespace {

/// The kernel's bus between programs, "Midi Through", always has this number.
constexpr int throughClient = 14;

bool canDo(unsigned int capabilities, unsigned int wanted) {
    return (capabilities & wanted) == wanted && (capabilities & SND_SEQ_PORT_CAP_NO_EXPORT) == 0;
}

PortDescription describe(const snd_seq_client_info_t& client, const snd_seq_port_info_t& port) {
    PortDescription description;
    description.address = {snd_seq_port_info_get_client(&port), snd_seq_port_info_get_port(&port)};
    description.clientName =
        snd_seq_client_info_get_name(const_cast<snd_seq_client_info_t*>(&client));
    description.portName = snd_seq_port_info_get_name(&port);
    description.card = snd_seq_client_info_get_card(&client);
    description.isOfDevice = snd_seq_client_info_get_type(&client) == SND_SEQ_KERNEL_CLIENT;
    description.isHardware = description.isOfDevice && description.card >= 0 &&
                             (snd_seq_port_info_get_type(&port) & SND_SEQ_PORT_TYPE_HARDWARE) != 0;
    description.isBus = description.isOfDevice && description.address.client == throughClient;
    if (const int process = snd_seq_client_info_get_pid(&client); process > 0) {
        description.ownerPID = process;
    }
    return description;
}

void addPortsOf(snd_seq_t& sequencer, const snd_seq_client_info_t& client,
                std::vector<PortDescription>& ports) {
    snd_seq_port_info_t* port = nullptr;
    snd_seq_port_info_alloca(&port);
    snd_seq_port_info_set_client(port, snd_seq_client_info_get_client(&client));
    snd_seq_port_info_set_port(port, -1);
    while (snd_seq_query_next_port(&sequencer, port) >= 0) {
        const unsigned int capabilities = snd_seq_port_info_get_capability(port);
        PortDescription description = describe(client, *port);
        if (canDo(capabilities, SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ)) {
            description.direction = Direction::Source;
            ports.push_back(description);
        }
        if (canDo(capabilities, SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE)) {
            description.direction = Direction::Destination;
            ports.push_back(description);
        }
    }
}

}  // namespace

std::vector<PortDescription> portsOf(snd_seq_t& sequencer, int leftOut) {
    std::vector<PortDescription> ports;
    snd_seq_client_info_t* client = nullptr;
    snd_seq_client_info_alloca(&client);
    snd_seq_client_info_set_client(client, -1);
    while (snd_seq_query_next_client(&sequencer, client) >= 0) {
        const int number = snd_seq_client_info_get_client(client);
        if (number != SND_SEQ_CLIENT_SYSTEM && number != leftOut) {
            addPortsOf(sequencer, *client, ports);
        }
    }
    return ports;
}

std::vector<std::string> programsConnectedTo(snd_seq_t& sequencer, const Address& port,
                                             Direction direction) {
    std::vector<std::string> names;
    std::set<int> seen;
    snd_seq_query_subscribe_t* query = nullptr;
    snd_seq_query_subscribe_alloca(&query);
    snd_seq_client_info_t* client = nullptr;
    snd_seq_client_info_alloca(&client);
    snd_seq_query_subscribe_set_client(query, port.client);
    snd_seq_query_subscribe_set_port(query, port.port);
    snd_seq_query_subscribe_set_type(
        query, direction == Direction::Source ? SND_SEQ_QUERY_SUBS_READ : SND_SEQ_QUERY_SUBS_WRITE);
    for (int index = 0; snd_seq_query_subscribe_set_index(query, index),
             snd_seq_query_port_subscribers(&sequencer, query) >= 0;
         ++index) {
        const int other = snd_seq_query_subscribe_get_addr(query)->client;
        const bool known = snd_seq_get_any_client_info(&sequencer, other, client) >= 0;
        if (known && snd_seq_client_info_get_type(client) == SND_SEQ_USER_CLIENT &&
            snd_seq_client_info_get_pid(client) != getpid() && seen.insert(other).second) {
            names.emplace_back(snd_seq_client_info_get_name(client));
        }
    }
    return names;
}

}  // namespace platform::alsa
