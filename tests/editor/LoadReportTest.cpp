// What the status line says of a preset that holds what no controller can take for a message.

#include <gtest/gtest.h>

#include "editor/PresetFiles.h"

namespace editor {
namespace {

class LoadReport : public PresetTest {
protected:
    /// What is said after a load of the fresh configuration with some bytes changed.
    std::string saidAfter(const std::vector<std::pair<std::size_t, int>>& changes) {
        config::Image image = fresh_;
        for (const auto& [place, value] : changes) {
            image.at(place) = static_cast<std::uint8_t>(value);
        }
        files::write(file, formattedPreset(image));
        load(editor, file);
        return window.status.stringValue();
    }

    const config::Image fresh_ = state.sysData;
};

TEST_F(LoadReport, SaysNoMoreOfASoundPreset) {
    EXPECT_EQ(saidAfter({}), "Loaded My preset.Tormelk");
    EXPECT_EQ(saidAfter({{position(2, 87), 0x7F}}), "Loaded My preset.Tormelk");
}

TEST_F(LoadReport, WarnsOfBytesOf0x80OrMoreWithinALayersMessage) {
    EXPECT_EQ(saidAfter({{position(1, 87), 0x80}}),
              "Loaded My preset.Tormelk. Layer 2 holds bytes the controller may not take.");
    EXPECT_EQ(saidAfter({{position(0, 252), 0xF7}, {position(3, 7), 0xFF}}),
              "Loaded My preset.Tormelk. Layers 1 and 4 hold bytes the controller may not take.");
}

TEST_F(LoadReport, WarnsOfAFrameThatIsNone) {
    EXPECT_EQ(
        saidAfter({{position(1, 0), 0x00}, {position(2, 253), 0x00}, {position(3, 6), 3}}),
        "Loaded My preset.Tormelk. Layers 2, 3 and 4 hold bytes the controller may not take.");
}

TEST_F(LoadReport, ChangesNoneOfTheBytes) {
    saidAfter({{position(1, 87), 0x80}});
    EXPECT_EQ(state.sysData.at(position(1, 87)), 0x80);
}

}  // namespace
}  // namespace editor
