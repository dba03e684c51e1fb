#include "midi/archivedClasses.h"

#include "midi/ZQMIDIEndpointDescriptor.h"
#include "midi/ZQMIDIManager.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"

namespace midi {

ArchivedClasses archivedClasses(ZQMIDIManager& manager) {
    return {
        {"ZQMIDIEndpoint",
         // The base decodes nothing.
         [&manager](const KeyedDecoder&) { return std::make_shared<ZQMIDIEndpoint>(manager); }},
        {"ZQMIDIEndpointDescriptor",
         [](const KeyedDecoder& coder) {
             return std::make_shared<ZQMIDIEndpointDescriptor>(coder);
         }},
        {"ZQMIDIRealDestination",
         [&manager](const KeyedDecoder& coder) {
             return borrowed<Archivable>(ZQMIDIRealDestination::initWithCoder(manager, coder));
         }},
        {"ZQMIDIRealSource",
         [&manager](const KeyedDecoder& coder) {
             return borrowed<Archivable>(ZQMIDIRealSource::initWithCoder(manager, coder));
         }},
        {"ZQMIDIVirtualDestination",
         [&manager](const KeyedDecoder& coder) {
             return std::make_shared<ZQMIDIVirtualDestination>(manager, coder);
         }},
        {"ZQMIDIVirtualSource",
         [&manager](const KeyedDecoder& coder) {
             return std::make_shared<ZQMIDIVirtualSource>(manager, coder);
         }},
    };
}

}  // namespace midi
