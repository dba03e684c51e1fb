#include "kernel/UserSpaceMidiDevice.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/usb/ch9.h>
#include <linux/usb/gadgetfs.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <thread>

#include "files/FileDescriptor.h"
#include "kernel/systemFiles.h"
#include "kernel/usbMidiDescriptors.h"

namespace kernel {

namespace {

using files::FileDescriptor;
using Clock = std::chrono::steady_clock;

const std::string controllerFile = "/dev/gadget/dummy_udc";
const std::string bulkOutFile = "/dev/gadget/ep2out-bulk";
const std::string bulkInFile = "/dev/gadget/ep1in-bulk";

FileDescriptor opened(const std::string& file) {
    FileDescriptor descriptor(open(file.c_str(), O_RDWR | O_CLOEXEC));
    if (!descriptor.isOpen()) {
        throw SystemFailure("opening " + file, errno);
    }
    return descriptor;
}

void writeAll(int descriptor, const Bytes& bytes, const std::string& what) {
    if (write(descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        throw SystemFailure(what, errno);
    }
}

/// A four-byte number in front tells the kernel how the descriptors behind it are laid out.
Bytes tagged(std::uint8_t number, std::initializer_list<Bytes> descriptors) {
    Bytes bytes{number, 0, 0, 0};
    for (const Bytes& descriptor : descriptors) {
        bytes.insert(bytes.end(), descriptor.begin(), descriptor.end());
    }
    return bytes;
}

bool asksForString(const usb_ctrlrequest& request) {
    return request.bRequestType == USB_DIR_IN && request.bRequest == USB_REQ_GET_DESCRIPTOR &&
           (request.wValue >> 8) == USB_DT_STRING;
}

bool setsConfiguration(const usb_ctrlrequest& request) {
    return request.bRequestType == USB_DIR_OUT && request.bRequest == USB_REQ_SET_CONFIGURATION;
}

/// Transferring in the direction that was not asked for is how a request is refused.
void refuse(int controller, const usb_ctrlrequest& request) {
    std::uint8_t none = 0;
    [[maybe_unused]] const ssize_t refused = (request.bRequestType & USB_DIR_IN) != 0
                                                 ? read(controller, &none, 0)
                                                 : write(controller, &none, 0);
}

/// As long as it lives, SIGUSR1 does nothing but interrupt the thread it is sent to. A thread that
/// waits for data cannot be ended otherwise: the kernel would wait for it before it pulls the plug.
class Interruptible {
public:
    Interruptible() {
        struct sigaction nothing {};
        nothing.sa_handler = [](int) {};
        sigaction(SIGUSR1, &nothing, &before_);
    }
    ~Interruptible() { sigaction(SIGUSR1, &before_, nullptr); }
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;

private:
    struct sigaction before_ {};
};

}  // namespace

/// One time between plugging and unplugging: the files and threads that it takes.
class UserSpaceMidiDevice::Connection {
public:
    /// Plugs the device.
    explicit Connection(UserSpaceMidiDevice& device);
    /// Unplugs it.
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

private:
    void endData();
    void answerRequests();
    void answer(const usb_ctrlrequest& request);
    [[nodiscard]] bool configure();
    void takeData();
    /// Returns how long the transfer takes at the device's rate.
    std::chrono::microseconds keep(const Bytes& transfer);
    [[nodiscard]] Bytes stringNumber(std::size_t number) const;
    [[nodiscard]] bool waitUntilMayTake(Clock::time_point earliest);

