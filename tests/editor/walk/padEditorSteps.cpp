// The pad editor in User Defined mode: every box, every way between its layers, both ways out.

#include "editor/walk/Walk.h"

namespace walk {

namespace {

void walkUnusedPadEditor(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "pad layer 1 shows block 0 under mode layer 2", [&] { d.clickFirstPadLayer(); },
        [&] {
            e.state.layers.layrData = 0;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 7, .number = 0x1A, .trigger = 1});
        });
    walk.step(
        "the pad editor, left at once: the control is shown from its mode layer again",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.chanMod.selected = 1;  // All Pads, as it was left
                    e.pad.msg.enabled = false;
                    e.pad.intervl.selected = 39;
                    e.pad.showsCurve(1);
                });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.pads.isInit2 = 0;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1A, .trigger = 2});
        });
}

void walkChannelsAndNotes(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "button p1 is pad 70, lit beside the control in the main window", [&] { d.clickPad(0); },
        [&] {
            e.pad.litPads = {0};
            e.litControls = {8, 65};
            e.state.pads.m_pad_CurSel = 70;
            e.pad.chan.selected = 3;
            e.pad.msg.selected = 0x30;
            e.pad.msg.enabled = true;
        });
    walk.step(
        "channel 13 for all nine", [&] { d.chooseInPadEditor(PadBox::combo_chan, 12); },
        [&] {
            e.pad.chan.selected = 12;
            e.fillBoth(326, 334, 12);
        });
    walk.step("the same pad stays lit", [&] { d.clickPad(0); });
    walk.step(
        "Single", [&] { d.chooseInPadEditor(PadBox::combo_chanMod, 0); },
        [&] {
            e.pad.chanMod.selected = 0;
            e.state.pads.abChAll.set(1, false);
        });
    walk.step(
        "channel 1 for pad 70 alone", [&] { d.chooseInPadEditor(PadBox::combo_chan, 0); },
        [&] {
            e.pad.chan.selected = 0;
            e.both({{331, 0}});
        });
    walk.step(
        "its note", [&] { d.chooseInPadEditor(PadBox::combo_msg, 60); },
        [&] {
            e.pad.msg.selected = 60;
            e.both({{411, 60}});
        });
    walk.step(
        "button p9 is pad 67", [&] { d.clickPad(8); },
        [&] {
            e.pad.litPads = {8};
            e.litControls = {8, 73};
            e.state.pads.m_pad_CurSel = 67;
            e.pad.chan.selected = 12;
            e.pad.msg.selected = 0x2D;
        });
}

void walkIntervalAndCurve(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "25 ms: the image takes the position for now",
        [&] { d.chooseInPadEditor(PadBox::combo_intervl, 0); },
        [&] {
            e.pad.intervl.selected = 0;
            e.working({{503, 25}});
            e.bytes({{503, 0}});
        });
    walk.step(
        "Curve3", [&] { d.chooseInPadEditor(PadBox::combo_curv, 3); },
        [&] {
            e.pad.showsCurve(3);
            e.both({{501, 3}});
            e.state.pads.SYSBuf_vel_bak[1] = 1;  // what was there, although it is no velocity
        });
    walk.step(
        "Const for the first time is 84", [&] { d.chooseInPadEditor(PadBox::combo_curv, 5); },
        [&] {
            e.pad.showsVelocity(84);
            e.working({{501, 84}});
            e.bytes({{501, 0x54}});
            e.state.pads.SYSBuf_vel_bak[1] = 84;
        });
    walk.step(
        "velocity 100 does not touch the image",
        [&] { d.chooseInPadEditor(PadBox::combo_curConst, 80); },
        [&] {
            e.pad.curConst.selected = 80;
            e.working({{501, 100}});
            e.state.pads.SYSBuf_vel_bak[1] = 100;
        });
    walk.step("the blank shows 100 again",
              [&] { d.chooseInPadEditor(PadBox::combo_curConst, 108); });
    walk.step(
        "Curve2", [&] { d.chooseInPadEditor(PadBox::combo_curv, 2); },
        [&] {
            e.pad.showsCurve(2);
            e.both({{501, 2}});
        });
    walk.step(
        "Const comes back with 100", [&] { d.chooseInPadEditor(PadBox::combo_curv, 5); },
        [&] {
            e.pad.showsVelocity(100);
            e.working({{501, 100}});
            e.bytes({{501, 0x54}});
        });
    walk.step(
        "Curve4 has a form of its own in the image",
        [&] { d.chooseInPadEditor(PadBox::combo_curv, 4); },
        [&] {
            e.pad.showsCurve(4);
            e.working({{501, 4}});
            e.bytes({{501, 0x44}});
        });
    walk.step(
        "Const again", [&] { d.chooseInPadEditor(PadBox::combo_curv, 5); },
        [&] {
            e.pad.showsVelocity(100);
            e.working({{501, 100}});
            e.bytes({{501, 0x54}});
        });
}

