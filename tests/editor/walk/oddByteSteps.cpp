// Bytes the boxes never write but a loaded preset may hold, and boxes without a selected control.

#include "editor/walk/Walk.h"
#include "editor/walk/widgets.h"

namespace walk {

namespace {

void walkUnknownKinds(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.directly(
        "a kind that is none", [&] { d.state().sysData[179] = 0x08; },
        [&] {
            e.bytes({{179, 0x08}});
        });
    walk.step(
        "a control of unknown kind is offered the programs", [&] { d.clickControl(12); },
        [&] {
            e.selects(12, 12);
            e.state.selection.key_sel[1] = 12;
            e.shows({.kind = 63,
                     .numbers = List::Programs,
                     .channel = 0,
                     .number = 0x1B,
                     .trigger = 0});
            e.trig.enabled = true;
        });
    walk.step(
        "Note gives it a kind", [&] { d.choose(MainBox::combo_type, 0); },
        [&] {
            e.bytes({{179, 0x09}});
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1B, .trigger = 0});
        });
    walk.directly(
        "the same for a pad", [&] { d.state().sysData[232] = 0x08; },
        [&] {
            e.bytes({{232, 0x08}});
        });
    walk.step(
        "a pad of unknown kind is offered the notes", [&] { d.clickControl(68); },
        [&] {
            e.selects(65, 68);
            e.litModeLayers = {};
            e.shows(
                {.kind = 63, .numbers = List::Notes, .channel = 0, .number = 0x56, .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step(
        "CC gives it a kind", [&] { d.choose(MainBox::combo_type, 1); },
        [&] {
            e.bytes({{232, 0x0B}});
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x56,
                     .trigger = 0});
            e.state.selection.select_type = 1;
        });
}

void walkWithoutControl(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.directly(
        "no control is selected", [&] { d.state().selection.keyEvnt = 127; },
        [&] { e.state.selection.keyEvnt = 127; });
    walk.step(
        "a channel without a control is written nowhere", [&] { d.choose(MainBox::combo_chan, 3); },
        [&] { e.chan.showBlank(); });
    walk.step(
        "nor is a number", [&] { d.choose(MainBox::combo_cc, 5); }, [&] { e.cc.showBlank(); });
    walk.step(
        "nor is a type", [&] { d.choose(MainBox::combo_type, 2); }, [&] { e.type.showBlank(); });
    walk.step(
        "pad layer 1 takes the selection before", [&] { d.clickFirstPadLayer(); },
        [&] {
            e.selects(65, 68);
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 0,
                     .number = 0x56,
                     .trigger = 0});
        });
}

void walkOddCurves(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step("the current layer again", [&] { d.clickEditorLayer(1); });
    walk.step(
        "a curve byte of 144 is negative, and no curve", [&] { d.clickEditorLayer(2); },
        [&] {
            e.pad.litLayers = {2};
            e.litPadLayers = {2};
            e.state.pads.m_zPaLayer_CurSel = 2;
            e.pad.showsCurve(-1);
            e.pad.intervl.selected = 75;
            e.pad.chanMod.selected = 1;
            e.pad.chan.selected = 1;
            e.pad.msg.selected = 0x25;
        });
    walk.step(
        "Const comes with the layer's last velocity",
        [&] { d.chooseInPadEditor(PadBox::combo_curv, 5); },
        [&] {
            e.pad.showsVelocity(84);
            e.working({{755, 84}});
            e.bytes({{755, 0x54}});
        });
    walk.step(
        "back to pad layer 2", [&] { d.clickEditorLayer(1); },
        [&] {
            e.pad.litLayers = {1};
            e.litPadLayers = {1};
            e.state.pads.m_zPaLayer_CurSel = 1;
            e.pad.showsVelocity(6);
            e.pad.curConst.selected = -1;
            e.pad.intervl.selected = 0;
            e.pad.chanMod.selected = 0;
            e.pad.chan.selected = 12;
            e.pad.msg.selected = 0x2C;
        });
    walk.step(
        "Curve0", [&] { d.chooseInPadEditor(PadBox::combo_curv, 0); },
        [&] {
            e.pad.showsCurve(0);
            e.both({{501, 0}});
            e.state.pads.SYSBuf_vel_bak[1] = 6;
        });
    walk.directly(
        "the window's own writers touch the image alone, and the copy-back undoes them",
        [&] {
            d.padEditor()->setPaCc_domal(2, 70, 1);
            d.padEditor()->setPaChan_domal(2, 70, 2);
            d.padEditor()->setPaIntrvl_domal(1, 7);
            d.padEditor()->setPaCurv_domal(1, 10);
        },
        [&] {
            e.bytes({{665, 1}, {585, 2}, {503, 7}, {501, 127}});
        });
    walk.directly(
        "pad layer 1 would be shown", [&] { d.state().pads.m_zPaLayer_CurSel = 0; },
        [&] { e.state.pads.m_zPaLayer_CurSel = 0; });
    walk.step(
        "then a layer button is only lit by the click", [&] { d.clickEditorLayer(3); },
        [&] {
            e.pad.litLayers = {1, 3};
        });
    walk.directly(
        "pad layer 2 is shown again",
        [&] {
            d.state().pads.m_zPaLayer_CurSel = 1;
            layerButtonOf(*d.padEditor(), 3).setState(0);
        },
        [&] {
            e.state.pads.m_zPaLayer_CurSel = 1;
            e.pad.litLayers = {1};
        });
}

}  // namespace

void walkOddBytes(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "a fader with the factory's pitch bend is shown as CC", [&] { d.clickControl(58); },
        [&] {
            e.selects(58, 58);
            e.state.selection.key_sel[1] = 58;
            e.shows({.kind = 1,
                     .numbers = List::Controllers,
                     .channel = 2,
                     .number = 0x3A,
                     .trigger = 0});
            e.trig.enabled = false;
        });
    walk.step("the blank type shows CC again", [&] { d.choose(MainBox::combo_type, 3); });
    walk.step(
        "Note", [&] { d.choose(MainBox::combo_type, 0); },
        [&] {
            e.bytes({{225, 0x09}});
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 2, .number = 0x3A, .trigger = 0});
            e.state.selection.select_type = 0;
        });
    walkUnknownKinds(walk);
    walkWithoutControl(walk);

    walk.directly(
        "curve bytes out of range",
        [&] {
            d.state().sysData[501] = 6;
            d.state().sysData[755] = 0x90;
        },
        [&] {
            e.bytes({{501, 6}, {755, 0x90}});
        });
    walk.step(
        "the pad editor with odd curves",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.litPads = {3};
                    e.pad.chanMod.selected = 0;
                    e.pad.chan.selected = 12;
                    e.pad.msg.selected = 0x2C;
                    e.pad.intervl.selected = 0;
                    e.pad.showsVelocity(6);
                    e.pad.curConst.selected = -1;
                });
                walkOddCurves(walk);
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.holds({{501, 0}, {755, 84}, {665, 0x2F}, {585, 1}, {503, 25}});
            e.state.pads.isInit2 = 0;
            e.state.layers.layrData = 0;
        });
}

}  // namespace walk
