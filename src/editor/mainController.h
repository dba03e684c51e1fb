#pragma once

// The main window's controller: every action of the window, and what the actions are made of. The
// actions are grouped by subject, a file each:
//
//   startUp.cpp       the image is built, the window wakes, the window follows the image
//   selection.cpp     a control is selected and its assignment shown
//   layers.cpp        mode layers, pad layers, the lock
//   properties.cpp    a choice in a property box is written into the image
//   modeSwitch.cpp    DAW modes and User Defined mode
//   typeJudge.cpp     boxes brought in line with the image after a load
//   presetFiles.cpp   Save and Load
//   transfer.cpp      Send
//   undo.cpp          Undo, Redo, another configuration in place of the whole
//   otherWindows.cpp  the other windows, the end of the program
//   unconnected.cpp   what nothing asks for
//
// The pad editor is `pad`. Nothing here draws: the widgets are models.

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/presetText.h"
#include "devices/seldev.h"
#include "editor/Document.h"
#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/about.h"
#include "firmware/FirmwareState.h"
#include "platform/NotificationCentre.h"
#include "platform/PacketList.h"
#include "sending/Consignment.h"
#include "texts/List.h"
#include "toolkit/Desktop.h"

namespace editor {

class mainController {
public:
    /// Builds the image and both stores. Everything handed in must outlive the controller.
    mainController(EditorState& state, MainWindow& window, toolkit::Desktop& desktop,
                   devices::seldevChoice& devices, firmware::FirmwareState& firmware);
    mainController(const mainController&) = delete;
    mainController& operator=(const mainController&) = delete;

    /// The window is loaded: fills the button tables and the boxes.
    void awakeFromNib();

    // Start-up and loads
    void update_Aft_LoadFile();
    void judge();

    // Selection
    void typeSelect1(toolkit::Button& sender);
    void dataChg(int control);
    void dataChgCore(int control);
    void cleanBnSel();
    void keepBnSel(int control);
    void getKeySel(int modeLayer);
    void setKeySel();
    void rmTypSel();
    void rmChanSel();
    void rmTrigSel();
    void rmMsgSel();

    // Mode layers, pad layers, lock
    void onMoLa(toolkit::Button& sender);
    void moLa(int modeLayer);
    void off_MoLa();
    void on_MoLa(int modeLayer);
    void set_MoLa(int modeLayer);
    void set_PaLa(int padLayer);
    void onPaLa(toolkit::Button& sender);
    void paLa(int padLayer);
    void paLa234(int padLayer);
    void pad234();
    void paLa_Pre();
    void paLa_Post(int padLayer);
    void dataChgCore_pad(int control);
    void onLok();
    void lockCheck();

    // Property boxes
    /// A person chose in `box`; boxes of other windows are ignored.
    void comboBoxSelectionIsChanging(toolkit::ComboBox& box);
    /// Position in `combo_type` for a mode byte.
    [[nodiscard]] static int TypOxOX_2Index(int modeByte);
    void toggleGray();
    void triggerEnable();

    // After a load
    void typeJudge();
    void selchange_Aft_TypeJudg();

    // Preset files
    void saveFile();
    void loadFile();

    // Undo. While an action runs, as it does behind the pad editor, there is nothing to undo here.
    [[nodiscard]] bool canUndo() const { return actionsRunning_ == 0 && document_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return actionsRunning_ == 0 && document_.canRedo(); }
    [[nodiscard]] std::string_view undoName() const { return document_.undoName(); }
    [[nodiscard]] std::string_view redoName() const { return document_.redoName(); }
    void undo();
    void redo();
    /// Puts a whole configuration in place as one step that can be undone.
    void takeOver(const config::Configuration& configuration, const std::string& name,
                  int broughtBack = 0);

    // Send
    void sendData();

