#include "rescue/copyNames.h"

#include <gtest/gtest.h>

#include <set>

namespace rescue {
namespace {

TEST(CopyNames, AreReadAsTheyAreWritten) {
    const std::string stem = "unsaved-3f9a1c22";
    EXPECT_EQ(fileName({stem, Part::Lock, 0}), "unsaved-3f9a1c22.lock");
    EXPECT_EQ(fileName({stem, Part::Shown, 17}), "unsaved-3f9a1c22-17.Tormelk");
    EXPECT_EQ(fileName({stem, Part::UserDefined, 17}), "unsaved-3f9a1c22-17-user-defined.Tormelk");
    for (const CopyName& name : {CopyName{stem, Part::Lock, 0}, CopyName{stem, Part::Shown, 1},
                                 CopyName{stem, Part::UserDefined, 999'999'999'999'999'999}}) {
        EXPECT_EQ(parsedName(fileName(name)), name);
    }
}

TEST(CopyNames, AreNoOthers) {
    for (const char* name :
         {"", "Stage.Tormelk", ".unfinished-a1B2c3", "unsaved-3f9a1c22", "unsaved-3f9a1c22.Tormelk",
          "unsaved-3f9a1c22-0.Tormelk", "unsaved-3f9a1c22-01.Tormelk",
          "unsaved-3f9a1c22--1.Tormelk", "unsaved-3F9A1C22-1.Tormelk", "unsaved-3f9a1c2-1.Tormelk",
          "unsaved-3f9a1c22-1.tormelk", "unsaved-3f9a1c22-1.Tormelk~",
          "unsaved-3f9a1c22-1-user-defined.lock", "unsaved-3f9a1c22-9999999999999999999.Tormelk",
          " unsaved-3f9a1c22-1.Tormelk"}) {
        EXPECT_EQ(parsedName(name), std::nullopt) << name;
    }
}

TEST(CopyNames, HaveAnotherStemForEveryEditor) {
    std::set<std::string> stems;
    for (int i = 0; i < 100; ++i) {
        const std::string stem = newStem();
        EXPECT_TRUE(parsedName(stem + ".lock")) << stem;
        stems.insert(stem);
    }
    EXPECT_GE(stems.size(), 99U);
}

}  // namespace
}  // namespace rescue
