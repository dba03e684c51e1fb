// The pad editor opened again and again: what it remembers, and which control it starts from.

#include "editor/walk/Walk.h"

namespace walk {

void walkPadEditorLayers(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "opened with a pad selected, the pad is lit and shown",
        [&] {
            d.clickPadLayer(3, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(3);
                    e.pad.litPads = {8};
                    e.pad.chanMod.selected = 0;
                    e.pad.chan.selected = 9;
                    e.pad.msg.selected = 0x33;
                    e.pad.intervl.selected = 39;
                    e.pad.showsCurve(1);
                });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.layers.layrData = 0;
            e.state.pads.isInit2 = 0;
        });
    walk.step(
        "a layer with a constant velocity",
        [&] {
            d.clickPadLayer(2, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(2);
                    e.pad.litPads = {8};
                    e.pad.chanMod.selected = 1;
                    e.pad.chan.selected = 1;
                    e.pad.msg.selected = 0x33;
                    e.pad.intervl.selected = 75;
                    e.pad.showsVelocity(84);
                });
                walk.step(
                    "Curve0", [&] { d.chooseInPadEditor(PadBox::combo_curv, 0); },
                    [&] {
                        e.pad.showsCurve(0);
                        e.both({{755, 0}});
                    });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.layers.layrData = 0;
            e.state.pads.isInit2 = 0;
        });
    walk.step(
        "a curve over velocity 100",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.litPads = {8};
                    e.pad.chanMod.selected = 0;
                    e.pad.chan.selected = 12;
                    e.pad.msg.selected = 0x2D;
                    e.pad.intervl.selected = 0;
                    e.pad.showsVelocity(100);
                });
                walk.step(
                    "Curve1", [&] { d.chooseInPadEditor(PadBox::combo_curv, 1); },
                    [&] {
                        e.pad.showsCurve(1);
                        e.both({{501, 1}});
                    });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.layers.layrData = 0;
            e.state.pads.isInit2 = 0;
        });
    walk.step(
        "the velocity outlives the window",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.litPads = {8};
                    e.pad.chanMod.selected = 0;
                    e.pad.chan.selected = 12;
                    e.pad.msg.selected = 0x2D;
                    e.pad.intervl.selected = 0;
                    e.pad.showsCurve(1);
                });
                walk.step(
                    "Const", [&] { d.chooseInPadEditor(PadBox::combo_curv, 5); },
                    [&] {
                        e.pad.showsVelocity(100);
                        e.working({{501, 100}});
                        e.bytes({{501, 0x54}});
                    });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.holds({{501, 100}});
            e.state.layers.layrData = 0;
            e.state.pads.isInit2 = 0;
        });
}

void walkPadEditorAgain(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;

    walk.step(
        "layer key 34, after a pad from block 0", [&] { d.clickControl(34); },
        [&] {
            e.selects(34, 34);
            e.litModeLayers = {2};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x2E, .trigger = 1});
            e.trig.enabled = true;
        });
    walk.step(
        "the pad editor with a layer key selected, left without a pad",
        [&] {
            d.clickPadLayer(3, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(3);
                    e.pad.chanMod.selected = 0;
                    e.pad.chan.enabled = false;
                    e.pad.msg.enabled = false;
                    e.pad.intervl.selected = 39;
                    e.pad.showsCurve(1);
                });
                walk.step(
                    "All Pads", [&] { d.chooseInPadEditor(PadBox::combo_chanMod, 1); },
                    [&] {
                        e.pad.chanMod.selected = 1;
                        e.pad.chan.enabled = true;
                        e.state.pads.abChAll.set(3, true);
                    });
                walk.step(
                    "channel 6", [&] { d.chooseInPadEditor(PadBox::combo_chan, 5); },
                    [&] {
                        e.pad.chan.selected = 5;
                        e.fillBoth(834, 842, 5);
                    });
                walk.step(
                    "without a pad the channel box stays as it is", [&] { d.clickEditorLayer(2); },
                    [&] {
                        e.pad.litLayers = {2};
                        e.litPadLayers = {2};
                        e.state.pads.m_zPaLayer_CurSel = 2;
                        e.pad.intervl.selected = 75;
                        e.pad.showsCurve(0);
                    });
                d.closePadEditor();
            });
        },
        [&] {
            e.closesPadEditor();
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x2E, .trigger = 2});
        });
    walk.step(
        "the pad editor with a layer key selected, left with a pad",
        [&] {
            d.clickPadLayer(1, [&] {
                walk.padEditorOpened([&] {
                    e.opensPadEditor(1);
                    e.pad.chanMod.selected = 0;
                    e.pad.chan.enabled = false;
                    e.pad.msg.enabled = false;
                    e.pad.intervl.selected = 0;
                    e.pad.showsVelocity(100);
                });
                walk.step(
                    "button p3 is pad 72; the mode layer goes out", [&] { d.clickPad(2); },
                    [&] {
                        e.pad.litPads = {2};
                        e.litControls = {34, 67};
                        e.litModeLayers = {};
                        e.state.pads.m_pad_CurSel = 72;
                        e.pad.chan.selected = 12;
                        e.pad.chan.enabled = true;
                        e.pad.msg.selected = 0x2F;
                        e.pad.msg.enabled = true;
                    });
                d.finish();
            });
        },
        [&] {
            e.closesPadEditor();
            e.state.pads.isInit2 = 0;
            e.selects(72, 67);
            e.state.layers.layrData = 0;
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x4B, .trigger = 0});
            e.trig.enabled = false;
        });
}

}  // namespace walk
