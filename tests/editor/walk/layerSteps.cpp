// Mode layers in User Defined mode, layer keys as controls, pads beside them, the lock.

#include "editor/walk/Walk.h"

namespace walk {

namespace {

void walkTriggersOfLayer2(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "number 4 in layer 2", [&] { d.choose(MainBox::combo_cc, 4); },
        [&] {
            e.cc.selected = 4;
            e.bytes({{595, 4}});
        });
    walk.step(
        "Momentary in layer 2", [&] { d.choose(MainBox::combo_trig, 0); },
        [&] {
            e.trig.selected = 0;
            e.bytes({{675, 0x09}});
        });
    walk.step(
        "the blank shows the choice of the pad layer's block, Toggle",
        [&] { d.choose(MainBox::combo_trig, 4); },
        [&] {
            e.holds({{167, 0x49}});
            e.trig.selected = 1;
        });
    walk.step(
        "All Momentary in layer 2", [&] { d.choose(MainBox::combo_trig, 2); },
        [&] {
            e.trig.selected = 2;
            e.state.layers.bTrigAll.set(2, true);
            e.fill(675, 721, 0x09);
            e.holds({{722, 0x49}});
        });
    walk.step(
        "the blank looks at the pad layer's flag too", [&] { d.choose(MainBox::combo_trig, 4); },
        [&] { e.trig.selected = 1; });
}

void walkMasterFaderOfLayer2(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "the master fader of layer 2", [&] { d.clickControl(64); },
        [&] {
            e.selects(64, 64);
            e.state.selection.key_sel[2] = 64;
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 8,
                     .number = 0x40,
                     .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step(
        "its channel", [&] { d.choose(MainBox::combo_chan, 6); },
        [&] {
            e.chan.selected = 6;
            e.bytes({{579, 6}});
        });
    walk.step(
        "its number", [&] { d.choose(MainBox::combo_cc, 20); },
        [&] {
            e.cc.selected = 20;
            e.bytes({{659, 20}});
        });
    walk.step(
        "its type", [&] { d.choose(MainBox::combo_type, 2); },
        [&] {
            e.bytes({{739, 0x0C}});
            e.shows(
                {.kind = 2, .numbers = List::Programs, .channel = 6, .number = 20, .trigger = 0});
            e.state.selection.select_type = 2;
        });
}

void walkLock(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "lock", [&] { d.clickLocker(); },
        [&] {
            e.locker = 1;
            e.bytes({{250, 1}, {504, 1}, {758, 1}, {1012, 1}});
        });
    walk.directly(
        "one layer unlocked", [&] { d.state().sysData[758] = 0; },
        [&] {
            e.bytes({{758, 0}});
        });
    walk.step(
        "layer 3 shows its own flag", [&] { d.clickModeLayer(3); },
        [&] {
            e.litModeLayers = {3};
            e.state.layers.m_moLa = 3;
            e.state.layers.layrData = 3;
            e.selects(0, 0);
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x18,
                     .trigger = 1});
        });
    walk.step(
        "layer 2 shows its own flag", [&] { d.clickModeLayer(2); },
        [&] {
            e.locker = 0;
            e.litModeLayers = {2};
            e.state.layers.m_moLa = 2;
            e.state.layers.layrData = 2;
            e.selects(8, 8);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1A, .trigger = 2});
        });
    walk.step(
        "the lock goes by layer 0, and makes all four equal", [&] { d.clickLocker(); },
        [&] {
            e.bytes({{250, 0}, {504, 0}, {1012, 0}});
        });
    walk.step(
        "lock again", [&] { d.clickLocker(); },
        [&] {
            e.locker = 1;
            e.bytes({{250, 1}, {504, 1}, {758, 1}, {1012, 1}});
        });
}

}  // namespace

