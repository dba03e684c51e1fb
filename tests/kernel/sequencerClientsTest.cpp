#include "kernel/sequencerClients.h"

#include <gmock/gmock.h>

namespace kernel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// As Linux 6.1 writes it.
const std::string list = R"list(Client info
  cur  clients : 4
  peak clients : 5
  max  clients : 192

Client   0 : "System" [Kernel]
  Port   0 : "Timer" (Rwe-)
  Port   1 : "Announce" (R-e-)
    Connecting To: 128:0
Client  20 : "A "quoted" name" [Kernel]
  Port   0 : "Tormelk MIDI 1" (RWeX)
    Connecting To: 128:0[r:1], 129:2
    Connected From: 128:0[ex]
  Output pool :
    Pool size          : 500
Client 128 : "Editor" [User]
  Port   0 : "(in)" (-We-)
)list";

TEST(SequencerClients, AreReadWithNumberNameAndKind) {
    const std::vector<SequencerClient> clients = sequencerClientsIn(list);
    ASSERT_THAT(clients, SizeIs(3));
    EXPECT_EQ(clients[0].number, 0);
    EXPECT_EQ(clients[0].name, "System");
    EXPECT_TRUE(clients[0].isKernel);
    EXPECT_EQ(clients[1].name, "A \"quoted\" name");
    EXPECT_EQ(clients[2].number, 128);
    EXPECT_FALSE(clients[2].isKernel);
}

TEST(SequencerClients, HaveTheirPortsAndConnections) {
    const std::vector<SequencerClient> clients = sequencerClientsIn(list);
    ASSERT_THAT(clients, SizeIs(3));
    ASSERT_THAT(clients[0].ports, SizeIs(2));
    EXPECT_EQ(clients[0].ports[1].number, 1);
    EXPECT_EQ(clients[0].ports[1].name, "Announce");
    EXPECT_THAT(clients[0].ports[1].takesFrom, IsEmpty());
    ASSERT_THAT(clients[1].ports, SizeIs(1));
    EXPECT_THAT(clients[1].ports[0].sendsTo, ElementsAre("128:0", "129:2"));
    EXPECT_THAT(clients[1].ports[0].takesFrom, ElementsAre("128:0"));
    ASSERT_THAT(clients[2].ports, SizeIs(1));
    EXPECT_EQ(clients[2].ports[0].name, "(in)");
}

TEST(SequencerClients, AreReadFromTheListOfNewerKernelsToo) {
    const std::vector<SequencerClient> clients = sequencerClientsIn(
        "Client  16 : \"Virtual Raw MIDI 0-0\" [Kernel Legacy]\n"
        "  Port   0 : \"VirMIDI 0-0\" (RWeX) [In/Out]\n");
    ASSERT_THAT(clients, SizeIs(1));
    EXPECT_TRUE(clients[0].isKernel);
    ASSERT_THAT(clients[0].ports, SizeIs(1));
    EXPECT_EQ(clients[0].ports[0].name, "VirMIDI 0-0");
}

TEST(SequencerClients, OfThisKernelAreTheFixedOnesAndVirtualMidi) {
    std::vector<std::string> names;
    for (const SequencerClient& client : sequencerClients()) {
        names.push_back(client.name);
    }
    EXPECT_THAT(names, ElementsAre("System", "Midi Through", "Virtual Raw MIDI 0-0"));
}

}  // namespace
}  // namespace kernel
