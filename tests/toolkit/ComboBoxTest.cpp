#include "toolkit/ComboBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "support/countedMemory.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using BoxChange = ComboBox::Change;

constexpr std::array<std::string_view, 3> shortList = {"one", "two", "three"};
constexpr std::array<std::string_view, 2> otherList = {"four", "five"};

constexpr std::array<std::string_view, 1000> makeLongList() {
    std::array<std::string_view, 1000> list;
    list.fill("a text that is longer than any short string optimisation would hold");
    return list;
}
constexpr auto longList = makeLongList();

std::vector<std::string> itemsOf(const ComboBox& box) {
    std::vector<std::string> items;
    items.reserve(static_cast<std::size_t>(box.numberOfItems()));
    for (int i = 0; i < box.numberOfItems(); ++i) {
        items.emplace_back(box.itemObjectValueAtIndex(i).value());
    }
    return items;
}

class ComboBoxTest : public testing::Test {
protected:
    ComboBoxTest() {
        box.addItemsWithObjectValues(shortList);
        box.onChoice = [this] { choices.push_back(box.indexOfSelectedItem()); };
        box.onChange = [this](BoxChange change) { changes.push_back(change); };
    }

    ComboBox box;
    std::vector<int> choices;
    std::vector<BoxChange> changes;
};

TEST(ComboBox, IsEmptyEnabledAndWithoutSelectionAtFirst) {
    const ComboBox box;
    EXPECT_EQ(box.numberOfItems(), 0);
    EXPECT_EQ(box.indexOfSelectedItem(), -1);
    EXPECT_TRUE(box.isEnabled());
    EXPECT_EQ(box.itemObjectValueAtIndex(0), std::nullopt);
}

TEST_F(ComboBoxTest, ShowsAListInItsOrder) {
    EXPECT_THAT(itemsOf(box), ElementsAre("one", "two", "three"));
    EXPECT_EQ(box.indexOfSelectedItem(), -1);
}

TEST_F(ComboBoxTest, HasNoItemOutsideTheList) {
    EXPECT_EQ(box.itemObjectValueAtIndex(-1), std::nullopt);
    EXPECT_EQ(box.itemObjectValueAtIndex(3), std::nullopt);
    EXPECT_EQ(box.itemObjectValueAtIndex(1000000), std::nullopt);
}

TEST_F(ComboBoxTest, AppendsFurtherListsAndItemsInOrder) {
    box.addItemWithObjectValue("middle");
    box.addItemsWithObjectValues(otherList);
    box.addItemWithObjectValue("last");
    EXPECT_THAT(itemsOf(box), ElementsAre("one", "two", "three", "middle", "four", "five", "last"));
}

TEST_F(ComboBoxTest, AListAddedAfterSingleItemsStandsBehindThem) {
    box.removeAllItems();
    box.addItemWithObjectValue("first");
    box.addItemsWithObjectValues(shortList);
    EXPECT_THAT(itemsOf(box), ElementsAre("first", "one", "two", "three"));
}

TEST_F(ComboBoxTest, AnEmptyListAddsNothing) {
    box.addItemsWithObjectValues({});
    EXPECT_EQ(box.numberOfItems(), 3);
    ComboBox empty;
    empty.addItemsWithObjectValues({});
    EXPECT_EQ(empty.numberOfItems(), 0);
    empty.addItemsWithObjectValues(shortList);
    EXPECT_EQ(empty.numberOfItems(), 3);
}

TEST_F(ComboBoxTest, ASingleItemIsCopied) {
    std::string text = "a device that may be renamed while the box is open";
    box.addItemWithObjectValue(text);
    text.assign("gone");
    EXPECT_EQ(box.itemObjectValueAtIndex(3), "a device that may be renamed while the box is open");
}

TEST_F(ComboBoxTest, RemovingAllItemsLeavesNothingToSelect) {
    box.addItemWithObjectValue("last");
    box.selectItemAtIndex(3);
    box.removeAllItems();
    EXPECT_EQ(box.numberOfItems(), 0);
    EXPECT_EQ(box.indexOfSelectedItem(), -1);
    box.selectItemAtIndex(0);
    EXPECT_EQ(box.indexOfSelectedItem(), -1);
    EXPECT_THAT(choices, IsEmpty());
}

TEST_F(ComboBoxTest, RemovingAllItemsClearsTheSelectionForTheNextListToo) {
    box.selectItemAtIndex(1);
    box.removeAllItems();
    box.addItemsWithObjectValues(otherList);
    EXPECT_EQ(box.indexOfSelectedItem(), -1);
}

