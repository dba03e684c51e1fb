#pragma once

// A Tormelk in software: what arrives is taken in as the real one would, and what is wrong with it
// is said in plain words. It knows nothing of where the bytes come from:
//
//     simulator::SimulatedController tormelk;
//     tormelk.onChange = [&] { show(tormelk.layers(), tormelk.log()); };
//     tormelk.receive(bytes);

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "config/layout.h"
#include "files/replaceFile.h"
#include "simulator/FirmwareReceiver.h"
#include "simulator/MessageAssembler.h"

namespace simulator {

/// A configuration message as it arrived, the first and the last byte included.
using LayerMessage = std::array<std::uint8_t, config::blockSize>;

struct LogEntry {
    std::uint64_t number;  ///< counts all entries ever made, from 1
    bool accepted;
    std::string text;   ///< what was taken in, or why it was refused
    std::size_t bytes;  ///< how many bytes of the message had come

    bool operator==(const LogEntry&) const = default;
};

/// To be used on one thread at a time.
class SimulatedController final : private MessageAssembler::Sink {
public:
    using Layers = std::array<std::optional<LayerMessage>, config::layerCount>;

    /// The log keeps this many entries; older ones are dropped.
    static constexpr std::size_t longestLog = 256;

    SimulatedController() = default;
    SimulatedController(const SimulatedController&) = delete;
    SimulatedController& operator=(const SimulatedController&) = delete;

    /// Takes bytes as they come: a message may be spread over several calls, and one call may hold
    /// several messages.
    void receive(std::span<const std::uint8_t> bytes);

    /// The configuration message received last for each layer; none before the first.
    [[nodiscard]] const Layers& layers() const { return layers_; }

    /// One entry for each message, the oldest first.
    [[nodiscard]] const std::deque<LogEntry>& log() const { return log_; }

    /// Between the message that sends it there and the reset at the end of an upload. Meanwhile it
    /// takes no configuration.
    [[nodiscard]] bool isInUpdateMode() const { return inUpdateMode_; }
    [[nodiscard]] const FirmwareReceiver& firmware() const { return firmware_; }
    /// Saves the blocks written to the flash.
    [[nodiscard]] files::ReplaceResult saveFirmware(const std::filesystem::path& path) const;

    /// From the moment at which that many more messages have come, refused ones included, it hears
    /// nothing any more, as with its cable pulled.
    void goOfflineAfter(std::size_t messages);
    void goOnline();
    [[nodiscard]] bool isOffline() const { return offline_; }

    /// Runs when it goes offline as it was told to, at the end of the `receive` in which it does.
    std::function<void()> onOffline;

    /// Runs at the end of each `receive` that has added to the log.
    std::function<void()> onChange;

private:
    void take(std::span<const std::uint8_t> message) override;
    void refuse(std::string reason, std::size_t bytes) override;
    void takeSysEx(std::span<const std::uint8_t> message);
    void takeConfiguration(std::span<const std::uint8_t> message);
    void takeFirmwareByte(std::span<const std::uint8_t> message);
    void beginUpdateMode(std::size_t bytes);
    void countMessage();
    void note(bool accepted, std::string text, std::size_t bytes);

    MessageAssembler assembler_{*this};
    Layers layers_;
    std::deque<LogEntry> log_;
    std::uint64_t entries_ = 0;

    FirmwareReceiver firmware_;
    bool inUpdateMode_ = false;
    bool refusesFirmware_ = false;  // firmware bytes came in vain, and that has been said
    bool offline_ = false;
    std::optional<std::size_t> messagesUntilOffline_;
};

}  // namespace simulator
