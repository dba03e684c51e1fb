#pragma once

// The firmware window: five numbered steps that lead a controller from its normal mode to a new
// firmware. Every step is an action of a button; they run on the main thread and return when they
// are done, an upload after minutes. upload.cpp is the upload, firm.cpp the rest.

#include <cstdint>
#include <functional>
#include <string>

#include "devices/seldev.h"
#include "firmware/FirmwareState.h"
#include "firmware/confirmation.h"
#include "platform/NotificationCentre.h"
#include "sending/Consignment.h"
#include "sending/Way.h"
#include "toolkit/Button.h"
#include "toolkit/Desktop.h"
#include "toolkit/ProgressIndicator.h"
#include "toolkit/TextField.h"
#include "toolkit/WindowController.h"

namespace firmware {

class firm final : public toolkit::WindowController {
public:
    /// Everything handed in must outlive the window.
    firm(FirmwareState& state, devices::seldevChoice& devices, toolkit::Desktop& desktop);
    firm(const firm&) = delete;
    firm& operator=(const firm&) = delete;
    ~firm() override;

    // What the window holds. No button is ever disabled: one that is pressed too early says what it
    // misses.
    toolkit::Button outputButton;  ///< chooses the output that step 1 needs
    toolkit::Button updateButton;  ///< step 1
    toolkit::Button checkButton;   ///< step 2
    toolkit::Button selectButton;  ///< step 3
    toolkit::Button openButton;    ///< step 4
    toolkit::Button uploadButton;  ///< step 5
    toolkit::Button closeButton;
    toolkit::TextField step1;  ///< what a step stands at, a line each
    toolkit::TextField step2;
    toolkit::TextField step3;
    toolkit::TextField step4;
    toolkit::TextField step5;
    toolkit::ProgressIndicator progress;

    /// The step that makes sense now, 1 to 5; 0 when all is done.
    [[nodiscard]] int nextStep() const;
    /// Runs when `nextStep` may have changed.
    std::function<void()> onNextStep;

    // Actions
    void upDate();      ///< step 1: sends the controller into its update mode
    void midiCheck();   ///< step 2: is it still there?
    void midiSelect();  ///< step 3: chooses the output
    void openFile();    ///< step 4
    void upLoad();      ///< step 5
    void cancel();
    void windowWillClose() override;

    void set_Title();

    // Connected to nothing: no click and no other room reads or writes these. The upload neither
    // asks a controller for its version nor sends one.
    void setFmVer(std::int32_t version) { FmVer_ = version; }
    [[nodiscard]] std::int32_t FmVer() const { return FmVer_; }
    std::int32_t steps = 0;
    std::int32_t DRVversion = 0;

protected:
    void awakeFromNib() override;

private:
    static constexpr int updateModeStep = 1;
    static constexpr int checkStep = 2;
    static constexpr int selectStep = 3;
    static constexpr int openStep = 4;
    static constexpr int lastStep = 5;

    // firm.cpp
    void connectActions();
    void alert(std::string title, std::string message);
    void runDeviceDialog();
    void stepDone(int step);
    void showSteps();
    [[nodiscard]] UploadOutput uploadOutput() const;
    [[nodiscard]] std::string chosenOutputInWords() const;
    [[nodiscard]] std::string chosenFileInWords() const;

    [[nodiscard]] sending::Way way();

    // upload.cpp
    [[nodiscard]] bool mayUpload();
    void transferImage();
    void beginProgress();
    void showProgress(const sending::Receipt& receipt);
    void stopProgress(const sending::Receipt& receipt);
    void followUpload();
    void showOutcome();

    FirmwareState& state_;
    devices::seldevChoice& devices_;
    toolkit::Desktop& desktop_;
    platform::NotificationCentre::Registration setupChanges_;
    std::string checked_;     // what step 2 found
    std::int32_t FmVer_ = 0;  // connected to nothing: see setFmVer
};

}  // namespace firmware
