#include "toolkit/itemSearch.h"

#include <gtest/gtest.h>

#include <string>

#include "tables/data.h"
#include "texts/List.h"

namespace toolkit {
namespace {

std::string found(texts::List items, std::string_view typed, int from = 0) {
    ComboBox box;
    box.addItemsWithObjectValues(items);
    box.addItemWithObjectValue(blankEntry);
    const int position = findItem(box, typed, from);
    return position < 0 ? "nothing" : std::string(*box.itemObjectValueAtIndex(position));
}

TEST(ItemSearch, FindsAControllerByAWordOfItsName) {
    EXPECT_EQ(found(tables::data::CC(), "sus"), found(tables::data::CC(), "64"));
    EXPECT_NE(found(tables::data::CC(), "SUS").find("ustain"), std::string::npos);
}

TEST(ItemSearch, FindsANumberInEveryListOfNumbers) {
    ComboBox notes;
    notes.addItemsWithObjectValues(tables::data::Note());
    EXPECT_EQ(findItem(notes, "60", 0), 60);
    for (const texts::List items : {tables::data::CC(), tables::data::Prog()}) {
        ComboBox box;
        box.addItemsWithObjectValues(items);
        EXPECT_EQ(findItem(box, "60", 0), 60);
    }
}

TEST(ItemSearch, TakesTheNumberThatIsReadForTheOneThatIsMeant) {
    ComboBox intervals;
    intervals.addItemsWithObjectValues(tables::data::ms());  // from 25 on
    EXPECT_EQ(findItem(intervals, "60", 0), 60 - 25);
}

TEST(ItemSearch, GoesOnBehindWhereItStands) {
    constexpr std::string_view items[] = {"Solo 1", "Mute 1", "Solo 2"};
    EXPECT_EQ(found(items, "so", 1), "Solo 2");
    EXPECT_EQ(found(items, "mu", 2), "Mute 1");
    EXPECT_EQ(found(items, "so", -1), "Solo 1");
}

TEST(ItemSearch, PrefersAnItemThatBeginsSo) {
    constexpr std::string_view items[] = {"All Toggle", "Toggle"};
    EXPECT_EQ(found(items, "tog"), "Toggle");
}

TEST(ItemSearch, FindsNothingForTextsInNoItem) {
    EXPECT_EQ(found(tables::data::msgTyp(), "xyz"), "nothing");
    EXPECT_EQ(found(tables::data::msgTyp(), ""), "nothing");
    EXPECT_EQ(found(tables::data::msgTyp(), "3"), "nothing");  // the blank's position
    EXPECT_EQ(found(tables::data::msgTyp(), "99999999999999999999"), "nothing");
    EXPECT_EQ(found({}, "a"), "nothing");
}

}  // namespace
}  // namespace toolkit
