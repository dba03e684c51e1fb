#include "toolkit/Desktop.h"

#include <gtest/gtest.h>

namespace toolkit {
namespace {

TEST(Desktop, AStoppedModalRunIsToldFromAWindowThatCouldNotBeShown) {
    EXPECT_NE(Desktop::modalStopped, 0);
}

TEST(Alert, HasOneButtonOkUnlessItSaysOtherwise) {
    const Alert alert{"Tormelk Wyro", "Send Done"};
    EXPECT_EQ(alert.defaultButton, "OK");
    EXPECT_EQ(alert.alternateButton, "");
}

TEST(Alert, EqualsAnotherWithTheSameTexts) {
    const Alert alert{"Title", "Message", "Yes", "No"};
    EXPECT_EQ(alert, (Alert{"Title", "Message", "Yes", "No"}));
    EXPECT_NE(alert, (Alert{" Title", "Message", "Yes", "No"}));
    EXPECT_NE(alert, (Alert{"Title", "Message ", "Yes", "No"}));
    EXPECT_NE(alert, (Alert{"Title", "Message", "OK", "No"}));
    EXPECT_NE(alert, (Alert{"Title", "Message", "Yes", ""}));
}

}  // namespace
}  // namespace toolkit