void walkModeLayers(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "layer key 33 as a control lights mode layer 1 beside 0", [&] { d.clickControl(33); },
        [&] {
            e.selects(33, 33);  // a layer key is not remembered in key_sel
            e.litModeLayers = {0, 1};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x31, .trigger = 1});
        });
    walk.step(
        "its channel", [&] { d.choose(MainBox::combo_chan, 2); },
        [&] {
            e.chan.selected = 2;
            e.bytes({{40, 2}});
        });
    walk.step(
        "mode layer 1 comes with control 0", [&] { d.clickModeLayer(1); },
        [&] {
            e.litModeLayers = {1};
            e.state.layers.m_moLa = 1;
            e.state.layers.layrData = 1;
            e.selects(0, 0);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x18, .trigger = 0});
        });
    walk.step(
        "a control of layer 1", [&] { d.clickControl(3); },
        [&] {
            e.selects(3, 3);
            e.state.selection.key_sel[1] = 3;
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0, .trigger = 0});
        });
    walk.step(
        "its channel", [&] { d.choose(MainBox::combo_chan, 9); },
        [&] {
            e.chan.selected = 9;
            e.bytes({{264, 9}});
        });
    walk.step(
        "its number", [&] { d.choose(MainBox::combo_cc, 60); },
        [&] {
            e.cc.selected = 60;
            e.bytes({{344, 60}});
        });
    walk.step(
        "mode layer 2: the factory's buttons are toggles there", [&] { d.clickModeLayer(2); },
        [&] {
            e.litModeLayers = {2};
            e.state.layers.m_moLa = 2;
            e.state.layers.layrData = 2;
            e.selects(0, 0);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x18, .trigger = 1});
        });
    walkTriggersOfLayer2(walk);
    walkMasterFaderOfLayer2(walk);

    walk.step(
        "back in layer 1 its last control is selected", [&] { d.clickModeLayer(1); },
        [&] {
            e.litModeLayers = {1};
            e.state.layers.m_moLa = 1;
            e.state.layers.layrData = 1;
            e.selects(3, 3);
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 9, .number = 60, .trigger = 0});
            e.trig.enabled = true;
        });
    walk.step("the same layer again", [&] { d.clickModeLayer(1); });
    walk.step(
        "mode layer 3", [&] { d.clickModeLayer(3); },
        [&] {
            e.litModeLayers = {3};
            e.state.layers.m_moLa = 3;
            e.state.layers.layrData = 3;
            e.selects(0, 0);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x18, .trigger = 1});
        });
    walk.step(
        "CC in layer 3", [&] { d.choose(MainBox::combo_type, 1); },
        [&] {
            e.bytes({{929, 0x4B}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x18,
                     .trigger = 1});
            e.state.selection.select_type = 1;
        });
    walk.step(
        "back in layer 0", [&] { d.clickModeLayer(0); },
        [&] {
            e.litModeLayers = {0};
            e.state.layers.m_moLa = 0;
            e.state.layers.layrData = 0;
            e.selects(47, 47);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x27, .trigger = 1});
        });
}

void walkPadsAndLayers(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "pad button 66 is pad 69", [&] { d.clickControl(66); },
        [&] {
            e.selects(69, 66);
            e.litModeLayers = {};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x4A, .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step(
        "from a pad to mode layer 2 and its last control", [&] { d.clickModeLayer(2); },
        [&] {
            e.litModeLayers = {2};
            e.state.layers.m_moLa = 2;
            e.state.layers.layrData = 2;
            e.selects(64, 64);
            e.shows(
                {.kind = 2, .numbers = List::Programs, .channel = 6, .number = 20, .trigger = 0});
        });
    walk.step(
        "pad button 67 is pad 72, shown from pad layer 1", [&] { d.clickControl(67); },
        [&] {
            e.selects(72, 67);
            e.litModeLayers = {};
            e.state.layers.layrData = 0;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x4B, .trigger = 0});
        });
    walk.step(
        "after a pad a control comes from block 0, under mode layer 2", [&] { d.clickControl(8); },
        [&] {
            e.selects(8, 8);
            e.litModeLayers = {2};
            e.state.selection.key_sel[2] = 8;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1A, .trigger = 1});
            e.trig.enabled = true;
        });
    walk.step(
        "and is edited there", [&] { d.choose(MainBox::combo_chan, 7); },
        [&] {
            e.chan.selected = 7;
            e.bytes({{15, 7}});
        });
    walk.step(
        "mode layer 2 brings its block back", [&] { d.clickModeLayer(2); },
        [&] {
            e.state.layers.layrData = 2;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1A, .trigger = 2});
        });
    walk.step(
        "pad layer 1 shows block 0", [&] { d.clickFirstPadLayer(); },
        [&] {
            e.state.layers.layrData = 0;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 7, .number = 0x1A, .trigger = 1});
        });
    walkLock(walk);
}

}  // namespace walk
