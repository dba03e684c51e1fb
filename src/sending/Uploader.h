#pragma once

// A firmware upload: connect, erase, write block by block, reset. The controller answers nothing.
// What is known is what has left this computer: the first byte that does not cuts the upload, and
// nothing of it goes out any more, also when the controller comes back; the loop and the pauses
// after frames and blocks go on to their end.
//
//     Uploader uploader(data, {service, [&] { return output; }, [&](Seconds s) { ... }});
//     Consignment upload = uploader.upload();   // returns after minutes

#include <chrono>
#include <cstdint>
#include <functional>
#include <span>

#include "sending/Consignment.h"
#include "sending/Way.h"
#include "sending/frames.h"

namespace sending {

/// What is uploaded, and what an upload leaves behind.
struct UploadData {
    ImageBuffer midi_program_hex{};  ///< what a smaller file leaves stays from a larger one
    std::uint32_t len = 0;           ///< size of the file measured last, accepted or not

    // The frames; their checksums are 0 but while they are sent
    Frame midi_connet = connectFrame;
    Frame midi_eraser = eraseFrame;
    Frame midi_write = writeFrame;
    Frame midi_rest = resetFrame;
    WriteBlock midi_program_hex_layer{};
    NibbleMessage midi_temp = nibbleMessage(0);

    std::uint8_t connet_bit = 0;
    std::uint8_t eraser_bit = 0;
    std::uint8_t program_bit = 0;
    std::uint8_t rest_bit = 0;
    /// Bytes of the image the loop has come to, sent or not. Wider than `len`: counted in whole
    /// blocks it passes it.
    std::uint64_t file_len_count = 0;
};

/// How many bytes the messages of an upload of so many blocks are.
[[nodiscard]] std::uint64_t bytesOfUpload(std::uint64_t blocks);

/// A shorter standstill is no news.
inline constexpr std::chrono::seconds standstillWorthTelling{2};

/// The receipt of an upload in blocks, counted when they are whole.
struct UploadBlocks {
    std::uint64_t all = 0;
    std::uint64_t handedOver = 0;
    std::uint64_t left = 0;  ///< as far as is known
    bool eraseLeft = false;  ///< the command to erase has left this computer
};
[[nodiscard]] UploadBlocks blocksOf(const Receipt& receipt);

class Uploader {
public:
    enum class Event {
        BlocksBegin,  ///< connect and erase are through
        BlockDone,
        Standstill,  ///< the output takes nothing for another second, or takes something again
        Cut,
    };
    using OnEvent = std::function<void(Event, const Receipt&)>;

    Uploader(UploadData& data, Way way, OnEvent onEvent = nullptr);

    [[nodiscard]] Consignment upload();

private:
    class Run;

    UploadData& data_;
    Way way_;
    OnEvent onEvent_;
};

}  // namespace sending
