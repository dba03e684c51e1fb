#include "midi/archivedClasses.h"

#include "midi/ZQMIDIEndpointDescriptor.h"
#include "midi/ZQMIDIManager.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"

namespace midi {

archive::ArchivedClasses archivedClasses(ZQMIDIManager& manager) {
    return {
        {"ZQMIDIEndpoint",
         // The base decodes nothing.
         [&manager](const archive::KeyedDecoder&) {
             return std::make_shared<ZQMIDIEndpoint>(manager);
         }},
        {"ZQMIDIEndpointDescriptor",
         [](const archive::KeyedDecoder& coder) {
             return std::make_shared<ZQMIDIEndpointDescriptor>(coder);
         }},
        {"ZQMIDIRealDestination",
         [&manager](const archive::KeyedDecoder& coder) {
             return archive::borrowed<archive::Archivable>(
                 ZQMIDIRealDestination::initWithCoder(manager, coder));
         }},
        {"ZQMIDIRealSource",
         [&manager](const archive::KeyedDecoder& coder) {
             return archive::borrowed<archive::Archivable>(
                 ZQMIDIRealSource::initWithCoder(manager, coder));
         }},
        {"ZQMIDIVirtualDestination",
         [&manager](const archive::KeyedDecoder& coder) {
             return std::make_shared<ZQMIDIVirtualDestination>(manager, coder);
         }},
        {"ZQMIDIVirtualSource",
         [&manager](const archive::KeyedDecoder& coder) {
             return std::make_shared<ZQMIDIVirtualSource>(manager, coder);
         }},
    };
}

}  // namespace midi
