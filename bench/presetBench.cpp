// Preset files: ours against the plain loop over the C library's formatted input and output.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include "Stopwatch.h"
#include "config/buildImageAndStores.h"
#include "config/presetText.h"
#include "editor/mainController.h"
#include "files/readFile.h"
#include "files/replaceFile.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/software/SoftwareMidiService.h"

namespace {

namespace fs = std::filesystem;
using bench::print;
using bench::printRatio;
using bench::timeInTurn;
using bench::use;
using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A folder for the files, gone afterwards.
class Folder {
public:
    Folder() {
        std::string name = (fs::temp_directory_path() / "tormelk-bench-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            std::perror(name.c_str());
            std::exit(1);
        }
        path_ = name;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code error;
        fs::remove_all(path_, error);
    }
    [[nodiscard]] fs::path operator/(const char* name) const { return path_ / name; }

private:
    fs::path path_;
};

/// Valid in mode 0, any bytes else: their numbers are longer than those of a fresh image.
config::Image someImage() {
    config::Image image{};
    config::Stores stores;
    config::buildImageAndStores(image, stores);
    std::mt19937 random(1);
    for (std::size_t i = 7; i < config::imageSize; ++i) {
        image.at(i) = static_cast<std::uint8_t>(random() % 128);
    }
    config::setTrailerOfEveryLayer(image, config::dawModeOffset, 0);
    return image;
}

void readPlainly(std::FILE* file, config::PresetBytes& bytes) {
    for (std::uint8_t& byte : bytes) {
        int number = 0;
        if (std::fscanf(file, "%d\n", &number) != 1) {
            std::abort();
        }
        byte = static_cast<std::uint8_t>(number);
    }
    use(&bytes);
}

void writePlainly(std::FILE* file, const config::Image& image) {
    for (std::size_t i = 0; i < config::imageSize; ++i) {
        std::fprintf(file, "%d\n", image.at(i));
    }
}

void benchReading(const fs::path& path, std::string text) {
    config::PresetBytes bytes{};
    std::printf("Reading a preset's text\n");
    const auto inMemory = timeInTurn({
        [&] {
            const auto read = config::readPresetText(text);
            use(&read);
        },
        [&] {
            const File file(fmemopen(text.data(), text.size(), "r"), &std::fclose);
            readPlainly(file.get(), bytes);
        },
    });
    print("our reader, from memory", inMemory[0]);
    print("fscanf loop, from memory", inMemory[1]);
    printRatio("reading from memory", inMemory[0], inMemory[1], 5);

    std::printf("Reading a preset file: opened, read, closed\n");
    const auto fromFile = timeInTurn({
        [&] {
            const auto file = files::readFile(path, config::presetTextLimit);
            const auto read = config::readPresetText(file.bytes);
            use(&read);
        },
        [&] {
            const File file(std::fopen(path.c_str(), "r+"), &std::fclose);
            readPlainly(file.get(), bytes);
        },
    });
    print("our reader", fromFile[0]);
    print("fopen, fscanf loop, fclose", fromFile[1]);
    printRatio("reading a file", fromFile[0], fromFile[1], 5);
}

void benchWriting(const fs::path& path, const config::Image& image) {
    std::printf("Writing a preset's text\n");
    const auto inMemory = timeInTurn({
        [&] {
            const std::string text = config::presetText(image);
            use(text.data());
        },
        [&] {
            char* text = nullptr;
            std::size_t size = 0;
            {
                const File file(open_memstream(&text, &size), &std::fclose);
                writePlainly(file.get(), image);
            }
            use(text);
            std::free(text);
        },
    });
    print("our writer, to memory", inMemory[0]);
    print("fprintf loop, to memory", inMemory[1]);
    printRatio(inMemory[0], inMemory[1]);

    std::printf("Saving a preset file: ours is whole or not at all, and on the disk\n");
    const auto toFile = timeInTurn({
        [&] {
            if (!files::replaceFile(path, config::presetText(image)).replaced) {
                std::abort();
            }
        },
        [&] {
            const File file(std::fopen(path.c_str(), "w+"), &std::fclose);
            writePlainly(file.get(), image);
            std::fflush(file.get());
            ::fsync(::fileno(file.get()));
        },
        [&] {
            const File file(std::fopen(path.c_str(), "w+"), &std::fclose);
            writePlainly(file.get(), image);
        },
    });
    print("our save", toFile[0]);
    print("fopen, fprintf loop, fsync, fclose", toFile[1]);
    print("the same without fsync: lost in a power cut", toFile[2]);
    printRatio(toFile[0], toFile[1]);
}

/// A person who picks the same file every time.
class PickingDesktop final : public toolkit::Desktop {
public:
    explicit PickingDesktop(fs::path path) : path_(std::move(path)) {}
    toolkit::AlertAnswer runAlertPanel(const toolkit::Alert& alert) override {
        std::fprintf(stderr, "%s\n", alert.message.c_str());
        std::abort();
    }
    std::optional<fs::path> runSavePanel(const toolkit::SavePanel&) override { return path_; }
    std::optional<fs::path> runOpenPanel(const toolkit::OpenPanel&) override { return path_; }
    int runModalForWindow(toolkit::WindowController&) override { return 0; }
    void stopModal() override {}
    void showWindow(toolkit::WindowController&) override {}
    void sleepForTimeInterval(std::chrono::duration<double>) override {}
    void exit(int status) override { std::exit(status); }

private:
    fs::path path_;
};

void benchLoadCommand(const fs::path& path) {
    platform::software::SoftwareMidiService service;
    platform::NotificationCentre notificationCentre;
    midi::ZQMIDIProcess process(service, notificationCentre);
    devices::seldevChoice devices(process);
    firmware::FirmwareState firmware(process);
    PickingDesktop desktop(path);
    editor::EditorState state;
    editor::MainWindow window;
    editor::mainController controller(state, window, desktop, devices, firmware);
    controller.awakeFromNib();
    window.combo_mode.choose(editor::userDefinedMode);

    std::printf("Load, from the picked file to the last widget that shows it\n");
    constexpr double frame = 16'000;
    const bench::Timing loading = timeInTurn({[&] { controller.loadFile(); }}).front();
    bench::printWithin("the whole command, painting not included", loading, frame);
}

}  // namespace

int main() {
    const Folder folder;
    const fs::path path = folder / "preset.Tormelk";
    const config::Image image = someImage();
    const std::string text = config::presetText(image);
    std::ofstream(path) << text;

    benchReading(path, text);
    benchWriting(folder / "saved.Tormelk", image);
    benchLoadCommand(path);
    return 0;
}
