#pragma once

#include <gmock/gmock.h>

#include <cstdio>
#include <memory>
#include <random>
#include <sstream>
#include <string>

#include "config/layout.h"
#include "editor/TestEditor.h"
#include "files/TemporaryFolder.h"
#include "support/journal.h"

// What the tests of Save and of Load share.

namespace editor {

/// The text of a preset, as a loop of formatted output writes it.
inline std::string formattedPreset(const config::Image& image) {
    std::string text;
    std::array<char, 8> line{};
    for (std::size_t i = 0; i < 1016; ++i) {
        const int size = std::snprintf(line.data(), line.size(), "%d\n", image.at(i));
        text.append(line.data(), static_cast<std::size_t>(size));
    }
    return text;
}

/// Any bytes behind a preset's first five, in DAW mode `mode`.
inline config::Image randomPreset(unsigned seed, int mode) {
    std::mt19937 random(seed);
    config::Image image{};
    for (std::uint8_t& byte : image) {
        byte = static_cast<std::uint8_t>(random());
    }
    constexpr std::array<std::uint8_t, 5> header{0xF0, 0x1D, 0x03, 0x00, 0x69};
    std::copy(header.begin(), header.end(), image.begin());
    image.at(248) = static_cast<std::uint8_t>(mode);
    return image;
}

inline void describe(std::ostream& out, const toolkit::ComboBox& box) {
    out << box.isEnabled() << ' ' << box.indexOfSelectedItem() << ' ';
    for (const std::string& item : itemsOf(box)) {
        out << item << '|';
    }
    out << '\n';
}

template <typename Values>
void describeAll(std::ostream& out, const Values& values) {
    for (const auto& value : values) {
        out << static_cast<int>(value) << ' ';
    }
    out << '\n';
}

/// All that an editor holds and shows, as a text to compare.
inline std::string everythingIn(const TestEditor& editor) {
    std::ostringstream out;
    const EditorState& state = editor.state;
    describeAll(out, state.sysData);
    describeAll(out, state.stores.SysBuf_MCP);
    describeAll(out, state.stores.SysBuf_usrdef);
    describeAll(out, state.selection.key_sel);
    describeAll(out, std::array{state.selection.keyEvnt, state.selection.keyEvnt_bak,
                                state.selection.keyEvnt_bak_pad, state.selection.msg_Typ,
                                state.selection.select_type, state.selection.selTag2});
    describeAll(out,
                std::array{state.layers.layrData, state.layers.m_moLa, state.layers.m_moLa_bakup,
                           state.layers.m_paLa, state.layers.varPaLaDwn});
    describeAll(out, std::array{state.modes.machn_mod, state.modes.machn_mod_bakup,
                                state.modes.sysExData_modeBackup, state.bChange, state.isInit});
    describeAll(out, state.pads.sysbuf_domal);
    for (int layer = 0; layer < 4; ++layer) {
        out << state.layers.bTrigAll.isSet(layer) << state.pads.abChAll.isSet(layer) << ' ';
    }
    for (const toolkit::ComboBox* box :
         {&editor.window.combo_mode, &editor.window.combo_type, &editor.window.combo_chan,
          &editor.window.combo_cc, &editor.window.combo_trig}) {
        describe(out, *box);
    }
    describeAll(out, editor.litControls());
    describeAll(out, editor.litModeLayers());
    describeAll(out, editor.litPadLayers());
    out << editor.window.locker.state() << editor.window.trigger.state()
        << editor.window.mode_info.stringValue() << editor.window.window.title() << '\n';
    return out.str();
}

inline void save(TestEditor& editor, const std::filesystem::path& path) {
    editor.desktop.answerSavePanel(path);
    editor.controller.saveFile();
}

inline void load(TestEditor& editor, const std::filesystem::path& path) {
    editor.desktop.answerOpenPanel(path);
    editor.controller.loadFile();
}

/// An editor as it starts, and an empty folder for its presets.
class PresetTest : public EditorTest {
protected:
    files::TemporaryFolder folder;
    const std::filesystem::path file = folder / "My preset.Tormelk";
};

}  // namespace editor
