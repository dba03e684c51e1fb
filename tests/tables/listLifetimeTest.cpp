// The lists are tables of the program: asking for one costs nothing and always gives the same one.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <new>

#include "tables/AllocationCount.h"
#include "tables/data.h"
#include "tables/shortLists.h"

namespace tables {
namespace {

constexpr std::array listFunctions{
    &data::msgTyp, &data::kong,  &data::drvVer,  &data::CC,       &data::Chan,  &data::ChanMod,
    &data::Note,   &data::ND,    &data::LG,      &data::SP,       &data::LV,    &data::Machin_Mod,
    &data::Prog,   &data::Trans, &data::P_CC,    &data::Mackie,   &data::Pedal, &data::fader,
    &data::ms,     &data::curv,  &data::TrigMod, &data::curv5_vel};

TEST(ListLifetime, AllocationsAreCounted) {
    const std::size_t before = allocationCount();
    ::operator delete(::operator new(1));
    EXPECT_EQ(allocationCount(), before + 1);
}

TEST(ListLifetime, AskingForAListAllocatesNothing) {
    const std::size_t before = allocationCount();
    std::size_t items = 0;
    for (const auto& list : listFunctions) {
        items += list().size();
    }
    for (int mode = -1; mode <= 6; ++mode) {
        items += data::Midi_Msg1(mode).size() + shortListForMode(mode).size();
    }
    EXPECT_EQ(allocationCount(), before);
    EXPECT_GT(items, 0U);
}

TEST(ListLifetime, EveryCallGivesTheSameList) {
    for (std::size_t i = 0; i < listFunctions.size(); ++i) {
        const texts::List first = listFunctions.at(i)();
        const texts::List second = listFunctions.at(i)();
        EXPECT_EQ(first.data(), second.data()) << "list " << i;
        EXPECT_EQ(first.size(), second.size()) << "list " << i;
    }
    for (int mode = -1; mode <= 6; ++mode) {
        EXPECT_EQ(data::Midi_Msg1(mode).data(), data::Midi_Msg1(mode).data()) << "mode " << mode;
        EXPECT_EQ(shortListForMode(mode).data(), shortListForMode(mode).data()) << "mode " << mode;
    }
}

}  // namespace
}  // namespace tables