void walkThirdPadLayer(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "pad layer 3 of the same pad", [&] { d.clickEditorLayer(2); },
        [&] {
            e.pad.litLayers = {2};
            e.litPadLayers = {2};
            e.state.pads.m_zPaLayer_CurSel = 2;
            e.pad.intervl.selected = 39;
            e.pad.showsCurve(1);
            e.pad.chan.selected = 9;
            e.pad.msg.selected = 0x33;
        });
    walk.step("the same layer stays lit", [&] { d.clickEditorLayer(2); });
    walk.step(
        "Const there", [&] { d.chooseInPadEditor(PadBox::combo_curv, 5); },
        [&] {
            e.pad.showsVelocity(84);
            e.working({{755, 84}});
            e.bytes({{755, 0x54}});
            e.state.pads.SYSBuf_vel_bak[2] = 84;
        });
    walk.step(
        "100 ms there", [&] { d.chooseInPadEditor(PadBox::combo_intervl, 75); },
        [&] {
            e.pad.intervl.selected = 75;
            e.working({{757, 100}});
            e.bytes({{757, 75}});
        });
    walk.step(
        "All Pads there", [&] { d.chooseInPadEditor(PadBox::combo_chanMod, 1); },
        [&] {
            e.pad.chanMod.selected = 1;
            e.state.pads.abChAll.set(2, true);
        });
    walk.step(
        "channel 2 there", [&] { d.chooseInPadEditor(PadBox::combo_chan, 1); },
        [&] {
            e.pad.chan.selected = 1;
            e.fillBoth(580, 588, 1);
        });
}

void walkOtherPadLayers(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "back to pad layer 2", [&] { d.clickEditorLayer(1); },
        [&] {
            e.pad.litLayers = {1};
            e.litPadLayers = {1};
            e.state.pads.m_zPaLayer_CurSel = 1;
            e.pad.intervl.selected = 0;
            e.pad.showsVelocity(100);
            e.pad.chanMod.selected = 0;
            e.pad.chan.selected = 12;
            e.pad.msg.selected = 0x2D;
        });
    walk.step(
        "on to pad layer 4", [&] { d.clickEditorLayer(3); },
        [&] {
            e.pad.litLayers = {3};
            e.litPadLayers = {3};
            e.state.pads.m_zPaLayer_CurSel = 3;
            e.pad.intervl.selected = 39;
            e.pad.showsCurve(1);
            e.pad.chan.selected = 9;
            e.pad.msg.selected = 0x33;
        });
    walk.step("without Const there is no velocity to choose",
              [&] { d.chooseInPadEditor(PadBox::combo_curConst, 5); });
}

}  // namespace

void walkPadEditor(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walkUnusedPadEditor(walk);
    walk.step(
        "the pad editor, left by its close box with pad 67 of pad layer 4",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.chanMod.selected = 1;
                    e.pad.msg.enabled = false;
                    e.pad.intervl.selected = 39;
                    e.pad.showsCurve(1);
                });
                walkChannelsAndNotes(walk);
                walkIntervalAndCurve(walk);
                walkThirdPadLayer(walk);
                walkOtherPadLayers(walk);
                d.closePadEditor();
            });
        },
        [&] {
            e.closesPadEditor();
            e.holds({{501, 100}, {503, 25}, {755, 84}, {757, 100}});
            e.selects(67, 73);
            e.litModeLayers = {};
            e.state.layers.layrData = 0;  // a pad, so the block of pad layer 1
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x5F, .trigger = 0});
            e.trig.enabled = false;
        });
}

}  // namespace walk
