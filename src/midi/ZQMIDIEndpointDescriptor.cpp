#include "midi/ZQMIDIEndpointDescriptor.h"

#include <utility>

namespace midi {

ZQMIDIEndpointDescriptor::ZQMIDIEndpointDescriptor(std::optional<std::string> name,
                                                   std::int32_t uniqueID)
    : name_(std::move(name)), uniqueID_(uniqueID) {}

ZQMIDIEndpointDescriptor::ZQMIDIEndpointDescriptor(const archive::KeyedDecoder& coder)
    : name_(coder.decodeObject("name")), uniqueID_(coder.decodeInt32("uniqueID")) {}

void ZQMIDIEndpointDescriptor::encodeWithCoder(archive::KeyedEncoder& coder) const {
    coder.encodeObject("name", name_);
    coder.encodeInt32("uniqueID", uniqueID_);
}

}  // namespace midi
