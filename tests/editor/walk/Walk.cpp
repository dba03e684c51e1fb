#include "editor/walk/Walk.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace walk {

namespace {

/// Gathers what differs, so that a step fails once and says everything.
class Differences {
public:
    template <typename Value>
    void check(const std::string& what, const Value& expected, const Value& actual) {
        if (!(expected == actual)) {
            text_ << "  " << what << ": expected " << expected << ", is " << actual << '\n';
        }
    }

    void check(const std::string& what, const std::set<int>& expected,
               const std::set<int>& actual) {
        check(what, listed(expected), listed(actual));
    }

    void check(const std::string& what, const editor::LayerFlags& expected,
               const editor::LayerFlags& actual) {
        for (int layer = 0; layer < 4; ++layer) {
            check(what + " of layer " + std::to_string(layer), expected.isSet(layer),
                  actual.isSet(layer));
        }
    }

    template <typename Bytes>
    void checkBytes(const std::string& what, const Bytes& expected, const Bytes& actual,
                    std::size_t from = 0) {
        for (std::size_t i = from; i < expected.size(); ++i) {
            check(what + " byte " + std::to_string(i), int{expected.at(i)}, int{actual.at(i)});
        }
    }

    [[nodiscard]] std::string text() const { return text_.str(); }

private:
    static std::string listed(const std::set<int>& numbers) {
        std::string text = "{";
        for (const int number : numbers) {
            text += ' ' + std::to_string(number);
        }
        return text + " }";
    }

    std::ostringstream text_;
};

void compareState(Differences& differences, const editor::EditorState& expected,
                  const editor::EditorState& actual) {
    Differences& d = differences;
    d.checkBytes("sysData", expected.sysData, actual.sysData);
    d.checkBytes("SysBuf_MCP", expected.stores.SysBuf_MCP, actual.stores.SysBuf_MCP);
    d.checkBytes("SysBuf_usrdef", expected.stores.SysBuf_usrdef, actual.stores.SysBuf_usrdef);
    // Block 0 of the working copy is nobody's.
    d.checkBytes("sysbuf_domal", expected.pads.sysbuf_domal, actual.pads.sysbuf_domal, 254);

    d.check("keyEvnt", expected.selection.keyEvnt, actual.selection.keyEvnt);
    d.check("keyEvnt_bak", expected.selection.keyEvnt_bak, actual.selection.keyEvnt_bak);
    d.check("keyEvnt_bak_pad", expected.selection.keyEvnt_bak_pad,
            actual.selection.keyEvnt_bak_pad);
    for (std::size_t layer = 0; layer < 4; ++layer) {
        d.check("key_sel " + std::to_string(layer), expected.selection.key_sel.at(layer),
                actual.selection.key_sel.at(layer));
        d.check("SYSBuf_vel_bak " + std::to_string(layer),
                int{expected.pads.SYSBuf_vel_bak.at(layer)},
                int{actual.pads.SYSBuf_vel_bak.at(layer)});
    }
    d.check("msg_Typ", expected.selection.msg_Typ, actual.selection.msg_Typ);
    d.check("select_type", expected.selection.select_type, actual.selection.select_type);
    d.check("selTag2", expected.selection.selTag2, actual.selection.selTag2);

    d.check("layrData", expected.layers.layrData, actual.layers.layrData);
    d.check("m_moLa", expected.layers.m_moLa, actual.layers.m_moLa);
    d.check("m_moLa_bakup", expected.layers.m_moLa_bakup, actual.layers.m_moLa_bakup);
    d.check("m_paLa", expected.layers.m_paLa, actual.layers.m_paLa);
    d.check("varPaLaDwn", expected.layers.varPaLaDwn, actual.layers.varPaLaDwn);
    d.check("bTrigAll", expected.layers.bTrigAll, actual.layers.bTrigAll);

    d.check("machn_mod", expected.modes.machn_mod, actual.modes.machn_mod);
    d.check("machn_mod_bakup", expected.modes.machn_mod_bakup, actual.modes.machn_mod_bakup);
    d.check("sysExData_modeBackup", expected.modes.sysExData_modeBackup,
            actual.modes.sysExData_modeBackup);

    d.check("m_zPaLayer_CurSel", expected.pads.m_zPaLayer_CurSel, actual.pads.m_zPaLayer_CurSel);
    d.check("m_zPaLayer_FirSel", expected.pads.m_zPaLayer_FirSel, actual.pads.m_zPaLayer_FirSel);
    d.check("m_pad_CurSel", expected.pads.m_pad_CurSel, actual.pads.m_pad_CurSel);
    d.check("pad_modal", expected.pads.pad_modal, actual.pads.pad_modal);
    d.check("abChAll", expected.pads.abChAll, actual.pads.abChAll);
    d.check("isInit2", expected.pads.isInit2, actual.pads.isInit2);

    d.check("bChange", expected.bChange, actual.bChange);
    d.check("isInit", expected.isInit, actual.isInit);
}

void compareBox(Differences& d, const std::string& name, const Box& expected,
                const toolkit::ComboBox& actual) {
    const ListFacts facts = factsOf(expected.list);
    const auto item = [&actual](int index) {
        return std::string(actual.itemObjectValueAtIndex(index).value_or("(no such item)"));
    };
    d.check(name + " items", expected.count(), actual.numberOfItems());
    if (facts.count > 0) {
        d.check(name + " first item", std::string(facts.first), item(0));
        d.check(name + " last item", std::string(facts.last), item(facts.count - 1));
    }
    for (int index = facts.count; index < actual.numberOfItems(); ++index) {
        d.check(name + " item " + std::to_string(index) + " is blank", true,
                toolkit::isBlankEntry(actual.itemObjectValueAtIndex(index).value_or("-")));
    }
    d.check(name + " selection", expected.selected, actual.indexOfSelectedItem());
    d.check(name + " enabled", expected.enabled, actual.isEnabled());
}

template <typename Buttons>
std::set<int> lit(const Buttons& buttons) {
    std::set<int> positions;
    int position = 0;
    for (const toolkit::Button& button : buttons) {
        if (button.state() != 0) {
            positions.insert(position);
        }
        ++position;
    }
    return positions;
}

void compareWindow(Differences& d, const Expected& expected, const editor::MainWindow& actual) {
    d.check("lit controls", expected.litControls, lit(actual.keysOrderedByTag));
    d.check("lit mode layers", expected.litModeLayers, lit(actual.moLaCtrls));
    d.check("lit pad layers", expected.litPadLayers, lit(actual.paLaCtrls));
    for (const toolkit::Button& button : actual.keysOrderedByTag) {
        d.check("encoder" + std::to_string(button.tag()) + " enabled", true, button.isEnabled());
    }
    for (std::size_t layer = 0; layer < 4; ++layer) {
        const std::string name = std::to_string(layer + 1);
        d.check("moLa" + name + " enabled", true, actual.moLaCtrls.at(layer).isEnabled());
        d.check("paLa" + name + " enabled", layer > 0 || expected.firstPadLayerEnabled,
                actual.paLaCtrls.at(layer).isEnabled());
    }
    d.check("locker", expected.locker, actual.locker.state());
    d.check("locker enabled", true, actual.locker.isEnabled());
    // The lamp mirrors byte 73.
    d.check("trigger", expected.state.sysData.at(73) != 0 ? 1 : 0, actual.trigger.state());
    d.check("trigger enabled", true, actual.trigger.isEnabled());
    d.check("window visible", expected.visible, actual.window.isVisible());
    d.check("window title", expected.title, actual.window.title());

    compareBox(d, "combo_mode", expected.mode, actual.combo_mode);
    compareBox(d, "combo_type", expected.type, actual.combo_type);
    compareBox(d, "combo_chan", expected.chan, actual.combo_chan);
    compareBox(d, "combo_cc", expected.cc, actual.combo_cc);
    compareBox(d, "combo_trig", expected.trig, actual.combo_trig);
}

void comparePadEditor(Differences& d, const PadScreen& expected, const editor::pad* pad) {
    d.check("pad editor open", expected.open, pad != nullptr);
    if (!expected.open || pad == nullptr) {
        return;
    }
    std::set<int> litLayers;
    for (const auto& [layer, button] :
         {std::pair{1, &pad->m_paLa1}, std::pair{2, &pad->m_paLa2}, std::pair{3, &pad->m_paLa3}}) {
        if (button->state() != 0) {
            litLayers.insert(layer);
        }
    }
    d.check("pad editor: lit layers", expected.litLayers, litLayers);
    d.check("pad editor: lit pads", expected.litPads, lit(pad->m_pads));
    d.check("tx_Non", expected.velocity, pad->tx_Non.stringValue());
    compareBox(d, "pad editor: combo_chan", expected.chan, pad->combo_chan);
    compareBox(d, "pad editor: combo_chanMod", expected.chanMod, pad->combo_chanMod);
    compareBox(d, "pad editor: combo_msg", expected.msg, pad->combo_msg);
    compareBox(d, "pad editor: combo_intervl", expected.intervl, pad->combo_intervl);
    compareBox(d, "pad editor: combo_curv", expected.curv, pad->combo_curv);
    compareBox(d, "pad editor: combo_curConst", expected.curConst, pad->combo_curConst);
}

}  // namespace