TEST_F(ComboBoxTest, AddingItemsKeepsTheSelection) {
    box.selectItemAtIndex(1);
    box.addItemsWithObjectValues(otherList);
    box.addItemWithObjectValue("last");
    EXPECT_EQ(box.indexOfSelectedItem(), 1);
}

TEST_F(ComboBoxTest, TheProgramSelectsWithoutRunningTheHandler) {
    for (const int index : {0, 1, 2, 2, 0}) {
        box.selectItemAtIndex(index);
        EXPECT_EQ(box.indexOfSelectedItem(), index);
    }
    EXPECT_THAT(choices, IsEmpty());
}

TEST_F(ComboBoxTest, SelectingOutsideTheListLeavesNothingSelected) {
    for (const int index : {3, -1, 127, -1000}) {
        box.selectItemAtIndex(1);
        box.selectItemAtIndex(index);
        EXPECT_EQ(box.indexOfSelectedItem(), -1) << index;
    }
    EXPECT_THAT(choices, IsEmpty());
}

TEST_F(ComboBoxTest, TheProgramSelectsInADisabledBoxToo) {
    box.setEnabled(false);
    box.selectItemAtIndex(2);
    EXPECT_EQ(box.indexOfSelectedItem(), 2);
}

TEST_F(ComboBoxTest, APersonsChoiceIsSelectedBeforeTheHandlerRuns) {
    box.choose(2);
    EXPECT_EQ(box.indexOfSelectedItem(), 2);
    box.choose(0);
    EXPECT_THAT(choices, ElementsAre(2, 0));
}

TEST_F(ComboBoxTest, ChoosingWhatIsSelectedAlreadyRunsNoHandler) {
    box.choose(1);
    box.choose(1);
    EXPECT_THAT(choices, ElementsAre(1));
    box.selectItemAtIndex(2);
    box.choose(2);
    EXPECT_THAT(choices, ElementsAre(1));
}

TEST_F(ComboBoxTest, ChoosingOutsideTheListDoesNothing) {
    box.selectItemAtIndex(1);
    changes.clear();
    for (const int index : {-1, 3, 1000, -1000}) {
        box.choose(index);
        EXPECT_EQ(box.indexOfSelectedItem(), 1) << index;
    }
    EXPECT_THAT(choices, IsEmpty());
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ComboBoxTest, ADisabledBoxTakesNoChoice) {
    box.selectItemAtIndex(0);
    box.setEnabled(false);
    EXPECT_FALSE(box.isEnabled());
    box.choose(1);
    EXPECT_EQ(box.indexOfSelectedItem(), 0);
    EXPECT_THAT(choices, IsEmpty());
    box.setEnabled(true);
    box.choose(1);
    EXPECT_THAT(choices, ElementsAre(1));
}

TEST_F(ComboBoxTest, TheHandlerMaySelectAnotherItemWithoutRunningAgain) {
    int runs = 0;
    box.onChoice = [&] {
        ++runs;
        box.selectItemAtIndex(0);
    };
    box.choose(2);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(box.indexOfSelectedItem(), 0);
    box.choose(2);
    EXPECT_EQ(runs, 2);
}

TEST_F(ComboBoxTest, TheHandlerMayFillTheBoxAnew) {
    box.onChoice = [&] {
        box.removeAllItems();
        box.addItemsWithObjectValues(otherList);
        box.selectItemAtIndex(1);
    };
    box.choose(2);
    EXPECT_THAT(itemsOf(box), ElementsAre("four", "five"));
    EXPECT_EQ(box.indexOfSelectedItem(), 1);
}

TEST(ComboBox, AChoiceWithoutAHandlerOrAViewIsSelected) {
    ComboBox box;
    box.addItemsWithObjectValues(shortList);
    box.choose(1);
    EXPECT_EQ(box.indexOfSelectedItem(), 1);
}

TEST(BlankEntry, IsKnownByIdentityAndNotByBeingEmpty) {
    EXPECT_TRUE(isBlankEntry(blankEntry));
    EXPECT_TRUE(blankEntry.empty());
    EXPECT_FALSE(isBlankEntry(""));
    EXPECT_FALSE(isBlankEntry(std::string_view{}));
    const std::string emptyText;
    EXPECT_FALSE(isBlankEntry(emptyText));
}

TEST_F(ComboBoxTest, TheBlankEntryStaysTheBlankEntry) {
    box.addItemWithObjectValue(blankEntry);
    box.addItemWithObjectValue("");
    box.addItemWithObjectValue(std::string());
    ASSERT_EQ(box.numberOfItems(), 6);
    EXPECT_TRUE(isBlankEntry(box.itemObjectValueAtIndex(3).value()));
    EXPECT_FALSE(isBlankEntry(box.itemObjectValueAtIndex(4).value()));
    EXPECT_FALSE(isBlankEntry(box.itemObjectValueAtIndex(5).value()));
    EXPECT_EQ(box.itemObjectValueAtIndex(4), "");
}

