// What a sender is told became of what it sent: all of it is taken at once, or none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Account = platform::Delivery;
using Trouble = Account::Trouble;

class Accounts : public ::testing::Test {
protected:
    void SetUp() override {
        MIDIClientRef client = 0;
        service_.MIDIClientCreate(
            "client", [](const MIDINotification*, void*) {}, nullptr, &client);
        service_.MIDIOutputPortCreate(client, "out", &port_);
        service_.beginDelivery(handle_);
    }
    OSStatus send() {
        const std::vector<std::uint8_t> noteOn = {0x90, 0x3C, 0x64};
        return service_.MIDISend(port_, handle_, makeOnePacketList(noteOn).get());
    }
    [[nodiscard]] Account account() { return service_.delivery(handle_); }
    void watch() {
        service_.watchDelivery(handle_, [this](const Account& told) { told_.push_back(told); });
    }
    static Account known(std::uint64_t handedOver, std::uint64_t left, Trouble trouble) {
        Account account;
        account.handedOver = handedOver;
        account.left = left;
        account.trouble = trouble;
        return account;
    }

    SoftwareMidiService service_;
    Device& device_ = service_.addDevice("Tormelk");
    const MIDIEndpointRef handle_ = device_.addDestination("Port 1").handle();
    MIDIPortRef port_ = 0;
    std::vector<Account> told_;
};

TEST_F(Accounts, AreSettledWhileNothingWasSent) {
    EXPECT_EQ(account(), Account());
}

TEST_F(Accounts, AreSettledAtOnce) {
    send();
    EXPECT_EQ(send(), noErr);
    EXPECT_EQ(account(), known(6, 6, Trouble::None));
}

TEST_F(Accounts, BeginAnewWhenTheyAreTold) {
    send();
    service_.beginDelivery(handle_);
    EXPECT_EQ(account(), Account());
}

TEST_F(Accounts, TellThatADeviceWentAwayWhenItIsSentMore) {
    send();
    device_.unplug();
    EXPECT_EQ(account().trouble, Trouble::None) << "what was sent had arrived";
    EXPECT_EQ(send(), kMIDIUnknownEndpoint);
    EXPECT_EQ(account(), known(6, 3, Trouble::WentAway));
}

TEST_F(Accounts, HaveTroubleFromTheStartWhereTheDeviceIsGone) {
    device_.unplug();
    service_.beginDelivery(handle_);
    EXPECT_EQ(account(), known(0, 0, Trouble::WentAway));
}

TEST_F(Accounts, AreToldToTheirWatchOnceByTheNextDispatch) {
    send();
    service_.dispatch();
    watch();
    EXPECT_THAT(told_, IsEmpty());
    service_.dispatch();
    service_.dispatch();
    EXPECT_THAT(told_, ElementsAre(known(3, 3, Trouble::None)));
}

TEST_F(Accounts, AreNotToldToAWatchThatWasTakenBack) {
    send();
    watch();
    service_.watchDelivery(handle_, {});
    service_.dispatch();
    EXPECT_THAT(told_, IsEmpty());
}

}  // namespace
}  // namespace platform::software
