#include "sending/send.h"

#include "config/sendPause.h"
#include "config/sysex.h"

namespace sending {

namespace {

/// Keeps an output open for as long as it lives.
class Announced {
public:
    explicit Announced(midi::ZQMIDIRealDestination& output) : output_(output) {
        output_.addSender(this);
    }
    Announced(const Announced&) = delete;
    Announced& operator=(const Announced&) = delete;
    ~Announced() { output_.removeSender(this); }

private:
    midi::ZQMIDIRealDestination& output_;
};

}  // namespace

Consignment send(const config::Image& image, const Way& way) {
    midi::ZQMIDIRealDestination* const output = way.output();
    Consignment layers(way.service, config::imageSize, output);
    if (layers.receipt().trouble != Trouble::None) {
        return layers;
    }
    const Announced announced(*output);
    for (int layer = 0; layer < config::layerCount; ++layer) {
        const platform::MIDIPacketListPtr list =
            platform::makeOnePacketList(config::layerBlock(image, layer));
        layers.handOver(way.output(), *list, &announced);
        way.pause(config::pauseAfterBlock);
    }
    layers.look();
    return layers;
}

Consignment sendMessage(std::span<const std::uint8_t> message, Seconds pause, const Way& way) {
    midi::ZQMIDIRealDestination* const output = way.output();
    Consignment sent(way.service, message.size(), output);
    if (sent.receipt().trouble != Trouble::None) {
        return sent;
    }
    const Announced announced(*output);
    const platform::MIDIPacketListPtr list = platform::makeOnePacketList(message);
    sent.handOver(output, *list, &announced);
    way.pause(pause);
    sent.look();
    return sent;
}

}  // namespace sending
