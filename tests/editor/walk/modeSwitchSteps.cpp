// User Defined mode and the factory modes to and fro, with every kind of selection.

#include "editor/walk/Walk.h"

namespace walk {

namespace {

void expectUserToFactory(Expected& e, int mode) {
    e.keepsUserDefined();
    e.loadsFactory();
    e.mode_is(mode, 0);
    e.selectsNothing();
    e.cc.fill(mode == 5 ? List::Nothing : List::Programs);
    e.state.selection.msg_Typ = mode == 5 ? 1 : 63;
    e.enablesProperties(false, false);
}

void walkWithPadSelected(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "User Defined to Live with a pad selected", [&] { d.choose(MainBox::combo_mode, 3); },
        [&] {
            expectUserToFactory(e, 3);
            // Exchanged: pads of layer 0 but channel and number of the last one, the master
            // fader's kind, everything below.
            e.holds({{73, 0},
                     {153, 0x5B},
                     {233, 0x09},
                     {71, 8},
                     {151, 0x40},
                     {97, 0x12},
                     {177, 0x09},
                     {240, 0x09},
                     {264, 0},
                     {344, 0},
                     {595, 0x18},
                     {739, 0x0E},
                     {929, 0x49},
                     {223, 0x0E}});
            // Not exchanged: that channel and number; master fader and pads of the other
            // layers; the trailer.
            e.holds({{80, 4},
                     {160, 33},
                     {579, 6},
                     {659, 20},
                     {326, 12},
                     {331, 0},
                     {411, 60},
                     {588, 1},
                     {834, 5},
                     {501, 100},
                     {755, 0},
                     {250, 1}});
        });
    walk.step(
        "Live to Nuendo: only the mode bytes", [&] { d.choose(MainBox::combo_mode, 1); },
        [&] { e.mode_is(1, 3); });
    walk.step(
        "fader 4 is the factory's", [&] { d.clickControl(59); },
        [&] {
            e.selects(59, 59);
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 3,
                     .number = 0x3B,
                     .trigger = 0});
        });
    walk.step(
        "mode layer 1 shows its layer key of block 0", [&] { d.clickModeLayer(1); },
        [&] {
            e.selects(33, 33);
            e.litModeLayers = {1};
            e.state.layers.m_moLa = 1;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x31, .trigger = 0});
        });
    walk.step(
        "Nuendo to User Defined with a layer key: the layer's last control comes",
        [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            e.restoresUserDefined();
            e.holds({{73, 15},
                     {153, 127},
                     {233, 0x0C},
                     {71, 0},
                     {151, 7},
                     {97, 4},
                     {177, 0x59},
                     {187, 0x4B},
                     {214, 0x49},
                     {40, 2},
                     {15, 7},
                     {264, 9},
                     {344, 60},
                     {595, 4},
                     {739, 0x0C},
                     {929, 0x4B},
                     {223, 0x0B}});
            e.mode_is(0, 1);
            e.state.selection.keyEvnt_bak_pad = 33;
            e.selects(3, 3);
            e.shows({.kind = 0,
                     .numbers = List::Notes,
                     .channel = 0,
                     .number = 0,
                     .trigger = 1});  // still from block 0
            e.enablesProperties(true, true);
        });
    walk.step(
        "mode layer 1 brings its block", [&] { d.clickModeLayer(1); },
        [&] {
            e.state.layers.layrData = 1;
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 9, .number = 60, .trigger = 0});
        });
}

