#include "sending/Consignment.h"

#include <algorithm>
#include <span>
#include <utility>

namespace sending {

using platform::Delivery;

struct Consignment::State {
    platform::MidiService& service;
    midi::ZQMIDIRealDestination* output = nullptr;
    platform::MIDIEndpointRef endpoint = 0;
    Receipt receipt;
    std::uint64_t due = 0;  // bytes that should have been handed over by now
    bool isWatched = false;
    std::function<void()> then;

    void settle(Trouble trouble) {
        receipt.trouble = trouble;
        receipt.isSettled = true;
    }
    [[nodiscard]] bool isThere() const {
        return output->midiEndpointRef() == endpoint && output->isOnline();
    }
    [[nodiscard]] Trouble troubleOf(const Delivery& delivery) const;
    void take(const Delivery& delivery);
};

Trouble Consignment::State::troubleOf(const Delivery& delivery) const {
    switch (delivery.trouble) {
        case Delivery::Trouble::WentAway:
            return Trouble::WentAway;
        case Delivery::Trouble::TakesNothing:
            return Trouble::TakesNothing;
        case Delivery::Trouble::InUse:
            return Trouble::InUse;
        case Delivery::Trouble::None:
            break;
    }
    if (delivery.handedOver >= due) {
        return Trouble::None;
    }
    return isThere() ? Trouble::Refused : Trouble::WentAway;
}

void Consignment::State::take(const Delivery& delivery) {
    if (isWatched && delivery.handedOver != due) {
        // The account is another's by now. What was not known to have arrived never will be.
        receipt.isSettled = true;
        receipt.left = std::min(receipt.left, receipt.bytes - 1);
        return;
    }
    receipt.handedOver = std::min(delivery.handedOver, due);
    receipt.left = std::min(delivery.left, due);
    receipt.standstill = delivery.standstill;
    receipt.program = delivery.program;
    receipt.trouble = troubleOf(delivery);
    receipt.isSettled =
        receipt.trouble != Trouble::None || (due == receipt.bytes && delivery.isSettled);
}

Consignment::Consignment(platform::MidiService& service, std::uint64_t bytes,
                         midi::ZQMIDIRealDestination* output)
    : state_(std::make_shared<State>(State{service, output, 0, {}, 0, false, {}})) {
    state_->receipt.bytes = bytes;
    if (output == nullptr) {
        state_->settle(Trouble::NoOutput);
        return;
    }
    state_->receipt.output = output->displayName();
    if (!output->isOnline()) {
        state_->settle(Trouble::Offline);
        return;
    }
    state_->endpoint = output->midiEndpointRef();
    service.watchDelivery(state_->endpoint, {});
    service.beginDelivery(state_->endpoint);
}

bool Consignment::goesTo(const midi::ZQMIDIRealDestination* output) const {
    return output != nullptr && output == state_->output && state_->isThere();
}

void Consignment::handOver(midi::ZQMIDIRealDestination* output,
                           const platform::MIDIPacketList& list, const void* sender) {
    if (output != nullptr) {
        output->processMIDIPacketList(list, sender);
    }
    platform::forEachPacket(list, [this](std::uint64_t, std::span<const std::uint8_t> bytes) {
        state_->due += bytes.size();
    });
}

void Consignment::cut(Trouble trouble) {
    look();
    if (state_->endpoint != 0) {
        state_->service.abandonDelivery(state_->endpoint);
        const std::uint64_t left = state_->service.delivery(state_->endpoint).left;
        state_->receipt.left = std::max(state_->receipt.left, std::min(left, state_->due));
    }
    if (state_->receipt.trouble == Trouble::None) {
        state_->settle(trouble);
    }
}

const Receipt& Consignment::look() {
    if (!state_->receipt.isSettled) {
        state_->take(state_->service.delivery(state_->endpoint));
    }
    return state_->receipt;
}

const Receipt& Consignment::receipt() const {
    return state_->receipt;
}

void Consignment::whenSettled(std::function<void()> then) {
    state_->then = std::move(then);
    if (state_->receipt.isSettled || state_->isWatched) {
        return;
    }
    state_->isWatched = true;
    state_->service.watchDelivery(
        state_->endpoint, [weak = std::weak_ptr<State>(state_)](const Delivery& delivery) {
            const std::shared_ptr<State> state = weak.lock();
            if (state == nullptr || state->receipt.isSettled) {
                return;
            }
            state->take(delivery);
            state->receipt.isSettled = true;
            if (const std::function<void()> told = std::exchange(state->then, nullptr)) {
                told();
            }
        });
}

}  // namespace sending