    UserSpaceMidiDevice& device_;
    FileDescriptor controller_;
    FileDescriptor wake_;
    FileDescriptor bulkOut_{-1};
    FileDescriptor bulkIn_{-1};
    bool ending_ = false;
    std::atomic<bool> dataEnded_ = false;
    Interruptible interruptible_;
    std::thread requests_;
    std::thread data_;
};

UserSpaceMidiDevice::Connection::Connection(UserSpaceMidiDevice& device)
    : device_(device), controller_(opened(controllerFile)), wake_(eventfd(0, EFD_CLOEXEC)) {
    const int ports = static_cast<int>(device.received_.size());
    writeAll(controller_.get(), tagged(0, {configurationDescriptor(ports), deviceDescriptor()}),
             "plugging a device");
    requests_ = std::thread([this] { answerRequests(); });
}

UserSpaceMidiDevice::Connection::~Connection() {
    {
        const std::lock_guard lock(device_.mutex_);
        ending_ = true;
    }
    device_.changed_.notify_all();
    eventfd_write(wake_.get(), 1);
    requests_.join();
    endData();
    // This is what pulls the plug.
    (void)controller_.close();
}

void UserSpaceMidiDevice::Connection::endData() {
    if (!data_.joinable()) {
        return;
    }
    // The thread may be about to read when the signal comes: so it gets more than one.
    while (!dataEnded_) {
        pthread_kill(data_.native_handle(), SIGUSR1);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    data_.join();
}

void UserSpaceMidiDevice::Connection::answerRequests() {
    std::array<pollfd, 2> files{{{controller_.get(), POLLIN, 0}, {wake_.get(), POLLIN, 0}}};
    for (;;) {
        poll(files.data(), files.size(), -1);
        if (files[1].revents != 0) {
            return;
        }
        usb_gadgetfs_event event{};
        if (read(controller_.get(), &event, sizeof event) != sizeof event) {
            return;
        }
        if (event.type == GADGETFS_SETUP) {
            answer(event.u.setup);
        }
    }
}

void UserSpaceMidiDevice::Connection::answer(const usb_ctrlrequest& request) {
    // A transfer fails when the host has given up the request meanwhile; it asks again if it still
    // wants to know.
    [[maybe_unused]] ssize_t done = 0;
    if (asksForString(request)) {
        const Bytes text = stringNumber(request.wValue & 0xFFU);
        const std::size_t size = std::min<std::size_t>(text.size(), request.wLength);
        done = write(controller_.get(), text.data(), size);
    } else if (setsConfiguration(request) && configure()) {
        // Reading nothing says that it is done.
        std::uint8_t none = 0;
        done = read(controller_.get(), &none, 0);
    } else {
        refuse(controller_.get(), request);
    }
}

Bytes UserSpaceMidiDevice::Connection::stringNumber(std::size_t number) const {
    const Options& options = device_.options_;
    if (number == 0) {
        return languagesDescriptor();
    }
    if (number == productString) {
        return stringDescriptor(options.product);
    }
    const std::size_t port = number - firstPortString;
    return stringDescriptor(port < options.portNames.size() ? options.portNames[port] : "");
}

bool UserSpaceMidiDevice::Connection::configure() {
    if (data_.joinable()) {
        return true;
    }
    try {
        bulkOut_ = opened(bulkOutFile);
        writeAll(bulkOut_.get(), tagged(1, {endpointDescriptor(bulkOutAddress)}),
                 "setting up the endpoint that takes data");
        bulkIn_ = opened(bulkInFile);
        writeAll(bulkIn_.get(), tagged(1, {endpointDescriptor(bulkInAddress)}),
                 "setting up the endpoint that sends data");
    } catch (const SystemFailure& failure) {
        ADD_FAILURE() << "The USB device does not work: " << failure.what();
        return false;
    }
    data_ = std::thread([this] { takeData(); });
    return true;
}

bool UserSpaceMidiDevice::Connection::waitUntilMayTake(Clock::time_point earliest) {
    std::unique_lock lock(device_.mutex_);
    device_.changed_.wait_until(lock, earliest, [this] { return ending_; });
    device_.changed_.wait(lock, [this] { return ending_ || device_.taking_; });
    return !ending_;
}

void UserSpaceMidiDevice::Connection::takeData() {
    Clock::time_point earliest = Clock::now();
    Bytes transfer(bulkPacketSize);
    while (waitUntilMayTake(earliest)) {
        const ssize_t size = read(bulkOut_.get(), transfer.data(), transfer.size());
        if (size < 0) {
            break;
        }
        const auto taken = keep({transfer.begin(), transfer.begin() + size});
        earliest = std::max(earliest, Clock::now()) + taken;
    }
    dataEnded_ = true;
}

std::chrono::microseconds UserSpaceMidiDevice::Connection::keep(const Bytes& transfer) {
    std::size_t size = 0;
    for (const UsbMidiEvent& event : usbMidiEvents(transfer)) {
        device_.received(event.port).add(event.bytes);
        size += event.bytes.size();
    }
    const int rate = device_.options_.bytesPerSecond;
    return rate > 0 ? std::chrono::microseconds(1'000'000 * size / static_cast<std::size_t>(rate))
                    : std::chrono::microseconds(0);
}

UserSpaceMidiDevice::UserSpaceMidiDevice(Options options) : options_(std::move(options)) {
    for (std::size_t port = 0; port < options_.portNames.size(); ++port) {
        received_.push_back(std::make_unique<ReceivedBytes>());
    }
}

UserSpaceMidiDevice::~UserSpaceMidiDevice() {
    try {
        unplug();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "The USB device could not be taken away: " << failure.what();
    }
}

void UserSpaceMidiDevice::plug() {
    if (!connection_) {
        connection_ = std::make_unique<Connection>(*this);
        host().waitUntilThere();
    }
}

void UserSpaceMidiDevice::unplug() {
    if (connection_) {
        connection_.reset();
        host().waitUntilGone();
    }
}

void UserSpaceMidiDevice::stopTaking() {
    const std::lock_guard lock(mutex_);
    taking_ = false;
}

void UserSpaceMidiDevice::goOnTaking() {
    {
        const std::lock_guard lock(mutex_);
        taking_ = true;
    }
    changed_.notify_all();
}

ReceivedBytes& UserSpaceMidiDevice::received(int port) {
    return *received_.at(static_cast<std::size_t>(port));
}

}  // namespace kernel
