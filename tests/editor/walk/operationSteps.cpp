// Operations that no click or choice reaches, called one by one.

#include "editor/walk/Walk.h"

namespace walk {

namespace {

void walkAbsoluteBytes(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.directly(
        "toggle flips bits 0 and 2 of byte 73", [&] { c.toggle(); },
        [&] {
            e.bytes({{73, 5}});
        });
    walk.directly("enabling the trigger button leaves it lit", [&] { c.triggerEnable(); });
    walk.directly(
        "toggle again", [&] { c.toggle(); },
        [&] {
            e.bytes({{73, 0}});
        });
    walk.directly("enabling the trigger button leaves it out", [&] { c.triggerEnable(); });
    walk.directly(
        "gradual sets byte 75", [&] { c.gradual(); },
        [&] {
            e.bytes({{75, 1}});
        });
    walk.directly(
        "gradual clears it", [&] { c.gradual(); },
        [&] {
            e.bytes({{75, 0}});
        });
    walk.directly("gradual clears any other value", [&] {
        d.state().sysData[75] = 7;
        c.gradual();
    });
}

void walkBlanks(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.step(
        "a strip button", [&] { d.clickControl(12); },
        [&] {
            e.selects(12, 12);
            e.litModeLayers = {1};
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x1B, .trigger = 0});
            e.trig.enabled = true;
        });
    walk.directly(
        "toggleGray", [&] { c.toggleGray(); }, [&] { e.trig.enabled = false; });
    walk.step(
        "the control again", [&] { d.clickControl(12); }, [&] { e.trig.enabled = true; });
    walk.directly(
        "every blank twice is there once",
        [&] {
            for (int time = 0; time < 2; ++time) {
                c.rmTrigSel();
                c.rmTypSel();
                c.rmChanSel();
                c.rmMsgSel();
            }
        },
        [&] {
            e.trig.showBlank();
            e.type.showBlank();
            e.chan.showBlank();
            e.cc.showBlank();
        });
    walk.step(
        "a number from the list with a blank", [&] { d.choose(MainBox::combo_cc, 10); },
        [&] {
            e.cc.selected = 10;
            e.bytes({{99, 10}});
        });
    walk.step("the blank number shows 10 again", [&] { d.choose(MainBox::combo_cc, 128); });
    walk.directly("a box of another window is nobody's", [&] {
        toolkit::ComboBox other;
        other.addItemWithObjectValue("0");
        other.addItemWithObjectValue("1");
        other.selectItemAtIndex(1);
        c.comboBoxSelectionIsChanging(other);
    });
    walk.directly("the connection points do nothing", [&] {
        c.typeSelect2();
        c.substain();
        c.drv_ver_func();
        c.next();
        c.back();
        c.subUpdate2();
        c.ik_Push();
        c.ik_Pop();
    });
}

void walkMemory(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.directly(
        "setKeySel without a memory takes control 0",
        [&] {
            d.state().selection.key_sel[1] = 127;
            c.setKeySel();
        },
        [&] {
            e.state.selection.key_sel[1] = 0;
            e.state.selection.keyEvnt = 0;
        });
    walk.directly(
        "in a factory mode nothing is remembered or taken back",
        [&] {
            d.state().modes.machn_mod = 1;
            d.state().selection.keyEvnt = 20;
            c.getKeySel(1);
            c.setKeySel();
            d.state().modes.machn_mod = 0;
        },
        [&] { e.state.selection.keyEvnt = 20; });
    walk.step(
        "mode layer 1 comes with control 0", [&] { d.clickModeLayer(1); },
        [&] {
            e.state.layers.layrData = 1;
            e.selects(0, 0);
            e.shows(
                {.kind = 0, .numbers = List::Notes, .channel = 0, .number = 0x18, .trigger = 0});
        });
}

