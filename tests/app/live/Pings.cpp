#include "app/live/Pings.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace live {

namespace {

constexpr auto betweenPings = std::chrono::milliseconds(20);

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

}  // namespace

Pings::Pings(xcb_window_t window) : connection_(::xcb_connect(nullptr, nullptr)), window_(window) {
    if (::xcb_connection_has_error(connection_) != 0) {
        throw std::runtime_error("there is no display");
    }
    root_ = ::xcb_setup_roots_iterator(::xcb_get_setup(connection_)).data->root;
    protocols_ = atom("WM_PROTOCOLS");
    pingProtocol_ = atom("_NET_WM_PING");
    // Answers go to the root window, to whom it may concern.
    const std::uint32_t events =
        XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    ::xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &events);
    ::xcb_flush(connection_);
    thread_ = std::thread([this] { run(); });
}

Pings::~Pings() {
    stop_ = true;
    thread_.join();
    ::xcb_disconnect(connection_);
}

Pings::Milliseconds Pings::longestWait() const {
    const std::lock_guard lock(mutex_);
    const Clock::duration waiting = due_ ? Clock::now() - asked_ : Clock::duration::zero();
    return std::chrono::duration_cast<Milliseconds>(std::max(longest_, waiting));
}

void Pings::run() {
    while (!stop_) {
        ping();
        std::this_thread::sleep_for(betweenPings);
        takeAnswers();
    }
}

void Pings::ping() {
    {
        const std::lock_guard lock(mutex_);
        if (due_) {
            return;
        }
        due_ = true;
        asked_ = Clock::now();
    }
    // The display's clock is the system's, in milliseconds.
    const auto now = std::chrono::duration_cast<Milliseconds>(Clock::now().time_since_epoch());
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window_;
    message.type = protocols_;
    message.data.data32[0] = pingProtocol_;
    message.data.data32[1] = static_cast<std::uint32_t>(now.count());
    message.data.data32[2] = window_;
    char bytes[32] = {};
    std::memcpy(bytes, &message, sizeof message);
    ::xcb_send_event(connection_, 0, window_, XCB_EVENT_MASK_NO_EVENT, bytes);
    ::xcb_flush(connection_);
}

void Pings::takeAnswers() {
    while (
        const std::unique_ptr<xcb_generic_event_t, Free> event{::xcb_poll_for_event(connection_)}) {
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE) {
            continue;
        }
        xcb_client_message_event_t message{};
        std::memcpy(&message, event.get(), sizeof message);
        const bool isOurs = message.type == protocols_ && message.data.data32[0] == pingProtocol_ &&
                            message.data.data32[2] == window_;
        const std::lock_guard lock(mutex_);
        if (isOurs && due_) {
            due_ = false;
            longest_ = std::max(longest_, Clock::now() - asked_);
            ++answers_;
        }
    }
}

xcb_atom_t Pings::atom(const char* name) const {
    const auto cookie =
        ::xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply{
        ::xcb_intern_atom_reply(connection_, cookie, nullptr)};
    return reply ? reply->atom : 0;
}

}  // namespace live
