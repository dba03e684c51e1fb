#include "platform/alsa/Account.h"

#include <algorithm>
#include <utility>

namespace platform::alsa {

using Trouble = Delivery::Trouble;

void Account::handOver(std::size_t bytes, Time::Point now) {
    if (hasAllLeft()) {
        lastTaken_ = now;
    }
    if (accepted_ == handedOver_) {
        lastAccepted_ = now;
    }
    handedOver_ += bytes;
    lastHandedOver_ = now;
    stayed_ = stayed_ && bytes == 0;
    if (bytes > 0) {
        allLeft_.reset();
    }
}

void Account::accept(std::span<const std::uint8_t> message, Time::Point now) {
    lastAccepted_ = now;
    const std::uint8_t status = message.front();
    const bool isSysEx = status == 0xF0 || status == 0xF7 || status < 0x80;
    const bool isLeftOut = !isSysEx && status < 0xF0 && status == lastStatus_;
    lastStatus_ = isSysEx ? std::uint8_t{0} : status;
    if (before_ > 0) {
        before_ -= std::min(before_, message.size());
        return;
    }
    // Running status is written out on the way here, so that it can be more than was handed over.
    accepted_ = std::min<std::uint64_t>(accepted_ + message.size(), handedOver_);
    pieces_.push_back({message.size(), message.size() - (isLeftOut ? 1 : 0)});
    bytesOfPieces_ += pieces_.back().bytes;
    bytesInKernel_ += pieces_.back().bytesInKernel;
}

void Account::see(std::size_t waiting, Time::Point now) {
    if (trouble_ != Trouble::None) {
        return;
    }
    const std::size_t taken = waiting_ - std::min(waiting_, waiting);
    if (accepted_ != acceptedWhenSeen_) {
        waitingOfOurs_ = waiting;
    } else {
        waitingOfOurs_ = std::min(waitingOfOurs_ - std::min(waitingOfOurs_, taken), waiting);
    }
    forgetWhatLeft();
    const std::uint64_t left = bytesLeft();
    if (taken > 0 || left > left_) {
        lastTaken_ = now;
    }
    left_ = std::max(left_, left);
    waiting_ = waiting;
    acceptedWhenSeen_ = accepted_;
    if (hasAllLeft()) {
        allLeft_ = allLeft_.value_or(now);
        stayed_ = now - *allLeft_ >= settleTime;
    }
}

void Account::forgetWhatLeft() {
    while (!pieces_.empty() && bytesInKernel_ - pieces_.front().bytesInKernel >= waitingOfOurs_) {
        bytesInKernel_ -= pieces_.front().bytesInKernel;
        bytesOfPieces_ -= pieces_.front().bytes;
        pieces_.pop_front();
    }
}

std::uint64_t Account::bytesLeft() const {
    constexpr std::size_t shortMessage = 3;
    std::size_t waiting = bytesOfPieces_;
    // Part of a SysEx has left, a short message has or has not.
    if (!pieces_.empty() && pieces_.front().bytes > shortMessage) {
        waiting -= bytesInKernel_ - std::min(bytesInKernel_, waitingOfOurs_);
    }
    return accepted_ - std::min<std::uint64_t>(accepted_, waiting);
}

void Account::pass(Time::Point now) {
    if (isSettled() || hasAllLeft()) {
        return;
    }
    const bool waitsHere = accepted_ < handedOver_;
    if (now - lastTaken_ >= longestStandstill ||
        (waitsHere && now - lastAccepted_ >= longestStandstill) ||
        now - lastHandedOver_ >= longestSettling) {
        end(Trouble::TakesNothing, now);
    }
}

void Account::end(Trouble trouble, Time::Point now, std::string program) {
    if (trouble_ != Trouble::None || stayed_) {
        return;
    }
    standstillAtEnd_ = hasAllLeft() ? Time::Duration::zero() : now - lastTaken_;
    trouble_ = trouble;
    program_ = std::move(program);
}

Delivery Account::at(Time::Point now) const {
    using std::chrono::milliseconds;
    Delivery delivery;
    delivery.handedOver = handedOver_;
    delivery.left = left_;
    delivery.trouble = trouble_;
    delivery.program = program_;
    const Time::Duration standstill = trouble_ != Trouble::None ? standstillAtEnd_
                                      : hasAllLeft()            ? Time::Duration::zero()
                                                                : now - lastTaken_;
    delivery.standstill = std::chrono::duration_cast<milliseconds>(standstill);
    delivery.isSettled = isSettled();
    return delivery;
}

}  // namespace platform::alsa
