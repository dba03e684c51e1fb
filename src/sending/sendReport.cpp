#include "sending/sendReport.h"

#include "sending/send.h"

namespace sending {

namespace {

/// How much of a Send that was cut has left this computer. Of a controller that was pulled out that
/// is known but from the last look at it.
std::string knownIn(const Receipt& receipt) {
    const std::uint64_t layers = layersIn(receipt.left);
    return layers == 0 ? ": no whole layer is known to have left this computer"
                       : ": " + std::to_string(layers) + " of 4 layers " +
                             (layers == 1 ? "is" : "are") + " known to have left this computer";
}

/// How much of a Send that was cut can have reached a controller that is still there.
std::string reachIn(const Receipt& receipt) {
    const std::uint64_t layers = layersIn(receipt.left);
    if (receipt.left == 0) {
        return ": nothing was sent";
    }
    return layers == 0 ? ": not one whole layer reached it"
                       : ": at most " + std::to_string(layers) + " of 4 layers reached it";
}

std::string cutSend(const Receipt& receipt) {
    const std::string& name = receipt.output;
    const std::string user = receipt.program.empty() ? "another program" : receipt.program;
    switch (receipt.trouble) {
        case Trouble::WentAway:
            return name + " went away during the Send" + knownIn(receipt);
        case Trouble::TakesNothing:
            return name + (receipt.left == 0 ? " takes nothing" : " takes nothing any more") +
                   reachIn(receipt);
        case Trouble::InUse:
            return name + " is in use by " + user + reachIn(receipt);
        default:
            return "The system did not take the layers for " + name + reachIn(receipt);
    }
}

}  // namespace

std::string reportSend(const Receipt& receipt) {
    if (receipt.trouble == Trouble::NoOutput) {
        return "Nothing was sent: no output is chosen";
    }
    if (receipt.trouble == Trouble::Offline) {
        return "Nothing was sent: the output is offline";
    }
    if (receipt.isCut()) {
        return cutSend(receipt);
    }
    const std::string& name = receipt.output;
    if (!receipt.isSettled) {
        return "Sending to " + name + ": waiting until it has taken everything";
    }
    if (receipt.trouble != Trouble::None) {
        return name + " went away right after the Send: some of it may not have reached it";
    }
    return receipt.hasLeft()
               ? "Sent 4 layers to " + name
               : "Handed 4 layers over for " + name + ": whether it took everything is not known";
}

}  // namespace sending
