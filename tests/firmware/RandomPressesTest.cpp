// A careless person: every button in any order, dialogs answered at random, devices that come and
// go at any moment. Nothing may break, nothing may stay open, and the upload never starts without
// an OK.

#include <random>

#include "devices/seldev2.h"
#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

class CarelessPerson final : public toolkit::Desktop {
public:
    CarelessPerson(unsigned seed, support::ScriptedMidiService& service,
                   platform::software::Device& device, std::vector<std::filesystem::path> files)
        : random_(seed), service_(service), device_(device), files_(std::move(files)) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }

    toolkit::AlertAnswer runAlertPanel(const toolkit::Alert& alert) override {
        if (alert.title == "Upload") {
            ++uploads;
        }
        plugOrUnplug(4);
        return below(2) == 0 ? toolkit::AlertAnswer::Default : toolkit::AlertAnswer::Alternate;
    }
    std::optional<std::filesystem::path> runSavePanel(const toolkit::SavePanel&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> runOpenPanel(const toolkit::OpenPanel&) override {
        const std::size_t choice = below(files_.size() + 1);
        return choice < files_.size() ? std::optional(files_[choice]) : std::nullopt;
    }
    int runModalForWindow(toolkit::WindowController& controller) override {
        controller.window().makeKeyAndOrderFront();
        plugOrUnplug(4);
        if (auto* confirmation = dynamic_cast<message*>(&controller)) {
            answer(*confirmation);
        } else if (auto* dialog = dynamic_cast<devices::DeviceDialog*>(&controller)) {
            answer(*dialog);
        }
        if (controller.window().isVisible()) {
            controller.window().close();
        }
        return modalStopped;
    }
    void stopModal() override {}
    void showWindow(toolkit::WindowController&) override {}
    void sleepForTimeInterval(std::chrono::duration<double>) override { plugOrUnplug(500); }
    void exit(int status) override { EXPECT_EQ(status, 1); }

    void plugOrUnplug(std::size_t oneIn) {
        if (below(oneIn) != 0) {
            return;
        }
        if (device_.isPlugged()) {
            device_.unplug();
        } else {
            device_.plug();
        }
        if (below(2) == 0) {
            service_.dispatch();
        }
    }

    int agreed = 0;
    int uploads = 0;

private:
    void answer(message& confirmation) {
        if (below(3) != 0) {
            ++agreed;
            confirmation.okButton.click();
        } else {
            confirmation.cancelButton.click();
        }
    }
    void answer(devices::DeviceDialog& dialog) {
        dialog.combo_out.choose(static_cast<int>(below(3)));
        if (below(4) != 0) {
            dialog.okButton.click();
        } else if (below(2) == 0) {
            dialog.cancelButton.click();
        }
    }

    std::mt19937 random_;
    support::ScriptedMidiService& service_;
    platform::software::Device& device_;
    std::vector<std::filesystem::path> files_;
};

class RandomPresses : public FirmwareTest, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomPresses, BreakNothing) {
    plugController();
    service.addDestination("Other");
    files::write(folder / "tormelk-small.bin", someImage(700));
    files::write(folder / "tormelk-empty.bin", "");
    files::write(folder / "tormelk-large.bin", someImage(58000));
    files::write(folder / "other.bin", someImage(100));
    service.at(*output).keepReceived(false);
    CarelessPerson person(
        GetParam(), service, *device,
        {folder / "tormelk-small.bin", folder / "tormelk-empty.bin", folder / "tormelk-large.bin",
         folder / "other.bin", folder / "none", folder.path()});
    auto window = std::make_unique<firm>(state, devices, person);
    for (int press = 0; press < 150; ++press) {
        window->window().makeKeyAndOrderFront();
        toolkit::Button* const buttons[] = {&window->outputButton, &window->updateButton,
                                            &window->checkButton,  &window->selectButton,
                                            &window->openButton,   &window->uploadButton,
                                            &window->closeButton};
        buttons[person.below(7)]->click();
        ASSERT_EQ(service.openOutputPorts(), 0U);
        ASSERT_EQ(person.uploads, person.agreed);
        const int next = window->nextStep();
        ASSERT_TRUE(next >= 0 && next <= 5) << next;
        if (person.below(20) == 0) {
            window = std::make_unique<firm>(state, devices, person);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPresses, testing::Range(1U, 11U));

}  // namespace
}  // namespace firmware