void walkLights(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.directly("without a mode layer nothing is lit or put out", [&] {
        c.set_MoLa(255);
        c.off_MoLa();
        c.on_MoLa(255);
        c.set_MoLa(1);
    });
    walk.directly(
        "off_MoLa", [&] { c.off_MoLa(); }, [&] { e.litModeLayers = {}; });
    walk.directly(
        "on_MoLa", [&] { c.on_MoLa(1); }, [&] { e.litModeLayers = {1}; });
    walk.directly(
        "paLa_Post lights a pad layer",
        [&] {
            c.set_PaLa(3);
            c.paLa_Post(3);
        },
        [&] {
            e.state.layers.m_paLa = 3;
            e.litPadLayers = {0, 3};
        });
    walk.directly(
        "paLa_Pre puts the current one out",
        [&] {
            c.paLa_Pre();
            c.set_PaLa(0);
        },
        [&] {
            e.state.layers.m_paLa = 0;
            e.litPadLayers = {0};
        });
    walk.directly("keepBnSel of none", [&] { c.keepBnSel(127); });
    walk.directly(
        "keepBnSel of pad 70", [&] { c.keepBnSel(70); },
        [&] {
            e.litControls = {0, 65};
        });
    walk.directly(
        "cleanBnSel of pad 70",
        [&] {
            d.state().selection.keyEvnt_bak = 70;
            c.cleanBnSel();
        },
        [&] {
            e.litControls = {0};
            e.state.selection.keyEvnt_bak = 70;
        });
    walk.directly(
        "cleanBnSel of none",
        [&] {
            d.state().selection.keyEvnt_bak = 127;
            c.cleanBnSel();
            d.state().selection.keyEvnt_bak = 0;
        },
        [&] { e.state.selection.keyEvnt_bak = 0; });
    walk.directly(
        "lockCheck looks at the mode layer's own byte",
        [&] {
            d.state().sysData[504] = 0;
            c.lockCheck();
        },
        [&] {
            e.bytes({{504, 0}});
            e.locker = 0;
        });
    walk.directly(
        "lockCheck of a byte that is set",
        [&] {
            d.state().sysData[504] = 1;
            c.lockCheck();
        },
        [&] {
            e.bytes({{504, 1}});
            e.locker = 1;
        });
}

void walkWriters(Walk& walk) {
    Driver& d = walk.driver;
    Expected& e = walk.expected;
    editor::mainController& c = d.controller();

    walk.directly(
        "a pad's note", [&] { c.setPaCc_domal(1, 65, 50); },
        [&] {
            e.bytes({{406, 50}});
        });
    walk.directly(
        "a pad's channel", [&] { c.setPaChan_domal(1, 65, 2); },
        [&] {
            e.bytes({{326, 2}});
        });
    walk.directly(
        "a layer's interval", [&] { c.setPaIntrvl_domal(3, 9); },
        [&] {
            e.bytes({{1011, 9}});
        });
    walk.directly(
        "curve 5", [&] { c.setPaCurv_domal(2, 5); },
        [&] {
            e.bytes({{755, 0x54}});
        });
    walk.directly(
        "curve 10", [&] { c.setPaCurv_domal(2, 10); },
        [&] {
            e.bytes({{755, 127}});
        });
    walk.directly(
        "curve 3", [&] { c.setPaCurv_domal(2, 3); },
        [&] {
            e.bytes({{755, 3}});
        });
    walk.directly(
        "curve 4", [&] { c.setPaCurv_domal(2, 4); },
        [&] {
            e.bytes({{755, 0x44}});
        });
    walk.directly(
        "curve 17 keeps eight bits", [&] { c.setPaCurv_domal(2, 17); },
        [&] {
            e.bytes({{755, 0x14}});
        });
}

}  // namespace

void walkOperations(Walk& walk) {
    walkAbsoluteBytes(walk);
    walkBlanks(walk);
    walkMemory(walk);
    walkLights(walk);
    walkWriters(walk);
}

}  // namespace walk
