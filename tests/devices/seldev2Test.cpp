#include "devices/seldev2.h"

#include "devices/DevicesTest.h"

namespace devices {
namespace {

class Seldev2Test : public DevicesTest {};

TEST_F(Seldev2Test, StoresThePositionOfTheChosenOutputWhichPairsItWithAnInput) {
    EXPECT_EQ(check.sd2_out_indx, 0);
    addDevices({"Alpha", "Beta", "Gamma"});
    chooseDevices<seldev2>(check, "Alpha", "Gamma");
    EXPECT_EQ(check.sd2_out_indx, 2);
    EXPECT_EQ(nameOf(check.OutDevice()), "Gamma");
    EXPECT_EQ(nameOf(check.InDevice()), "Alpha");
    const auto& paired = manager().realSources().at(static_cast<std::size_t>(check.sd2_out_indx));
    EXPECT_EQ(nameOf(paired.get()), "Gamma");
    EXPECT_TRUE(paired->isOnline());
}

TEST_F(Seldev2Test, ALaterOkStoresTheNewPosition) {
    addDevices({"Alpha", "Beta", "Gamma"});
    for (const int position : {2, 0, 1}) {
        runDialog<seldev2>(check, [&](seldev2& dialog) {
            dialog.combo_out.choose(position);
            dialog.okButton.click();
        });
        EXPECT_EQ(check.sd2_out_indx, position);
    }
}

TEST_F(Seldev2Test, CancelAndClosingKeepThePosition) {
    addDevices({"Alpha", "Beta", "Gamma"});
    chooseDevices<seldev2>(check, "Beta", "Beta");
    runDialog<seldev2>(check, [](seldev2& dialog) {
        dialog.combo_out.choose(2);
        dialog.cancelButton.click();
    });
    runDialog<seldev2>(check, [](seldev2& dialog) {
        dialog.combo_out.choose(0);
        dialog.window().close();
    });
    EXPECT_EQ(check.sd2_out_indx, 1);
}

TEST_F(Seldev2Test, OkWithoutOutputsKeepsThePosition) {
    service.addSource("Only in");
    check.sd2_out_indx = 5;
    runDialog<seldev2>(check, [](seldev2& dialog) { dialog.okButton.click(); });
    EXPECT_EQ(check.sd2_out_indx, 5);
    EXPECT_EQ(check.OutDevice(), nullptr);
}

TEST_F(Seldev2Test, NeverTouchesTheOpenFlag) {
    addDevice("Tormelk");
    for (const std::uint8_t flag : {std::uint8_t{0}, std::uint8_t{1}}) {
        general.midi_device_open = flag;
        runDialog<seldev2>(check, [](seldev2& dialog) { dialog.okButton.click(); });
        EXPECT_EQ(general.midi_device_open, flag);
    }
}

TEST_F(Seldev2Test, FillingItsListsOnceMoreEmptiesThemFirst) {
    addDevices({"Alpha", "Beta"});
    runDialog<seldev2>(check, [](seldev2& dialog) {
        dialog.combo_in.addItemWithObjectValue("left over");
        dialog.viewDidLoad();
        EXPECT_THAT(itemsOf(dialog.combo_in), testing::ElementsAre("Alpha", "Beta"));
        EXPECT_THAT(itemsOf(dialog.combo_out), testing::ElementsAre("Alpha", "Beta"));
        EXPECT_EQ(dialog.combo_in.indexOfSelectedItem(), 0);
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        dialog.okButton.click();
    });
}

}  // namespace
}  // namespace devices
