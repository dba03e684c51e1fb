#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "editor/PresetFiles.h"
#include "files/ChildProcess.h"
#include "files/FileDescriptor.h"

// Files that are no presets, or cannot be read: an alert, and nothing changes.

namespace editor {
namespace {

namespace fs = std::filesystem;
namespace journal = support::journal;
using files::write;
using testing::ElementsAre;

constexpr const char* noPreset = "Not Tormelk file";
constexpr const char* notLoaded = "Fail to load Tormelk file ";

/// Lines of text, to be changed one by one.
struct Lines {
    explicit Lines(const config::Image& preset) {
        for (std::size_t i = 0; i < 1016; ++i) {
            lines.push_back(std::to_string(preset.at(i)));
        }
    }
    [[nodiscard]] std::string text() const {
        std::string text;
        for (const std::string& line : lines) {
            text += line + '\n';
        }
        return text;
    }
    std::vector<std::string> lines;
};

/// In User Defined mode with unsaved changes: a refusal comes before any question about them.
class Refusal : public PresetTest {
protected:
    Refusal() {
        editor.chooseMode(0);
        window.combo_chan.choose(4);
        state.stores.SysBuf_usrdef.fill(0xEE);
    }

    void expectRefusal(const fs::path& path, const std::string& message) {
        const std::string before = everythingIn(editor);
        desktop.clearJournal();
        desktop.answerAlert();
        load(editor, path);
        EXPECT_THAT(desktop.journal(), ElementsAre(journal::openPanel({"Tormelk", {"Tormelk"}}),
                                                   journal::alert(message)));
        EXPECT_EQ(everythingIn(editor), before);
        EXPECT_EQ(state.bChange, 1);
    }

    void expectNoPreset(const std::string& text) {
        write(file, text);
        expectRefusal(file, noPreset);
    }
};

TEST_F(Refusal, OfAFileWhoseFifthLineIs101) {
    Lines preset(state.sysData);
    ASSERT_EQ(preset.lines[4], "105");
    preset.lines[4] = "101";
    expectNoPreset(preset.text());
}

TEST_F(Refusal, OfAFileWithAnyOfTheFirstFiveBytesDifferent) {
    for (std::size_t i = 0; i < 5; ++i) {
        Lines preset(randomPreset(1, 0));
        preset.lines[i] = std::to_string(state.sysData.at(i) + 1);
        expectNoPreset(preset.text());
        preset.lines[i] = "0x" + preset.lines[i];
        expectNoPreset(preset.text());
    }
}

TEST_F(Refusal, OfAFileWithFewerValues) {
    const std::string text = formattedPreset(state.sysData);
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{3}, std::size_t{20},
                                   text.size() / 2, lastLine}) {
        expectNoPreset(text.substr(0, size));
    }
}

TEST_F(Refusal, OfAFileWithTextWhereANumberShouldBe) {
    for (const std::size_t wrong : {0U, 5U, 6U, 248U, 500U, 1015U}) {
        for (const char* text : {"x", "-", "#", "- 1", "twelve", "\xC2\xA0"}) {
            Lines preset(state.sysData);
            preset.lines[wrong] = text;
            expectNoPreset(preset.text());
        }
    }
    // A number with something behind it is one only at the very end.
    for (const std::size_t wrong : {0U, 5U, 6U, 248U, 500U, 1014U}) {
        for (const char* text : {"1.5", "0x10", "1,"}) {
            Lines preset(state.sysData);
            preset.lines[wrong] = text;
            expectNoPreset(preset.text());
        }
    }
}

TEST_F(Refusal, OfAFileOfAnotherKind) {
    expectNoPreset("");
    expectNoPreset("\n\n\n");
    expectNoPreset(
        "\x7F"
        "ELF\x02\x01\x01");
    expectNoPreset("\x89PNG\r\n\x1A\n");
    expectNoPreset("\xF0\x1D\x03");  // the bytes themselves
    expectNoPreset("\xEF\xBB\xBF" + formattedPreset(state.sysData));
    expectNoPreset("[240, 29, 3, 0, 105]");
}

TEST_F(Refusal, OfAFileOfAnySizeAtOnce) {
    const auto start = std::chrono::steady_clock::now();
    expectNoPreset(std::string(3'000'000, ' ') + formattedPreset(state.sysData));
    expectNoPreset(std::string(3'000'000, '9'));
    write(file, "240\n29\n");
    fs::resize_file(file, std::uintmax_t{1} << 40);
    expectRefusal(file, noPreset);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(Refusal, OfANumberThatIsCutOffWhereReadingEnds) {
    const std::string text = formattedPreset(state.sysData);  // it ends in 247
    expectNoPreset(std::string(config::presetTextLimit + 2 - text.size(), ' ') + text);
}

TEST_F(Refusal, OfAFolder) {
    expectRefusal(folder.path(), notLoaded);  // it cannot be opened for writing
}

TEST_F(Refusal, OfASocket) {
    const files::FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = file;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const void* generic = &address;
    ASSERT_EQ(::bind(socket.get(), static_cast<const sockaddr*>(generic), sizeof address), 0);
    expectRefusal(file, notLoaded);
}

TEST_F(Refusal, OfAPipeWithoutWaitingForIt) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0666), 0);
    files::inChildProcess([&] {
        ::alarm(60);
        expectRefusal(file, noPreset);
    });
}

TEST_F(Refusal, OfADevice) {
    expectRefusal("/dev/zero", noPreset);
}

TEST_F(Refusal, OfAFileThatIsNotThere) {
    expectRefusal(file, notLoaded);
    fs::create_symlink("nowhere", file);
    expectRefusal(file, notLoaded);
}

TEST_F(Refusal, OfAFileThatMayNotBeReadAndWritten) {
    write(file, formattedPreset(state.sysData));
    for (const unsigned mode : {0U, 0222U, 0444U}) {
        fs::permissions(file, fs::perms(mode));
        files::asOrdinaryUser([&] { expectRefusal(file, notLoaded); });
    }
}

TEST_F(Refusal, OfAFileOnAReadOnlyFileSystem) {
    files::withFileSystem(folder.path(), "size=64k", [&] {
        write(file, formattedPreset(state.sysData));
        files::makeReadOnly(folder.path());
        expectRefusal(file, notLoaded);
    });
}

TEST_F(Refusal, OfAFileThatCannotBeReadOnceItIsOpen) {
    // This process's own memory is a regular file, and has no first page.
    expectRefusal("/proc/self/mem", notLoaded);
}

}  // namespace
}  // namespace editor