void walkHui(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "User Defined to HUI with a control selected", [&] { d.choose(MainBox::combo_mode, 5); },
        [&] { expectUserToFactory(e, 5); });
    walk.step(
        "pad button 70 is pad 71, from block 0", [&] { d.clickControl(70); },
        [&] {
            e.selects(71, 70);
            e.state.layers.layrData = 0;
            e.shows(
                {.kind = 1, .numbers = List::Nothing, .channel = 0, .number = -1, .trigger = 0});
        });
    walk.step(
        "the pad editor in HUI",
        [&] {
            d.clickPadLayer(2, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(2);
                    e.pad.litPads = {5};
                    e.pad.chanMod.selected = 1;
                    e.pad.chan.selected = 1;
                    e.pad.msg.selected = 0x2E;
                    e.pad.intervl.selected = 75;
                    e.pad.showsCurve(0);
                });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.pads.isInit2 = 0;
            e.state.layers.layrData = 0;
        });
    walk.step(
        "HUI to Samplitude", [&] { d.choose(MainBox::combo_mode, 2); },
        [&] {
            e.mode_is(2, 5);
            e.selectsNothing();
            e.cc.fill(List::Programs);
            e.state.selection.msg_Typ = 63;
        });
    walk.step(
        "Samplitude to User Defined with nothing selected",
        [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            e.restoresUserDefined();
            e.mode_is(0, 2);
            e.state.selection.keyEvnt_bak_pad = 127;
            e.selects(3, 3);
            e.litModeLayers = {1};
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0, .trigger = 1});
            e.enablesProperties(true, true);
        });
}

void walkWithControlSelected(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "User Defined to Logic", [&] { d.choose(MainBox::combo_mode, 4); },
        [&] { expectUserToFactory(e, 4); });
    walk.step(
        "a strip button in Logic", [&] { d.clickControl(12); },
        [&] {
            e.selects(12, 12);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1B, .trigger = 0});
        });
    walk.step(
        "Logic to User Defined: the layer's last control, not the one just selected",
        [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            e.restoresUserDefined();
            e.mode_is(0, 4);
            e.state.selection.keyEvnt_bak_pad = 12;
            e.selects(3, 3);
            e.litModeLayers = {1};
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0, .trigger = 1});
            e.enablesProperties(true, true);
        });
    walk.directly(
        "the layer's memory holds none", [&] { d.state().selection.key_sel[1] = 127; },
        [&] { e.state.selection.key_sel[1] = 127; });
    walk.step(
        "User Defined to Nuendo", [&] { d.choose(MainBox::combo_mode, 1); },
        [&] { expectUserToFactory(e, 1); });
    walk.step(
        "a layer without a memory comes with control 0", [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            e.restoresUserDefined();
            e.mode_is(0, 1);
            e.state.selection.keyEvnt_bak_pad = 127;
            e.state.selection.key_sel[1] = 0;
            e.selects(0, 0);
            e.litModeLayers = {1};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x18, .trigger = 1});
            e.enablesProperties(true, true);
        });
}

}  // namespace

void walkModeSwitches(Walk& walk) {
    walkWithPadSelected(walk);
    walkHui(walk);
    walkWithControlSelected(walk);
}

void walkStoreWithoutData(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    const auto comesBackWithControl0 = [&e](int before) {
        e.mode_is(0, before);
        e.selects(0, 0);
        e.litModeLayers = {1};
        e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x18, .trigger = 0});
        e.enablesProperties(true, true);
    };

    walk.step(
        "User Defined to Logic", [&] { d.choose(MainBox::combo_mode, 4); },
        [&] { expectUserToFactory(e, 4); });
    walk.directly(
        "the store's mark is gone", [&] { d.state().stores.SysBuf_usrdef[246] = 0; },
        [&] { e.state.stores.SysBuf_usrdef[246] = 0; });
    walk.step(
        "back in User Defined the factory's assignments stay",
        [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            comesBackWithControl0(4);
            e.title = "Tormelk  - usrdefmoddatNull";
            e.holds({{167, 0x09}, {223, 0x0E}});
        });
    walk.step(
        "User Defined to Nuendo", [&] { d.choose(MainBox::combo_mode, 1); },
        [&] { expectUserToFactory(e, 1); });
    walk.directly(
        "the store's mark is back", [&] { d.state().stores.SysBuf_usrdef[246] = 0x09; },
        [&] { e.state.stores.SysBuf_usrdef[246] = 0x09; });
    walk.step(
        "back in User Defined with what was kept last; the title stays",
        [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            e.restoresUserDefined();
            e.holds({{167, 0x09}, {223, 0x0E}});
            comesBackWithControl0(1);
        });
}

}  // namespace walk
