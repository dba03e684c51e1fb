#include "rescue/readCopy.h"

#include <sys/stat.h>

#include <cerrno>

#include "config/presetText.h"
#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "rescue/works.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string stem = "unsaved-0123abcd";
const std::string shown = stem + "-2.Tormelk";
const std::string userDefined = stem + "-2-user-defined.Tormelk";

/// Two copies of one editor, the newer of which something is done to.
class ReadCopy : public testing::Test {
protected:
    ReadCopy() {
        for (const int number : {1, 2}) {
            const std::string name = stem + "-" + std::to_string(number);
            files::write(folder / (name + ".Tormelk"), presetTextOf(workWith(number).shown));
            files::write(folder / (name + "-user-defined.Tormelk"),
                         presetTextOf(workWith(number).userDefined));
        }
    }
    /// The number of the work that is found.
    int found() {
        leftAlone.clear();
        const auto copy = newestWholeCopy(folder.path(), stem, {2, 1}, leftAlone);
        EXPECT_TRUE(copy);
        EXPECT_EQ(copy ? static_cast<int>(copy->number) : -1, copy ? numberOf(copy->work) : -1);
        return copy ? numberOf(copy->work) : -1;
    }

    files::TemporaryFolder folder;
    std::vector<LeftAlone> leftAlone;
};

TEST_F(ReadCopy, FindsTheNewest) {
    EXPECT_EQ(found(), 2);
    EXPECT_THAT(leftAlone, IsEmpty());
}

TEST_F(ReadCopy, FindsTheOneBeforeWhereTheNewestIsDamagedAndNamesIt) {
    const std::string whole = files::contents(folder / shown);
    for (const std::string& text :
         {std::string(), std::string("not a preset"), whole.substr(0, whole.size() - 5),
          "1" + whole, std::string(100, '\0'), std::string("\xFF\xFE")}) {
        for (const std::string& name : {shown, userDefined}) {
            const std::string before = files::contents(folder / name);
            files::write(folder / name, text);
            EXPECT_EQ(found(), 1);
            EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{name, Obstacle::Damaged}));
            EXPECT_EQ(files::contents(folder / name), text);
            files::write(folder / name, before);
        }
    }
}

TEST_F(ReadCopy, ReadsNoMoreOfAFileThanAPresetMayHold) {
    files::write(folder / shown,
                 files::contents(folder / shown) + std::string(config::presetTextLimit, ' '));
    EXPECT_EQ(found(), 1);
    EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{shown, Obstacle::TooLong}));
}

TEST_F(ReadCopy, LeavesWhatIsNoFileOfThisFolderAlone) {
    struct Case {
        Obstacle why;
        std::function<void(const fs::path&)> make;
    };
    for (const std::string& name : {shown, userDefined}) {
        const std::string text = files::contents(folder / name);
        for (const Case& one :
             {Case{Obstacle::Folder, [](const fs::path& path) { fs::create_directory(path); }},
              Case{Obstacle::Link,
                   [&](const fs::path& path) {
                       files::write(folder / "elsewhere", text);
                       fs::create_symlink(folder / "elsewhere", path);
                   }},
              Case{Obstacle::Link,
                   [](const fs::path& path) { fs::create_symlink("nothing", path); }},
              Case{Obstacle::NoFile,
                   [](const fs::path& path) { EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0); }}}) {
            fs::remove(folder / name);
            one.make(folder / name);
            EXPECT_EQ(found(), 1);
            EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{name, one.why}));
        }
        fs::remove(folder / name);
        files::write(folder / name, text);
    }
    EXPECT_EQ(found(), 2);
}

TEST_F(ReadCopy, LeavesWhatItMayNotReadAlone) {
    fs::permissions(folder / shown, fs::perms::none);
    files::asOrdinaryUser([&] {
        EXPECT_EQ(found(), 1);
        EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{shown, Obstacle::Unreadable}));
    });
}

TEST_F(ReadCopy, LeavesWhatTheDiskCannotGiveAlone) {
    files::CallScript script;
    script.fail("read", EIO);
    EXPECT_EQ(found(), 1);
    EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{shown, Obstacle::Unreadable}));
}

TEST_F(ReadCopy, LeavesAFileAloneThatIsShorterThanItWasWhenItWasOpened) {
    files::CallScript script;
    script.shorten(0);  // every file is at its end
    EXPECT_FALSE(newestWholeCopy(folder.path(), stem, {2}, leftAlone));
    EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{shown, Obstacle::BeingWritten}));
}

TEST_F(ReadCopy, TakesNoHalfForAWhole) {
    fs::remove(folder / userDefined);
    EXPECT_EQ(found(), 1);
    EXPECT_THAT(leftAlone, ElementsAre(LeftAlone{shown, Obstacle::Incomplete}));
}

TEST_F(ReadCopy, SaysNothingOfAFileThatHasJustGone) {
    fs::remove(folder / shown);
    EXPECT_EQ(found(), 1);
    EXPECT_THAT(leftAlone, IsEmpty());
}

TEST_F(ReadCopy, FindsNothingWhereNothingIsWhole) {
    for (const int number : {1, 2}) {
        files::write(folder / (stem + "-" + std::to_string(number) + ".Tormelk"), "");
    }
    EXPECT_FALSE(newestWholeCopy(folder.path(), stem, {2, 1}, leftAlone));
    EXPECT_EQ(leftAlone.size(), 2U);
}

}  // namespace
}  // namespace rescue
