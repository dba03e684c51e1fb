// A pad shown from another pad layer, and what runs after a preset has been loaded, called directly
// with all that a preset may hold.

#include "editor/walk/Walk.h"

namespace walk {

namespace {

void walkKinds(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();
    const auto loads = [&d, &c](int modeByte) {
        d.state().sysData[179] = static_cast<std::uint8_t>(modeByte);
        c.typeJudge();
    };

    walk.directly(
        "a program change is judged", [&] { loads(0x4C); },
        [&] {
            e.bytes({{179, 0x4C}});
            e.type.selected = 2;
        });
    walk.directly(
        "and its list shown", [&] { c.selchange_Aft_TypeJudg(); },
        [&] {
            e.cc.fill(List::Programs);
            e.cc.selected = 10;
        });
    walk.directly(
        "a control change is judged", [&] { loads(0x4B); },
        [&] {
            e.bytes({{179, 0x4B}});
            e.type.selected = 1;
        });
    walk.directly(
        "and its list shown", [&] { c.selchange_Aft_TypeJudg(); },
        [&] {
            e.cc.fill(List::Controllers);
            e.cc.selected = 10;
        });
    walk.directly(
        "pitch bend is judged a note", [&] { loads(0x4E); },
        [&] {
            e.bytes({{179, 0x4E}});
            e.type.selected = 0;
        });
    walk.directly("and shown with the controllers", [&] { c.selchange_Aft_TypeJudg(); });
    walk.directly(
        "an unknown kind is judged a note", [&] { loads(0x48); },
        [&] {
            e.bytes({{179, 0x48}});
        });
    walk.directly("and keeps the list that is there", [&] { c.selchange_Aft_TypeJudg(); });
    walk.directly(
        "an unknown kind under another type becomes a note",
        [&] {
            c.rmTypSel();
            c.selchange_Aft_TypeJudg();
        },
        [&] {
            e.type.selected = 0;
            e.cc.fill(List::Notes);
            e.cc.selected = 10;
        });
    walk.directly(
        "a note", [&] { loads(0x49); },
        [&] {
            e.bytes({{179, 0x49}});
        });
    walk.directly("is shown as such", [&] { c.selchange_Aft_TypeJudg(); });
}

void walkJudgingWithoutControl(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.directly(
        "without a control nothing is judged in User Defined",
        [&] {
            d.state().selection.keyEvnt = 127;
            c.typeJudge();
            c.selchange_Aft_TypeJudg();
        },
        [&] { e.state.selection.keyEvnt = 127; });
    walk.directly(
        "in a factory mode a byte of the next layer is written",
        [&] {
            d.state().sysData[248] = 3;
            c.rmTypSel();
            c.typeJudge();
        },
        [&] {
            e.bytes({{248, 3}, {294, 9}});
            e.state.modes.machn_mod = 3;
            e.type.selected = 0;
        });
    walk.directly("behind the last layer it is dropped", [&] {
        d.state().layers.layrData = 3;
        c.rmTypSel();
        c.typeJudge();
        d.state().layers.layrData = 0;
    });
    walk.directly(
        "with a control its kind becomes note",
        [&] {
            d.state().selection.keyEvnt = 12;
            d.state().sysData[179] = 0xBB;
            c.typeJudge();
        },
        [&] {
            e.state.selection.keyEvnt = 12;
            e.bytes({{179, 0xA9}});
        });
}

/// Other entries are selected, so that it shows which ones are selected anew.
void show(Driver& d, int mode, int number, int channel) {
    d.window().combo_mode.selectItemAtIndex(mode);
    d.window().combo_cc.selectItemAtIndex(number);
    d.window().combo_chan.selectItemAtIndex(channel);
    d.controller().selchange_Aft_TypeJudg();
}

void walkSelectionsAfterJudging(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.directly(
        "in Samplitude number and channel are shown", [&] { show(d, 2, 50, 5); },
        [&] {
            e.mode.selected = 2;
            e.cc.selected = 10;
            e.chan.selected = 0;
        });
    walk.directly(
        "in HUI the channel alone", [&] { show(d, 5, 50, 5); },
        [&] {
            e.mode.selected = 5;
            e.cc.selected = 50;
            e.chan.selected = 0;
        });
    walk.directly(
        "in Nuendo nothing while the window wakes",
        [&] {
            d.state().isInit = 0;
            show(d, 1, 50, 5);
        },
        [&] {
            e.state.isInit = 0;
            e.mode.selected = 1;
            e.chan.selected = 5;
        });
    walk.directly(
        "in User Defined the list alone while the window wakes",
        [&] {
            show(d, 0, 50, 5);
            d.state().isInit = 1;
        },
        [&] {
            e.state.isInit = 1;
            e.mode.selected = 0;
            e.cc.fill(List::Notes);
        });
}

void walkLoads(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    const auto follows = [&d](int mode) {
        d.state().sysData[248] = static_cast<std::uint8_t>(mode);
        d.controller().update_Aft_LoadFile();
    };
    const auto isIn = [&e](int mode) {
        e.bytes({{248, mode}});
        e.mode.selected = mode;
        e.state.modes.machn_mod = mode;
        e.state.modes.sysExData_modeBackup = mode;
    };

    walk.directly(
        "an image in Samplitude mode", [&] { follows(2); },
        [&] {
            isIn(2);
            e.state.layers.bTrigAll.clear();
            e.state.pads.abChAll.clear();
            e.type.enabled = false;
            e.chan.enabled = false;
            e.cc.enabled = false;
            e.cc.fill(List::NuendoFunctions);
            e.cc.selected = 10;
            e.chan.selected = 0;
        });
    walk.directly(
        "an image in HUI mode", [&] { follows(5); },
        [&] {
            isIn(5);
            e.cc.fill(List::Nothing);
        });
    walk.directly(
        "an image in User Defined mode", [&] { follows(0); },
        [&] {
            isIn(0);
            e.type.enabled = true;
            e.chan.enabled = true;
            e.cc.enabled = true;
            e.cc.fill(List::Notes);
            e.cc.selected = 10;
        });
}

}  // namespace

void walkPadOperations(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.directly(
        "a pad clicked in pad layer 3",
        [&] {
            d.state().layers.m_paLa = 2;
            d.clickControl(65);
        },
        [&] {
            e.state.layers.m_paLa = 2;
            e.state.layers.layrData = 2;
            e.state.selection.keyEvnt = 70;  // keyEvnt_bak stays
            e.litControls = {65};
            e.litModeLayers = {};
            e.state.pads.m_zPaLayer_CurSel = 2;
            e.state.pads.m_zPaLayer_FirSel = 2;
            e.takesWorkingCopy();
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 1, .number = 0x2F, .trigger = 0});
            e.trig.enabled = false;
        });
    walk.directly(
        "the same beside the pad editor leaves the working copy",
        [&] {
            d.state().pads.pad_modal = 1;
            d.state().pads.m_zPaLayer_FirSel = 3;
            c.dataChgCore_pad(70);
            d.state().pads.pad_modal = 0;
        },
        [&] { e.state.pads.m_zPaLayer_FirSel = 3; });
    walk.directly(
        "no pad at all",
        [&] {
            d.state().layers.m_paLa = 0;
            d.state().selection.keyEvnt_bak = 70;
            c.dataChgCore_pad(127);
        },
        [&] {
            e.state.layers.m_paLa = 0;
            e.selectsNothing();
            e.cc.fill(List::Notes);
            e.cc.showBlank();
            e.state.selection.msg_Typ = 63;
            e.trig.enabled = true;
        });
    walk.step(
        "a control of layer 2, All Momentary undone by the mode change",
        [&] { d.clickControl(12); },
        [&] {
            e.selects(12, 12);
            e.litModeLayers = {1};
            e.state.selection.key_sel[1] = 12;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1B, .trigger = 3});
        });
    walk.step(
        "All Momentary in layer 2 again", [&] { d.choose(MainBox::combo_trig, 2); },
        [&] {
            e.trig.selected = 2;
            e.fill(675, 721, 0x09);
        });
    walk.directly(
        "a control on the pads' way is shown from the pad layer's block",
        [&] { c.dataChgCore_pad(12); },
        [&] {
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 10, .trigger = 0});
        });
    walk.directly(
        "with the pad layer's choice for all",
        [&] {
            d.state().layers.bTrigAll.set(0, true);
            c.dataChgCore_pad(12);
            d.state().layers.bTrigAll.set(0, false);
        },
        [&] { e.trig.selected = 2; });
}

