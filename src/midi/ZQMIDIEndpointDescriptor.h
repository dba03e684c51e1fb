#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "midi/archive/keyedArchive.h"

namespace midi {

/// A name and a unique ID that stand for an endpoint in archives and look-ups.
class ZQMIDIEndpointDescriptor : public archive::Archivable {
public:
    ZQMIDIEndpointDescriptor(std::optional<std::string> name, std::int32_t uniqueID);
    explicit ZQMIDIEndpointDescriptor(const archive::KeyedDecoder& coder);

    [[nodiscard]] std::string_view archivedClassName() const override {
        return "ZQMIDIEndpointDescriptor";
    }
    void encodeWithCoder(archive::KeyedEncoder& coder) const override;

    [[nodiscard]] const std::optional<std::string>& name() const { return name_; }
    [[nodiscard]] std::int32_t uniqueID() const { return uniqueID_; }

private:
    std::optional<std::string> name_;
    std::int32_t uniqueID_;
};

}  // namespace midi