TEST(BlankEntry, StaysItselfInAListAndBehindOne) {
    constexpr std::array<std::string_view, 3> list = {"", blankEntry, "text"};
    ComboBox box;
    for (int round = 0; round < 2; ++round) {
        box.addItemsWithObjectValues(list);
        const int first = 3 * round;
        EXPECT_FALSE(isBlankEntry(box.itemObjectValueAtIndex(first).value()));
        EXPECT_TRUE(isBlankEntry(box.itemObjectValueAtIndex(first + 1).value()));
        EXPECT_FALSE(isBlankEntry(box.itemObjectValueAtIndex(first + 2).value()));
    }
}

TEST_F(ComboBoxTest, TheBlankEntryCanBeSelectedAndChosen) {
    box.addItemWithObjectValue(blankEntry);
    box.selectItemAtIndex(3);
    EXPECT_EQ(box.indexOfSelectedItem(), 3);
    box.choose(0);
    box.choose(3);
    EXPECT_THAT(choices, ElementsAre(0, 3));
}

TEST(ComboBox, FillingWithAFixedListAllocatesNothing) {
    ComboBox box;
    const std::size_t before = support::allocationCount();
    box.addItemsWithObjectValues(longList);
    EXPECT_EQ(support::allocationCount(), before);
    EXPECT_EQ(box.numberOfItems(), 1000);
    EXPECT_EQ(box.itemObjectValueAtIndex(999)->data(), longList[999].data()) << "a copy";
}

TEST(ComboBox, RefillingAndReadingAllocateNothing) {
    ComboBox box;
    const std::size_t before = support::allocationCount();
    for (int round = 0; round < 3; ++round) {
        box.removeAllItems();
        box.addItemsWithObjectValues(longList);
        for (int i = 0; i < box.numberOfItems(); ++i) {
            box.selectItemAtIndex(i);
            ASSERT_TRUE(box.itemObjectValueAtIndex(i).has_value());
        }
    }
    EXPECT_EQ(support::allocationCount(), before);
}

TEST(ComboBox, TheBlankEntryBehindAListDoesNotCopyTheList) {
    ComboBox box;
    box.addItemsWithObjectValues(longList);
    const std::size_t before = support::allocationCount();
    box.addItemWithObjectValue(blankEntry);
    EXPECT_LE(support::allocationCount(), before + 1);
    EXPECT_EQ(box.itemObjectValueAtIndex(0)->data(), longList[0].data());
}

TEST_F(ComboBoxTest, KnowsTheListThatItWasGivenFirst) {
    box.addItemWithObjectValue(blankEntry);
    EXPECT_EQ(box.firstList().data(), shortList.data());
    EXPECT_EQ(box.firstList().size(), shortList.size());
    box.removeAllItems();
    EXPECT_TRUE(box.firstList().empty());
}

TEST_F(ComboBoxTest, TellsItsViewWhatChanged) {
    box.addItemsWithObjectValues(otherList);
    EXPECT_THAT(changes, ElementsAre(BoxChange::Items));
    box.addItemWithObjectValue("last");
    EXPECT_THAT(changes, ElementsAre(BoxChange::Items, BoxChange::Items));
    changes.clear();
    box.selectItemAtIndex(2);
    box.choose(1);
    box.selectItemAtIndex(-1);
    EXPECT_THAT(changes,
                ElementsAre(BoxChange::Selection, BoxChange::Selection, BoxChange::Selection));
    changes.clear();
    box.setEnabled(false);
    box.setEnabled(true);
    EXPECT_THAT(changes, ElementsAre(BoxChange::Enabled, BoxChange::Enabled));
    changes.clear();
    box.removeAllItems();
    EXPECT_THAT(changes, ElementsAre(BoxChange::Items));
}

TEST_F(ComboBoxTest, SaysNothingWhereNothingChanged) {
    box.selectItemAtIndex(-1);
    box.selectItemAtIndex(99);
    box.setEnabled(true);
    box.selectItemAtIndex(1);
    changes.clear();
    box.selectItemAtIndex(1);
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ComboBoxTest, WhenTheViewHearsOfRemovedItemsTheSelectionIsGoneAlready) {
    box.selectItemAtIndex(2);
    int selected = 99;
    box.onChange = [&](BoxChange) { selected = box.indexOfSelectedItem(); };
    box.removeAllItems();
    EXPECT_EQ(selected, -1);
}

}  // namespace
}  // namespace toolkit