    // The program and its other windows
    void exit();
    void windowWillClose();
    /// Brings the main window back; the answer is always no.
    [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed();
    void about();
    void midiSelect();
    void firmware();

    // Connected to nothing: no click, menu or event reaches these. See unconnected.cpp.
    void toggle();
    void gradual();
    /// Sets type, value and channel box and the value's caption for one control under the current
    /// mode: the value box offers the functions of the mode's host.
    void lie_note(int control);
    /// A second form of message; the caller owns the list.
    [[nodiscard]] static platform::MIDIPacketListPtr getMidiPacketList();
    void setPaCc_domal(int layer, int control, int value);
    void setPaChan_domal(int layer, int control, int value);
    void setPaIntrvl_domal(int layer, int value);
    void setPaCurv_domal(int layer, int value);
    // Byte copies. Each copies as many bytes as both sides hold.
    static void mamcpy(std::span<const std::uint8_t> source, std::size_t count,
                       std::span<std::uint8_t> destination);
    static void mamcpy2(std::span<const std::uint8_t> source, std::size_t sourceIndex,
                        std::size_t count, std::span<std::uint8_t> destination,
                        std::size_t destinationIndex);
    static void mamcpy2_2des(std::span<const std::uint8_t> source, std::size_t sourceIndex,
                             std::size_t count, std::span<std::uint8_t> destination,
                             std::size_t destinationIndex,
                             std::span<std::uint8_t> secondDestination,
                             std::size_t secondDestinationIndex);
    /// The answer is always yes: there is no question about unsaved changes.
    [[nodiscard]] static bool applicationShouldTerminate();
    void setver(std::int32_t version) { version_ = version; }
    [[nodiscard]] std::int32_t ver() const { return version_; }
    // Connection points; they stay without an effect.
    void typeSelect2() {}
    void substain() {}
    void drv_ver_func() {}
    void next() {}
    void back() {}
    void subUpdate2() {}
    void ik_Push() {}
    void ik_Pop() {}

    /// Whether the image differs from the bytes of the file that was saved or loaded last, or from
    /// the start's.
    [[nodiscard]] bool isImageEdited() const { return document_.differsFromFile(); }

    [[nodiscard]] Document& document() { return document_; }
    [[nodiscard]] const Document& document() const { return document_; }

    [[nodiscard]] const std::string& prog_name() const { return programName_; }

    // For who keeps unsaved work.

    /// Run around everything that sends: a Send, and the firmware window as a whole.
    std::function<void()> onTransferBegin;
    std::function<void()> onTransferEnd;
    /// A save has succeeded.
    std::function<void()> onSaved;

    /// For the view, which shows what the widgets do not hold.
    [[nodiscard]] const EditorState& state() const { return state_; }

private:
    void connectActions();
    void followOutput();
    void showOutput();
    void giveHint(std::string_view hint);
    /// Says in the status line what an action did.
    void report(std::string_view text);
    /// Runs what a person's click or choice is to do, to its end.
    void perform(const std::function<void()>& act, const Choice& choice = {});
    /// Tells the document and the view.
    void actionEnded(const Choice& choice = {});
    void tellView();
    void transfer(const std::function<void()>& act);
    void fillBoxes();
    /// `combo_chan`, `combo_type`, `combo_cc`, `combo_trig`.
    [[nodiscard]] std::array<toolkit::ComboBox*, 4> propertyBoxes();

    /// The button of a control; a pad's is found through `aMapPad`.
    [[nodiscard]] toolkit::Button& buttonOf(int control);
    void showBlank(toolkit::ComboBox& box);
    void showBlanksBesidePadEditor();
    void showControl(texts::List listForUnknownKind);
    void showBlankIfOwn(toolkit::ComboBox& box);
    void showTrigger();
    void showSelectionAfresh();
    void showChannelAfresh();
    void greyTrigger(int control);
    void judgeKind(int modeByte);
    void refillValues(texts::List listForUnknownKind);
    void showAssignment(int layer, int control);

    void refillForKind(int modeByte);
    void labelUserDefined(int control);
    void labelFactoryMode(int mode, int control);

    [[nodiscard]] std::optional<config::PresetBytes> readPreset(const std::filesystem::path& path);
    [[nodiscard]] bool confirmLosingChanges();
    void takePreset(const config::PresetBytes& preset, int mode);

    void copyToWorkingCopy();
    void takeBackPadEdits();
    void showLock(int layer);

    [[nodiscard]] std::vector<int> padLayersThatDifferFrom(const config::Image& before) const;

    void chooseChannel(int index);
    void chooseNumber(int index);
    void chooseKind(int index);
    void chooseTrigger(int index);
    void reportMessageOf(int layer, int control);
    void makeWholeLayerTrigger(int layer, bool toggles);

    void switchMode(int newMode);
    void clearSelection();
    void leaveForFactoryMode();
    void returnToUserDefined();
    void settleInUserDefined(bool modeChanged);

    EditorState& state_;
    MainWindow& window_;
    toolkit::Desktop& desktop_;
    devices::seldevChoice& devices_;
    firmware::FirmwareState& firmware_;

    Document document_;
    int actionsRunning_ = 0;
    std::unique_ptr<editor::about> ab_;         // made on first use, then kept
    std::optional<sending::Consignment> sent_;  // the last one
    platform::NotificationCentre::Registration setupChanges_;
    platform::NotificationCentre::Registration stateChanges_;
    std::string hint_;  // the one given last
    std::string programName_;
    std::int32_t version_ = 0;
};

}  // namespace editor
