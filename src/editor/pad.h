#pragma once

// The pad editor: the nine pads of pad layers 1 to 3 (shown as 2 to 4), edited in a modal window
// on a working copy of the image. What a change also writes into the live image at once is part of
// the product, although the main window takes the whole working copy back when the editor closes.

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "describe/assignment.h"
#include "editor/Document.h"
#include "editor/EditorState.h"
#include "editor/History.h"
#include "editor/MainWindow.h"
#include "editor/Shown.h"
#include "toolkit/Button.h"
#include "toolkit/ComboBox.h"
#include "toolkit/Desktop.h"
#include "toolkit/TextField.h"
#include "toolkit/WindowController.h"

namespace editor {

class pad final : public toolkit::WindowController {
public:
    /// The document, where there is one, judges whether there are changes to be lost. It learns of
    /// the whole session as one step, from the main window's action that opened this one.
    pad(EditorState& state, MainWindow& mainWindow, toolkit::Desktop& desktop,
        Document* document = nullptr);

    // Outlets. The pad-layer buttons carry the tags 36 to 39; `m_paLa0` is never used.
    toolkit::Button m_paLa0;
    toolkit::Button m_paLa1;
    toolkit::Button m_paLa2;
    toolkit::Button m_paLa3;
    /// The outlets `p1` to `p9`, tags 65 to 73.
    std::array<toolkit::Button, config::padCount> m_pads =
        lightingButtons<config::padCount>(config::firstPad);
    toolkit::Button finish;
    toolkit::TextField tx_Non;         ///< "Const" or "None"
    toolkit::ComboBox combo_chan;      ///< channel of the pad, or of all pads
    toolkit::ComboBox combo_chanMod;   ///< which of the two
    toolkit::ComboBox combo_msg;       ///< note of the pad
    toolkit::ComboBox combo_intervl;   ///< pad interval of the layer: item 0 is 25 ms
    toolkit::ComboBox combo_curv;      ///< velocity curve of the layer
    toolkit::ComboBox combo_curConst;  ///< constant velocity of the layer: item 0 is 20
    toolkit::TextField status;         ///< what the last action did

    /// Tells the view that an action has ended: pads, layer and selection may be others now.
    std::function<void()> actionEnded;

    /// What a pad sends in the layer shown, with the edits made so far.
    [[nodiscard]] describe::Assignment assignmentOfPad(int control) const;
    /// The control last selected, which need not be a pad.
    [[nodiscard]] int currentPad() const { return state_.pads.m_pad_CurSel; }
    /// The pad layer shown, 1 to 3.
    [[nodiscard]] int currentLayer() const { return state_.pads.m_zPaLayer_CurSel; }

    // Undo: each edit is a step while the window is open.
    [[nodiscard]] bool canUndo() const { return history_ && history_->canUndo(); }
    [[nodiscard]] bool canRedo() const { return history_ && history_->canRedo(); }
    [[nodiscard]] std::string_view undoName() const { return history_ ? history_->undoName() : ""; }
    [[nodiscard]] std::string_view redoName() const { return history_ ? history_->redoName() : ""; }
    void undo();
    void redo();

    void awakeFromNib() override;
    void windowWillClose() override;
    void OnFinish();

    void onSele(toolkit::Button& sender);
    /// The operation `pad:`; a constructor's name is not free for it.
    void selectPad(int control);
    void pad_core(int control);
    void data_change_pad(int control);
    void OnzPaLa(toolkit::Button& sender);
    void zPaLa(int padLayer);
    void PaLa(int padLayer);
    void rmVelSel();
    void comboBoxSelectionIsChanging(toolkit::ComboBox& box);

    void setPaCc_domal(int layer, int control, int value);
    void setPaChan_domal(int layer, int control, int value);
    void setPaIntrvl_domal(int layer, int value);
    void setPaCurv_domal(int layer, int value);

    // Not called by anything, and not to be: they take the tag itself for a position. Outside the
    // nine pads they do nothing.
    void cleanPadSel();
    void keepPadSel(int tag);

private:
    /// Everything an edit may change, and what this window and the main one showed then.
    struct Moment {
        EditorState state;
        Shown mainWindow;
        std::array<ShownButton, 3> layers;
        std::array<ShownButton, config::padCount> pads;
        std::array<ShownBox, 6> boxes;
        ShortText tx_Non;
    };

    friend bool sameWork(const Moment& one, const Moment& other) {
        return haveSameWork(one.state, other.state) &&
               one.state.pads.sysbuf_domal == other.state.pads.sysbuf_domal;
    }

    [[nodiscard]] Moment moment();
    void goTo(const Moment& moment);
    template <typename AnyMoment, typename Visit>
    void forEachPart(AnyMoment& moment, Visit visit);

    void connectActions();
    [[nodiscard]] std::array<toolkit::ComboBox*, 6> boxes();
    void actionHasEnded(const Choice& choice = {});
    void tellActionEnded();
    void report(std::string_view text);
    void reportOfLayer(std::string_view text);
    void fillBoxes();
    void showLayerSettings(int padLayer);
    void showVelocity(int padLayer);
    void enableBoxes();

    void chooseChannel(int index);
    void reportConstantVelocity(int velocity);
    void chooseInterval(int index);
    void chooseCurve(int index);
    void chooseConstantVelocity(int index);
    void chooseChannelMode(int index);
    void chooseNote(int index);

    [[nodiscard]] toolkit::Button& ownButtonOf(int control);
    [[nodiscard]] toolkit::Button& mainButtonOf(int control);
    [[nodiscard]] toolkit::Button& layerButton(int padLayer);
    [[nodiscard]] std::int8_t& keptVelocity(int padLayer);

    EditorState& state_;
    MainWindow& mainWindow_;
    toolkit::Desktop& desktop_;
    Document* document_;
    std::optional<History<Moment>> history_;  // from when the window was loaded

    /// The layer buttons by pad layer. The first entry repeats the second.
    std::array<toolkit::Button*, 4> m_paLas_;
};

}  // namespace editor
