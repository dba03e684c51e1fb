#include "kernel/UsbMidiGadget.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "kernel/systemFiles.h"

namespace kernel {

namespace fs = std::filesystem;

namespace {

constexpr int controllers = 4;
/// The device's side has a sound card of its own; at these numbers it takes none that a host's card
/// would get.
constexpr int firstDeviceCard = 28;
const fs::path gadgets = "/sys/kernel/config/usb_gadget";

fs::path folderOf(int controller) {
    return gadgets / ("tormelk-" + std::to_string(controller));
}

/// Takes a controller that no other object has. The first one is left to the device in user space,
/// which can use no other.
int takeController() {
    for (int controller = controllers - 1; controller > 0; --controller) {
        if (fs::create_directory(folderOf(controller))) {
            return controller;
        }
    }
    throw std::runtime_error("all USB controllers are in use");
}

/// Keeps the sequencer from making clients for new devices for as long as it lives: the device's
/// own card must not show up among the ports of the host.
class NoNewClients {
public:
    NoNewClients() { writeText(switch_, "0"); }
    ~NoNewClients() {
        try {
            writeText(switch_, "1");
        } catch (const std::exception& failure) {
            ADD_FAILURE() << "New devices get no clients any more: " << failure.what();
        }
    }
    NoNewClients(const NoNewClients&) = delete;
    NoNewClients& operator=(const NoNewClients&) = delete;

private:
    fs::path switch_ = "/sys/bus/snd_seq/drivers_autoprobe";
};

}  // namespace

UsbMidiGadget::UsbMidiGadget(const Options& options)
    : controller_(takeController()), folder_(folderOf(controller_)) {
    setUp(options);
    for (int port = 0; port < options.ports; ++port) {
        received_.push_back(std::make_unique<ReceivedBytes>());
    }
}

UsbMidiGadget::~UsbMidiGadget() {
    try {
        unplug();
        for (const char* part :
             {"configs/c.1/midi.0", "configs/c.1", "functions/midi.0", "strings/0x409", ""}) {
            fs::remove((folder_ / part).lexically_normal());
        }
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "The USB device could not be taken away: " << failure.what();
    }
}

void UsbMidiGadget::setUp(const Options& options) const {
    writeText(folder_ / "idVendor", "0x1d6b");
    writeText(folder_ / "idProduct", "0x0104");
    writeText(folder_ / "max_speed", options.highSpeed ? "high-speed" : "full-speed");
    const fs::path texts = folder_ / "strings/0x409";
    fs::create_directory(texts);
    writeText(texts / "product", options.product);

    const fs::path function = folder_ / "functions/midi.0";
    fs::create_directory(function);
    writeText(function / "index", std::to_string(firstDeviceCard + controller_));
    writeText(function / "in_ports", std::to_string(options.ports));
    writeText(function / "out_ports", std::to_string(options.ports));
    // One packet each: a full one would otherwise lie there until the next one comes.
    writeText(function / "buflen", options.highSpeed ? "512" : "64");
    const fs::path configuration = folder_ / "configs/c.1";
    fs::create_directory(configuration);
    fs::create_directory_symlink(function, configuration / "midi.0");
}

void UsbMidiGadget::connect() const {
    // The host notices the device no earlier than 100 ms later: its card does get a client.
    const NoNewClients whileTheDeviceMakesItsCard;
    writeText(folder_ / "UDC", "dummy_udc." + std::to_string(controller_));
}

void UsbMidiGadget::disconnect() const {
    writeText(folder_ / "UDC", "\n");
}

void UsbMidiGadget::plug() {
    if (plugged_) {
        return;
    }
    connect();
    plugged_ = true;
    for (std::size_t port = 0; port < received_.size(); ++port) {
        collectors_.push_back(std::make_unique<RawMidiCollector>(rawDevice(static_cast<int>(port)),
                                                                 *received_[port]));
    }
    host().waitUntilThere();
}

void UsbMidiGadget::unplug() {
    if (!plugged_) {
        return;
    }
    disconnect();
    plugged_ = false;
    collectors_.clear();
    host().waitUntilGone();
}

ReceivedBytes& UsbMidiGadget::received(int port) {
    return *received_.at(static_cast<std::size_t>(port));
}

void UsbMidiGadget::send(const Bytes& bytes, int port) const {
    writeRawMidi(*openRawMidiOutput(rawDevice(port)), bytes);
}

std::string UsbMidiGadget::rawDevice(int port) const {
    return "hw:" + std::to_string(firstDeviceCard + controller_) + ",0," + std::to_string(port);
}

}  // namespace kernel
