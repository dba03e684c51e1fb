#include "qt/windows/SimulatorView.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <vector>

#include "config/buildImageAndStores.h"
#include "config/stores.h"
#include "config/sysex.h"
#include "simulator/firmwareFrames.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

using simulator::asMessages;
using support::hands::find;
using simulator::operator+;  // NOLINT(misc-unused-using-decls): used; 14 overlooks operators

class SimulatorViewTest : public testing::Test {
protected:
    SimulatorViewTest() { config::buildImageAndStores(image, stores); }

    QString cell(int row, int column) const {
        const auto* item = find<QTableWidget>(view, "layers").item(row, column);
        return item == nullptr ? QString() : item->text();
    }
    QString bytes() const { return find<QPlainTextEdit>(view, "bytes").toPlainText(); }
    QTreeWidget& log() const { return find<QTreeWidget>(view, "log"); }

    config::Image image{};
    config::Stores stores;
    simulator::SimulatedController tormelk;
    SimulatorView view{tormelk};
};

TEST_F(SimulatorViewTest, SaysThatNothingCameYet) {
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_EQ(cell(layer, 0), QString::number(layer + 1));
        EXPECT_EQ(cell(layer, 1), QStringLiteral("nothing yet"));
    }
    EXPECT_EQ(bytes(), QString());
    EXPECT_EQ(log().topLevelItemCount(), 0);
}

TEST_F(SimulatorViewTest, SaysAboveEverythingThatNothingCanArriveUntilItCan) {
    view.show();
    const auto& notice = find<QLabel>(view, "notice");
    EXPECT_FALSE(notice.isVisible());
    view.setNotice(QStringLiteral("Nobody can see it."));
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(notice.text(), QStringLiteral("Nobody can see it."));
    EXPECT_LT(notice.y(), find(view, "layers").y());
    view.setNotice(QString());
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(SimulatorViewTest, ShowsALayerAsItArrives) {
    tormelk.receive(config::layerBlock(image, 0));
    EXPECT_EQ(cell(0, 1), QStringLiteral("254 bytes"));
    EXPECT_EQ(cell(0, 2), QStringLiteral("Nuendo mode(MCP)"));
    EXPECT_EQ(cell(0, 3), QStringLiteral("on"));
    EXPECT_EQ(cell(0, 4), QStringLiteral("Const 127"));
    EXPECT_EQ(cell(0, 5), QStringLiteral("100 ms"));
    EXPECT_EQ(cell(1, 1), QStringLiteral("nothing yet"));
    tormelk.receive(config::layerBlock(image, 1));
    EXPECT_EQ(cell(1, 4), QStringLiteral("Curve1"));
}

TEST_F(SimulatorViewTest, ShowsTheBytesOfTheLayerThatIsSelected) {
    tormelk.receive(config::layerBlock(image, 0));
    EXPECT_TRUE(bytes().startsWith(QStringLiteral("  0  F0 1D 03 00 69 4E 01 ")))
        << bytes().toStdString();
    EXPECT_TRUE(bytes().endsWith(QStringLiteral(" F7")));
    EXPECT_EQ(bytes().count(QLatin1Char('\n')), 15);
    tormelk.receive(config::layerBlock(image, 2));
    find<QTableWidget>(view, "layers").selectRow(2);
    EXPECT_TRUE(bytes().startsWith(QStringLiteral("  0  F0 1D 03 00 69 4E 03 ")));
    find<QTableWidget>(view, "layers").selectRow(1);
    EXPECT_EQ(bytes(), QString());
}

TEST_F(SimulatorViewTest, ListsWhatWasTakenInAndWhatWasRefusedAndWhy) {
    tormelk.receive(config::layerBlock(image, 0));
    tormelk.receive(std::vector<std::uint8_t>{0xF0, 0x7E, 0xF7});
    ASSERT_EQ(log().topLevelItemCount(), 2);
    EXPECT_EQ(log().topLevelItem(0)->text(0), QStringLiteral("1"));
    EXPECT_EQ(log().topLevelItem(0)->text(1), QStringLiteral("254"));
    EXPECT_EQ(log().topLevelItem(0)->text(2).toStdString(), tormelk.log()[0].text);
    EXPECT_EQ(log().topLevelItem(1)->text(2).toStdString(), "Refused: " + tormelk.log()[1].text);
}

TEST_F(SimulatorViewTest, TellsTheModeAndTheFirmwareItHolds) {
    const auto text = [this] { return find<QLabel>(view, "firmware").text(); };
    auto& save = find<QPushButton>(view, "saveFirmware");
    EXPECT_EQ(text(), QStringLiteral("Firmware: the one it came with"));
    EXPECT_FALSE(save.isEnabled());
    tormelk.receive(simulator::updateModeMessage);
    EXPECT_EQ(text(), QStringLiteral("In its update mode. Firmware: the one it came with"));
    tormelk.receive(asMessages(simulator::connectFrame() + simulator::eraseFrame()));
    EXPECT_EQ(text(), QStringLiteral("In its update mode. Firmware: none, it is erased"));
    EXPECT_FALSE(save.isEnabled());
    tormelk.receive(asMessages(simulator::blockFrame(0) + simulator::blockFrame(1)));
    EXPECT_EQ(text(), QStringLiteral("In its update mode. Firmware: 1,024 bytes in 2 blocks"));
    EXPECT_TRUE(save.isEnabled());
    tormelk.receive(asMessages(simulator::resetFrame()));
    EXPECT_EQ(text(), QStringLiteral("Firmware: 1,024 bytes in 2 blocks"));
    tormelk.goOfflineAfter(1);
    tormelk.receive(std::vector<std::uint8_t>{0xF6});
    EXPECT_EQ(text(), QStringLiteral("Offline. Firmware: 1,024 bytes in 2 blocks"));
}

TEST_F(SimulatorViewTest, SavesTheFirmwareItReceived) {
    tormelk.receive(simulator::updateModeMessage);
    tormelk.receive(
        asMessages(simulator::connectFrame() + simulator::eraseFrame() + simulator::blockFrame(0)));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("image.BIN"));
    const auto save = [this](const QString& name) {
        support::hands::whenDialogOpens(QStringLiteral("Save the firmware it holds"),
                                        [name](QDialog& panel) {
                                            find<QLineEdit>(panel, "fileNameEdit").setText(name);
                                            support::hands::press(panel, Qt::Key_Enter);
                                        });
        support::hands::click(find(view, "saveFirmware"));
    };
    save(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const simulator::Bytes content = simulator::contentOf(0);
    EXPECT_EQ(file.readAll().toStdString(), std::string(content.begin(), content.end()));
}

TEST(SimulatorView, LeavesAControllerThatOutlivesItAndOutlivesIt) {
    auto tormelk = std::make_unique<simulator::SimulatedController>();
    auto view = std::make_unique<SimulatorView>(*tormelk);
    view.reset();
    EXPECT_FALSE(tormelk->onChange);
    view = std::make_unique<SimulatorView>(*tormelk);
    tormelk.reset();
    find<QTableWidget>(*view, "layers").selectRow(1);
}

}  // namespace
}  // namespace qt::windows