Walk::Walk(Driver& driverOfWalk) : driver(driverOfWalk) {
    expected.title = driver.window().window.title();
    compare("fresh start");
}

void Walk::step(std::string_view what, const std::function<void()>& act,
                const std::function<void()>& expect) {
    act();
    ++steps_;
    if (expect) {
        expect();
    }
    compare(what);
}

void Walk::directly(std::string_view what, const std::function<void()>& act,
                    const std::function<void()>& expect) {
    step(what, act, expect);
}

void Walk::padEditorOpened(const std::function<void()>& expect) {
    step(
        "the pad editor opens", [] {}, expect);
}

void Walk::compare(std::string_view what) {
    Differences differences;
    compareState(differences, expected.state, driver.state());
    compareWindow(differences, expected, driver.window());
    comparePadEditor(differences, expected.pad, driver.padEditor());
    const std::string text = differences.text() + driver.shownOtherwise();
    if (!text.empty()) {
        ADD_FAILURE() << "step " << steps_ << " (" << what << ")\n" << text;
    }
}

void walkAll(Walk& walk) {
    walkFactoryModes(walk);
    walkPadEditorInFactoryMode(walk);
    walkAssignments(walk);
    walkTriggers(walk);
    walkAllTriggers(walk);
    walkModeLayers(walk);
    walkPadsAndLayers(walk);
    walkPadEditor(walk);
    walkPadEditorLayers(walk);
    walkPadEditorAgain(walk);
    walkModeSwitches(walk);
    walkStoreWithoutData(walk);
    walkOddBytes(walk);
    walkOperations(walk);
    walkPadOperations(walk);
    walkJudging(walk);
    walkBesidePadEditor(walk);
}

}  // namespace walk
