// What `cmake --install` puts into a prefix, and what the desktop's own tools say of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "config/buildImageAndStores.h"
#include "config/presetText.h"

namespace {

namespace fs = std::filesystem;

bool succeeds(const std::string& command) {
    return std::system(command.c_str()) == 0;  // NOLINT(cert-env33-c): the desktop's tools
}

std::string textOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A prefix with the programs and their files in it, gone afterwards.
class Installation : public testing::Test {
public:
    Installation() {
        std::string name = (fs::temp_directory_path() / "tormelk-install-XXXXXX").string();
        prefix = mkdtemp(name.data());
        EXPECT_TRUE(succeeds("'" TORMELK_CMAKE "' --install '" TORMELK_BUILD "' --prefix '" +
                             prefix.string() + "' > '" + (prefix / "log").string() + "' 2>&1"))
            << textOf(prefix / "log");
    }
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
    ~Installation() override {
        std::error_code ignored;
        fs::remove_all(prefix, ignored);
    }

protected:
    [[nodiscard]] fs::path share(const char* file) const { return prefix / "share" / file; }

    fs::path prefix;
};

TEST_F(Installation, HasTheProgramsAndWhatTheDesktopKnowsThemBy) {
    for (const char* program : {"bin/tormelk-wyro", "bin/tormelk-simulator"}) {
        EXPECT_EQ(access((prefix / program).c_str(), X_OK), 0) << program;
    }
    EXPECT_TRUE(fs::is_regular_file(share("icons/hicolor/scalable/apps/tormelk-wyro.svg")));
    const std::string entry = textOf(share("applications/tormelk-wyro.desktop"));
    EXPECT_THAT(entry, testing::HasSubstr("\nExec=tormelk-wyro\n"))
        << "the program reads no file from its command line";
    EXPECT_THAT(entry, testing::HasSubstr("\nIcon=tormelk-wyro\n"));
}

TEST_F(Installation, HasADesktopEntryThatIsValid) {
    EXPECT_TRUE(succeeds("desktop-file-validate '" +
                         share("applications/tormelk-wyro.desktop").string() + "'"));
}

TEST_F(Installation, GivesPresetFilesATypeAndAnIconOfTheirOwn) {
    ASSERT_TRUE(fs::is_regular_file(
        share("icons/hicolor/scalable/mimetypes/application-x-tormelk-preset.svg")));
    ASSERT_TRUE(succeeds("update-mime-database '" + share("mime").string() + "' 2> '" +
                         (prefix / "log").string() + "'"))
        << textOf(prefix / "log");
    EXPECT_THAT(textOf(share("mime/globs2")),
                testing::HasSubstr(":application/x-tormelk-preset:*.tormelk\n"));
    EXPECT_THAT(textOf(share("mime/icons")),
                testing::HasSubstr("application/x-tormelk-preset:application-x-tormelk-preset"));
    EXPECT_THAT(textOf(share("mime/subclasses")),
                testing::HasSubstr("application/x-tormelk-preset text/plain"));
}

/// So that a preset under another name is known too.
TEST_F(Installation, KnowsAPresetByHowItsTextBegins) {
    ASSERT_TRUE(succeeds("update-mime-database '" + share("mime").string() + "' 2> /dev/null"));
    config::Image image{};
    config::Stores stores;
    config::buildImageAndStores(image, stores);
    const std::string preset = config::presetText(image);
    const std::string beginning = preset.substr(0, preset.find('\n', 18) + 1);
    EXPECT_EQ(beginning, "240\n29\n3\n0\n105\n78\n1\n");
    EXPECT_THAT(textOf(share("mime/magic")), testing::HasSubstr(beginning));
}

}  // namespace
