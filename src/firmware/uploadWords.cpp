#include "firmware/uploadWords.h"

#include <chrono>

#include "sending/Uploader.h"
#include "sending/pace.h"

namespace firmware {
namespace {

using sending::inWords;
using sending::Receipt;
using sending::Trouble;
using sending::UploadBlocks;

std::string ofAll(std::uint64_t blocks, std::uint64_t all) {
    return inWords(blocks) + " of " + inWords(all) + (all == 1 ? " block" : " blocks");
}

std::string all(const UploadBlocks& blocks) {
    switch (blocks.all) {
        case 0:
            return "The command to erase";
        case 1:
            return "The one block";
        default:
            return "All " + inWords(blocks.all) + " blocks";
    }
}

std::string allHandedOver(const UploadBlocks& blocks) {
    return all(blocks) + (blocks.all > 1 ? " were" : " was") + " handed over. ";
}

/// What has left, and what that means for the controller, around the reason.
std::string cutInWords(const Receipt& upload) {
    const UploadBlocks blocks = sending::blocksOf(upload);
    const bool isOfController =
        upload.trouble == Trouble::WentAway || upload.trouble == Trouble::TakesNothing;
    const std::string reason = ": " + reasonOf(upload) + ". ";
    const std::string its = isOfController ? "Its firmware " : "The controller's firmware ";
    if (upload.left == 0) {
        return "Nothing left this computer" + reason;
    }
    if (!blocks.eraseLeft) {
        return "Not one block left this computer" + reason;
    }
    if (blocks.left == blocks.all) {
        // Pulled out, or gone to start anew: what it took last was not seen.
        const bool isUnseen = upload.trouble == Trouble::WentAway;
        return all(blocks) + " left this computer" +
               (isUnseen ? ". Whether the reset at the end did is not known"
                         : ", but not the reset at the end") +
               reason + its + (blocks.all == 0 ? "may be erased. " : "may be incomplete. ");
    }
    if (blocks.left == 0) {
        return "Not one block left this computer" + reason + its + "may be erased. ";
    }
    return "Only " + ofAll(blocks.left, blocks.all) + " left this computer" + reason + its +
           "is incomplete. ";
}

std::string remedyFor(Trouble trouble) {
    switch (trouble) {
        case Trouble::Offline:
            return "Connect the controller and begin again at step 3.";
        case Trouble::WentAway:
            return "Connect it and begin again at step 3.";
        case Trouble::TakesNothing:
            return "Disconnect it, connect it again and begin again at step 3.";
        case Trouble::InUse:
            return "Close that program and begin again at step 3.";
        default:
            return "Begin again at step 3.";
    }
}

}  // namespace

std::string progressOf(const Receipt& upload) {
    if (upload.isCut()) {
        return outcomeOf(upload);
    }
    const UploadBlocks blocks = sending::blocksOf(upload);
    const auto standstill = std::chrono::floor<std::chrono::seconds>(upload.standstill);
    if (standstill >= sending::standstillWorthTelling) {
        return "The controller takes nothing since " + std::to_string(standstill.count()) +
               " s, block " + inWords(blocks.handedOver) + " of " + inWords(blocks.all);
    }
    const std::uint64_t percent = blocks.all == 0 ? 100 : blocks.handedOver * 100 / blocks.all;
    const sending::Seconds left = sending::timeOfBlocks(blocks.all - blocks.handedOver);
    return std::to_string(percent) + " %, block " + inWords(blocks.handedOver) + " of " +
           inWords(blocks.all) + ", " + inWords(left) + " left";
}

std::string outcomeOf(const Receipt& upload) {
    if (upload.isCut()) {
        return cutInWords(upload) + remedyFor(upload.trouble);
    }
    const UploadBlocks blocks = sending::blocksOf(upload);
    if (!upload.isSettled) {
        return allHandedOver(blocks) + "Waiting until the controller has taken everything.";
    }
    if (!upload.hasLeft()) {
        return allHandedOver(blocks) + "Whether the controller took everything is not known.";
    }
    if (blocks.all == 0) {
        return "The file was empty: the controller was told to erase its firmware, and nothing was "
               "put in its place. Begin again at step 3.";
    }
    if (upload.trouble == Trouble::WentAway) {
        return all(blocks) +
               " left this computer, then the controller went away. It does so when it starts "
               "anew. "
               "If it does not come back, begin again at step 3.";
    }
    return {};
}

std::string reasonOf(const Receipt& receipt) {
    switch (receipt.trouble) {
        case Trouble::NoOutput:
            return "no output is chosen";
        case Trouble::Offline:
            return "the output was offline";
        case Trouble::WentAway:
            return "the controller went away";
        case Trouble::TakesNothing:
            return "the controller takes nothing";
        case Trouble::InUse:
            return "the output is in use by " +
                   (receipt.program.empty() ? "another program" : receipt.program);
        case Trouble::Refused:
            return "the system did not take it";
        case Trouble::None:
            break;
    }
    return "the controller has not taken it yet";
}

}  // namespace firmware
