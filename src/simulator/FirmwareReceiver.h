#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace simulator {

/// The part of a controller that runs in its update mode: puts frames together byte by byte, and
/// erases and writes the flash as they say. It goes by the wire alone and shares nothing with the
/// program that sends.
///
/// The order is connect, erase, blocks counted from 0, reset. A block that is refused leaves a gap,
/// so that every later one is refused, too, until the flash is erased again.
class FirmwareReceiver {
public:
    static constexpr std::size_t blockSize = 512;
    static constexpr std::size_t flashBlocks = 112;
    static constexpr std::size_t flashSize = flashBlocks * blockSize;

    /// What came of a frame, or of bytes that are none.
    struct Report {
        bool accepted;
        std::string text;
        std::size_t bytes;      ///< that the frame had until then
        bool restarts = false;  ///< the controller leaves its update mode
    };

    /// The update mode begins: a frame half there is forgotten, the flash is as it was.
    void begin();

    /// The next byte; a report where it completes something.
    [[nodiscard]] std::optional<Report> take(std::uint8_t byte);

    /// What was written since the flash was erased last: whole blocks.
    [[nodiscard]] std::span<const std::uint8_t> written() const {
        return std::span(flash_).first(blocks_ * blockSize);
    }
    [[nodiscard]] std::size_t blocks() const { return blocks_; }
    [[nodiscard]] std::size_t blocksRefused() const { return blocksRefused_; }
    /// Whether the flash was ever erased.
    [[nodiscard]] bool isErased() const { return erased_; }
    /// All of it; what is not written reads as FF.
    [[nodiscard]] std::span<const std::uint8_t> flash() const { return flash_; }

private:
    [[nodiscard]] std::optional<Report> beginAnew();
    [[nodiscard]] std::optional<Report> judgeCommand();
    [[nodiscard]] Report connect();
    [[nodiscard]] Report erase();
    [[nodiscard]] Report reset();
    [[nodiscard]] Report write();
    [[nodiscard]] std::string objectionToBlock() const;

    std::vector<std::uint8_t> flash_ = std::vector<std::uint8_t>(flashSize, 0xFF);
    std::size_t blocks_ = 0;
    std::size_t blocksRefused_ = 0;
    bool connected_ = false;
    bool erased_ = false;
    bool mayWrite_ = false;  // erased since the update mode began
    std::vector<std::uint8_t> frame_;
    bool passing_ = false;  // what comes up to the next frame has been refused already
};

}  // namespace simulator
