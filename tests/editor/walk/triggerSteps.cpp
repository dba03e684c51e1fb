// Momentary and toggle, for one control and for a whole layer.

#include "editor/walk/Walk.h"

namespace walk {

void walkTriggers(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "a strip button", [&] { d.clickControl(10); },
        [&] {
            e.selects(10, 10);
            e.litModeLayers = {0};
            e.state.selection.key_sel[0] = 10;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x12, .trigger = 0});
            e.trig.enabled = true;
        });
    walk.step(
        "Toggle", [&] { d.choose(MainBox::combo_trig, 1); },
        [&] {
            e.trig.selected = 1;
            e.bytes({{177, 0x49}});
        });
    walk.step(
        "Program keeps the toggle bit", [&] { d.choose(MainBox::combo_type, 2); },
        [&] {
            e.bytes({{177, 0x4C}});
            e.shows(
                {.kind = 2, .numbers = List::Programs, .channel = 0, .number = 0x12, .trigger = 1});
            e.state.selection.select_type = 2;
        });
    walk.step(
        "Momentary", [&] { d.choose(MainBox::combo_trig, 0); },
        [&] {
            e.trig.selected = 0;
            e.bytes({{177, 0x0C}});
        });
    walk.directly(
        "odd bits in two mode bytes",
        [&] {
            d.state().sysData[177] = 0xB9;
            d.state().sysData[187] = 0xA9;
        },
        [&] {
            e.bytes({{177, 0xB9}, {187, 0xA9}});
        });
    walk.step(
        "Toggle clears bits 7 and 5 and keeps bit 4", [&] { d.choose(MainBox::combo_trig, 1); },
        [&] {
            e.trig.selected = 1;
            e.bytes({{177, 0x59}});
        });
    walk.step(
        "All Toggle keeps all bits but bit 6, and leaves control 47",
        [&] { d.choose(MainBox::combo_trig, 3); },
        [&] {
            e.trig.selected = 3;
            e.state.layers.bTrigAll.set(0, true);
            e.fill(167, 213, 0x49);
            e.bytes({{177, 0x59}, {187, 0xE9}, {203, 0x4C}});
            e.holds({{214, 0x09}});
        });
    walk.step(
        "All Momentary", [&] { d.choose(MainBox::combo_trig, 2); },
        [&] {
            e.trig.selected = 2;
            e.fill(167, 213, 0x09);
            e.bytes({{177, 0x19}, {187, 0xA9}, {203, 0x0C}});
        });
    walk.step(
        "the blank stays while the number is not 4", [&] { d.choose(MainBox::combo_trig, 4); },
        [&] { e.trig.selected = 4; });
    walk.step(
        "the control again: bit 4 does not matter to the kind", [&] { d.clickControl(10); },
        [&] {
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x12, .trigger = 2});
        });
    walk.step(
        "number 4", [&] { d.choose(MainBox::combo_cc, 4); },
        [&] {
            e.cc.selected = 4;
            e.bytes({{97, 4}});
        });
    walk.step("now the blank shows All Momentary again", [&] { d.choose(MainBox::combo_trig, 4); });
    walk.step(
        "All Toggle", [&] { d.choose(MainBox::combo_trig, 3); },
        [&] {
            e.trig.selected = 3;
            e.fill(167, 213, 0x49);
            e.bytes({{177, 0x59}, {187, 0xE9}, {203, 0x4C}});
        });
    walk.step("the blank shows All Toggle again", [&] { d.choose(MainBox::combo_trig, 4); });
    walk.step(
        "Momentary for one ends the choice for all", [&] { d.choose(MainBox::combo_trig, 0); },
        [&] {
            e.trig.selected = 0;
            e.state.layers.bTrigAll.set(0, false);
            e.bytes({{177, 0x19}});
        });
    walk.step("the blank shows Momentary again", [&] { d.choose(MainBox::combo_trig, 4); });
}

void walkAllTriggers(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "a control with odd bits", [&] { d.clickControl(20); },
        [&] {
            e.selects(20, 20);
            e.state.selection.key_sel[0] = 20;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1D, .trigger = 1});
        });
    walk.step(
        "CC keeps bits 5 to 7", [&] { d.choose(MainBox::combo_type, 1); },
        [&] {
            e.bytes({{187, 0xEB}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x1D,
                     .trigger = 1});
            e.state.selection.select_type = 1;
        });
    walk.step(
        "Momentary clears them", [&] { d.choose(MainBox::combo_trig, 0); },
        [&] {
            e.trig.selected = 0;
            e.bytes({{187, 0x0B}});
        });
    walk.step(
        "control 47, an encoder's push button", [&] { d.clickControl(47); },
        [&] {
            e.selects(47, 47);
            e.state.selection.key_sel[0] = 47;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x27, .trigger = 0});
        });
    walk.step(
        "All Toggle chosen at control 47 does not reach it",
        [&] { d.choose(MainBox::combo_trig, 3); },
        [&] {
            e.trig.selected = 3;
            e.state.layers.bTrigAll.set(0, true);
            e.bytes({{177, 0x59}, {187, 0x4B}});  // the others are toggles already
            e.holds({{167, 0x49}, {213, 0x49}, {203, 0x4C}, {214, 0x09}});
        });
    walk.step(
        "an encoder shows its own bit", [&] { d.clickControl(48); },
        [&] {
            e.selects(48, 48);
            e.state.selection.key_sel[0] = 48;
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x10,
                     .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step(
        "control 47 shows All Momentary", [&] { d.clickControl(47); },
        [&] {
            e.selects(47, 47);
            e.state.selection.key_sel[0] = 47;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x27, .trigger = 2});
            e.trig.enabled = true;
        });
    walk.step(
        "Toggle", [&] { d.choose(MainBox::combo_trig, 1); },
        [&] {
            e.trig.selected = 1;
            e.state.layers.bTrigAll.set(0, false);
            e.bytes({{214, 0x49}});
        });
}

}  // namespace walk
