#include "qt/windows/AssignmentPanel.h"

#include <QLabel>

#include "qt/windows/MainWindowFixture.h"

namespace qt::windows {
namespace {

using support::hands::choose;
using support::hands::click;

class AssignmentPanelTest : public MainWindowFixture {
protected:
    QString text(const char* outlet) { return support::hands::find<QLabel>(view, outlet).text(); }
};

TEST_F(AssignmentPanelTest, NamesTheSelectedControlItsLayerAndWhatItSends) {
    enterUserDefinedMode();
    click(button(QStringLiteral("encoder9")));
    EXPECT_EQ(text("selectedControl"), QStringLiteral("Strip 3, Solo"));
    EXPECT_EQ(text("selectedLayer"), QStringLiteral("Layer 1"));
    EXPECT_TRUE(text("selectedSends").startsWith(QStringLiteral("Note 10")));
    EXPECT_EQ(text("selectionHint"), QString());
    choose(box("combo_chan"), 6);
    EXPECT_TRUE(text("selectedSends").contains(QStringLiteral("channel 7")));
}

TEST_F(AssignmentPanelTest, NamesTheLayerThatIsEditedNotTheLitOne) {
    enterUserDefinedMode();
    click(button(QStringLiteral("moLa3")));
    EXPECT_EQ(text("selectedLayer"), QStringLiteral("Layer 3"));
    click(button(QStringLiteral("encoder66")));  // pad layer 1
    EXPECT_EQ(text("selectedControl"), QStringLiteral("Pad 2"));
    EXPECT_EQ(text("selectedLayer"), QStringLiteral("Layer 1"));
    click(button(QStringLiteral("encoder9")));  // still of block 0, although mode layer 3 is lit
    EXPECT_TRUE(button(QStringLiteral("moLa3")).isChecked());
    EXPECT_EQ(text("selectedLayer"), QStringLiteral("Layer 1"));
}

TEST_F(AssignmentPanelTest, SaysWhatToDoWhereNothingCanBeEdited) {
    EXPECT_TRUE(text("selectionHint").contains(QStringLiteral("Choose User Defined Mode")));
    enterUserDefinedMode();
    choose(box("combo_mode"), 3);
    EXPECT_EQ(text("selectedControl"), QStringLiteral("Nothing selected"));
    EXPECT_EQ(text("selectedLayer"), QString());
    EXPECT_EQ(text("selectedSends"), QString());
}

}  // namespace
}  // namespace qt::windows