void walkJudging(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "mode layer 0", [&] { d.clickModeLayer(0); },
        [&] {
            e.state.layers.m_moLa = 0;
            e.state.layers.layrData = 0;
            e.litModeLayers = {0};
            e.selects(47, 47);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x27, .trigger = 0});
        });
    walk.step(
        "a strip button", [&] { d.clickControl(12); },
        [&] {
            e.selects(12, 12);
            e.state.selection.key_sel[0] = 12;
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 10, .trigger = 0});
        });
    walkKinds(walk);
    walkJudgingWithoutControl(walk);
    walkSelectionsAfterJudging(walk);
    walkLoads(walk);
}

void walkBesidePadEditor(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    const auto select = [&d](int control) {
        d.state().pads.pad_modal = 1;
        d.controller().dataChgCore(control);
        d.state().pads.pad_modal = 0;
    };

    // The blank is looked for at the last position of the trigger box: behind the five items of the
    // type box, inside the channel box's list.
    walk.directly(
        "a control beside the open pad editor shows blanks", [&] { select(13); },
        [&] {
            e.selects(13, 13);
            e.cc.fill(List::Nothing);
            e.type.blanks = 2;
            e.type.selected = 4;
            e.chan.blanks = 2;
            e.chan.selected = 17;
            e.trig.selected = 4;
        });
    walk.directly(
        "another one: the type box has a blank at that position now", [&] { select(14); },
        [&] {
            e.selects(14, 14);
            e.chan.blanks = 3;
            e.chan.selected = 18;
        });
}

}  // namespace walk
