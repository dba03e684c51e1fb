// Into User Defined mode, and through the boxes for channel, number and message type with a control
// of every group.

#include "editor/walk/Walk.h"

namespace walk {

namespace {

void walkPadAssignment(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "channel 6", [&] { d.choose(MainBox::combo_chan, 5); },
        [&] {
            e.chan.selected = 5;
            e.bytes({{73, 5}});
            e.state.bChange = 1;
        });
    walk.step(
        "note 100", [&] { d.choose(MainBox::combo_cc, 100); },
        [&] {
            e.cc.selected = 100;
            e.bytes({{153, 100}});
        });
    walk.step(
        "CC", [&] { d.choose(MainBox::combo_type, 1); },
        [&] {
            e.bytes({{233, 0x0B}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 5,
                     .number = 100,
                     .trigger = 0});
            e.state.selection.select_type = 1;
        });
    walk.step("the blank type shows CC again", [&] { d.choose(MainBox::combo_type, 3); });
    walk.step("the blank channel shows 6 again", [&] { d.choose(MainBox::combo_chan, 16); });
    walk.step(
        "Program", [&] { d.choose(MainBox::combo_type, 2); },
        [&] {
            e.bytes({{233, 0x0C}});
            e.shows(
                {.kind = 2, .numbers = List::Programs, .channel = 5, .number = 100, .trigger = 0});
            e.state.selection.select_type = 2;
        });
    walk.step("the blank type shows Program again", [&] { d.choose(MainBox::combo_type, 3); });
    walk.step("a pad has no trigger", [&] { d.choose(MainBox::combo_trig, 1); });
    walk.step(
        "the lowest number", [&] { d.choose(MainBox::combo_cc, 0); },
        [&] {
            e.cc.selected = 0;
            e.bytes({{153, 0}});
        });
    walk.step(
        "the highest number", [&] { d.choose(MainBox::combo_cc, 127); },
        [&] {
            e.cc.selected = 127;
            e.bytes({{153, 127}});
        });
    walk.step(
        "the highest channel", [&] { d.choose(MainBox::combo_chan, 15); },
        [&] {
            e.chan.selected = 15;
            e.bytes({{73, 15}});
        });
}

void walkEncodersAndFaders(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "encoder 3", [&] { d.clickControl(50); },
        [&] {
            e.selects(50, 50);
            e.state.selection.key_sel[0] = 50;
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x12,
                     .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step(
        "an encoder that sends notes", [&] { d.choose(MainBox::combo_type, 0); },
        [&] {
            e.bytes({{217, 0x09}});
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x12, .trigger = 0});
            e.state.selection.select_type = 0;
        });
    walk.step(
        "the master fader sends CC in this mode", [&] { d.clickControl(64); },
        [&] {
            e.selects(64, 64);
            e.state.selection.key_sel[0] = 64;
            e.holds({{231, 0x0B}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 8,
                     .number = 0x40,
                     .trigger = 0});
        });
    walk.step(
        "controller 7", [&] { d.choose(MainBox::combo_cc, 7); },
        [&] {
            e.cc.selected = 7;
            e.bytes({{151, 7}});
        });
    walk.step(
        "channel 1", [&] { d.choose(MainBox::combo_chan, 0); },
        [&] {
            e.chan.selected = 0;
            e.bytes({{71, 0}});
        });
}

}  // namespace

void walkAssignments(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "Logic to User Defined with pad 66 selected", [&] { d.choose(MainBox::combo_mode, 0); },
        [&] {
            e.mode_is(0, 4);
            e.state.selection.keyEvnt_bak_pad = 66;
            // The user's faders send CC; all else is still the factory's.
            e.fill(223, 231, 0x0B);
            e.fill(477, 485, 0x0B);
            e.fill(731, 739, 0x0B);
            e.fill(985, 993, 0x0B);
            e.enablesProperties(true, false);
            e.holds({{326, 3}, {334, 3}});  // pads of layer 1 are not exchanged
        });
    walk.step("the mode that is on", [&] { d.choose(MainBox::combo_mode, 0); });
    walkPadAssignment(walk);

    walk.step(
        "a strip button lights the mode layer", [&] { d.clickControl(10); },
        [&] {
            e.selects(10, 10);
            e.litModeLayers = {0};
            e.state.selection.key_sel[0] = 10;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x12, .trigger = 0});
            e.trig.enabled = true;
        });
    walk.step(
        "CC", [&] { d.choose(MainBox::combo_type, 1); },
        [&] {
            e.bytes({{177, 0x0B}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x12,
                     .trigger = 0});
            e.state.selection.select_type = 1;
        });
    walk.step(
        "Note", [&] { d.choose(MainBox::combo_type, 0); },
        [&] {
            e.bytes({{177, 0x09}});
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x12, .trigger = 0});
            e.state.selection.select_type = 0;
        });
    walkEncodersAndFaders(walk);

    walk.step(
        "a transport key", [&] { d.clickControl(36); },
        [&] {
            e.selects(36, 36);
            e.state.selection.key_sel[0] = 36;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x5E, .trigger = 0});
            e.trig.enabled = true;
        });
    walk.step(
        "Program", [&] { d.choose(MainBox::combo_type, 2); },
        [&] {
            e.bytes({{203, 0x0C}});
            e.shows(
                {.kind = 2, .numbers = List::Programs, .channel = 0, .number = 0x5E, .trigger = 0});
            e.state.selection.select_type = 2;
        });
    walk.step(
        "an encoder's push button", [&] { d.clickControl(40); },
        [&] {
            e.selects(40, 40);
            e.state.selection.key_sel[0] = 40;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x20, .trigger = 0});
        });
    walk.step(
        "pad button 71 is pad 73", [&] { d.clickControl(71); },
        [&] {
            e.selects(73, 71);
            e.litModeLayers = {};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x5D, .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step(
        "its channel", [&] { d.choose(MainBox::combo_chan, 4); },
        [&] {
            e.chan.selected = 4;
            e.bytes({{80, 4}});
        });
    walk.step(
        "its number", [&] { d.choose(MainBox::combo_cc, 33); },
        [&] {
            e.cc.selected = 33;
            e.bytes({{160, 33}});
        });
    walk.step(
        "its type", [&] { d.choose(MainBox::combo_type, 1); },
        [&] {
            e.bytes({{240, 0x0B}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 4,
                     .number = 33,
                     .trigger = 0});
            e.state.selection.select_type = 1;
        });
}

}  // namespace walk
