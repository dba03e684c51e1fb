#include "editor/shownLayer.h"

#include <gtest/gtest.h>

#include "editor/TestEditor.h"

namespace editor {
namespace {

// What a face shows is what the boxes show once the control is clicked.

TEST_F(UserDefinedTest, AFaceShowsTheLayerThatAClickWouldEdit) {
    for (const int modeLayer : {0, 1, 2, 3}) {
        for (int control = 0; control < config::buttonCount; ++control) {
            editor.clickModeLayer(modeLayer);
            const int promised = shownLayer(state.layers, control);
            editor.click(control);
            EXPECT_EQ(state.layers.layrData, promised) << control;
        }
    }
}

TEST_F(UserDefinedTest, AfterAPadTheOtherFacesShowThePadLayersBlock) {
    editor.clickModeLayer(2);
    EXPECT_EQ(shownLayer(state.layers, 10), 2);
    EXPECT_EQ(shownLayer(state.layers, 70), 0);
    editor.click(70);
    EXPECT_EQ(shownLayer(state.layers, 10), 0) << "a click on it would edit block 0 now";
    editor.clickModeLayer(2);
    EXPECT_EQ(shownLayer(state.layers, 10), 2);
}

}  // namespace
}  // namespace editor
