// From the fresh start, in DAW mode 1: controls are looked at, nothing can be changed.

#include "editor/walk/Walk.h"

namespace walk {

void walkFactoryModes(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step("disabled boxes take no choice", [&] {
        d.choose(MainBox::combo_type, 0);
        d.choose(MainBox::combo_chan, 1);
        d.choose(MainBox::combo_cc, 2);
        d.choose(MainBox::combo_trig, 1);
    });
    walk.step(
        "a strip button: strip 1, second button", [&] { d.clickControl(5); },
        [&] {
            e.selects(5, 5);
            e.shows({.kind = 0, .numbers = List::Notes, .channel = 0, .number = 9, .trigger = 0});
        });
    walk.step("the same button again stays lit", [&] { d.clickControl(5); });
    walk.step(
        "fader 5 sends pitch bend, shown as CC", [&] { d.clickControl(60); },
        [&] {
            e.selects(60, 60);
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 4,
                     .number = 60,
                     .trigger = 0});
        });
    walk.step(
        "a layer key lights its mode-layer button too", [&] { d.clickControl(32); },
        [&] {
            e.selects(32, 32);
            e.litModeLayers = {0};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x30, .trigger = 0});
        });
    walk.step(
        "a mode layer shows its layer key, of the block shown before", [&] { d.clickModeLayer(2); },
        [&] {
            e.selects(34, 34);
            e.litModeLayers = {2};
            e.state.layers.m_moLa = 2;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x2E, .trigger = 0});
        });
    walk.step(
        "pad button 65 is pad 70; the mode layer goes out", [&] { d.clickControl(65); },
        [&] {
            e.selects(70, 65);
            e.litModeLayers = {};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x4E, .trigger = 0});
        });
    walk.step(
        "the current mode layer lights again", [&] { d.clickModeLayer(2); },
        [&] {
            e.selects(34, 34);
            e.litModeLayers = {2};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x2E, .trigger = 0});
        });
    walk.step(
        "unlock", [&] { d.clickLocker(); },
        [&] {
            e.locker = 0;
            e.bytes({{250, 0}, {504, 0}, {758, 0}, {1012, 0}});
        });
    walk.step(
        "lock", [&] { d.clickLocker(); },
        [&] {
            e.locker = 1;
            e.bytes({{250, 1}, {504, 1}, {758, 1}, {1012, 1}});
        });
    walk.step(
        "unlock for what follows", [&] { d.clickLocker(); },
        [&] {
            e.locker = 0;
            e.bytes({{250, 0}, {504, 0}, {758, 0}, {1012, 0}});
        });
    walk.step(
        "pad layer 1 shows the same control of block 0", [&] { d.clickFirstPadLayer(); },
        [&] { e.litPadLayers = {0}; });

    walk.step(
        "Nuendo to HUI: only the mode bytes, and nothing is selected",
        [&] { d.choose(MainBox::combo_mode, 5); },
        [&] {
            e.mode_is(5, 1);
            e.selectsNothing();
            e.cc.fill(List::Nothing);
            e.state.selection.msg_Typ = 1;
        });
    walk.step(
        "in HUI a strip button is CC, without a value list", [&] { d.clickControl(10); },
        [&] {
            e.selects(10, 10);
            e.shows(
                {.kind = 1, .numbers = List::Nothing, .channel = 0, .number = -1, .trigger = 0});
        });
    walk.step(
        "a mode layer in HUI", [&] { d.clickModeLayer(0); },
        [&] {
            e.selects(32, 32);
            e.litModeLayers = {0};
            e.state.layers.m_moLa = 0;
        });
    walk.step(
        "a pad in HUI: button 73 is pad 67", [&] { d.clickControl(73); },
        [&] {
            e.selects(67, 73);
            e.litModeLayers = {};
        });
    walk.step(
        "HUI to Logic", [&] { d.choose(MainBox::combo_mode, 4); },
        [&] {
            e.mode_is(4, 5);
            e.selectsNothing();
            e.cc.fill(List::Programs);  // byte 294, read for "none", is 0: no kind of message
            e.state.selection.msg_Typ = 63;
        });
    walk.step("the mode that is on", [&] { d.choose(MainBox::combo_mode, 4); });
}

void walkPadEditorInFactoryMode(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "the pad editor with nothing selected, closed at once",
        [&] {
            d.clickPadLayer(2, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(2);
                    e.pad.chan.enabled = false;  // one pad's, and there is none
                    e.pad.msg.enabled = false;
                    e.pad.chanMod.selected = 0;
                    e.pad.intervl.selected = 39;  // 64 ms
                    e.pad.showsCurve(1);
                });
                d.closePadEditor();
            });
        },
        [&] { e.closesPadEditor(); });

    walk.step(
        "the pad editor with nothing selected, pads given a channel",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.chan.enabled = false;
                    e.pad.msg.enabled = false;
                    e.pad.chanMod.selected = 0;
                    e.pad.intervl.selected = 39;
                    e.pad.showsCurve(1);
                });
                walk.step("without a pad there is no channel, note or velocity", [&] {
                    d.chooseInPadEditor(PadBox::combo_chan, 4);
                    d.chooseInPadEditor(PadBox::combo_msg, 4);
                    d.chooseInPadEditor(PadBox::combo_curConst, 4);
                });
                walk.step(
                    "All Pads", [&] { d.chooseInPadEditor(PadBox::combo_chanMod, 1); },
                    [&] {
                        e.pad.chanMod.selected = 1;
                        e.pad.chan.enabled = true;
                        e.state.pads.abChAll.set(1, true);
                    });
                walk.step(
                    "channel 4 for all nine", [&] { d.chooseInPadEditor(PadBox::combo_chan, 3); },
                    [&] {
                        e.pad.chan.selected = 3;
                        e.fillBoth(326, 334, 3);
                    });
                walk.step(
                    "button p5 is pad 66", [&] { d.clickPad(4); },
                    [&] {
                        e.pad.litPads = {4};
                        e.litControls = {69};
                        e.state.pads.m_pad_CurSel = 66;
                        e.pad.chan.selected = 3;
                        e.pad.msg.selected = 0x26;
                    });
                walk.step("a note needs a selected control in the main window",
                          [&] { d.chooseInPadEditor(PadBox::combo_msg, 4); });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.pads.isInit2 = 0;
            e.selects(66, 69);  // shown from block 0
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x5B, .trigger = 0});
        });
}

}  // namespace walk
