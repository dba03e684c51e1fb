#include "toolkit/TextField.h"

#include <gtest/gtest.h>

namespace toolkit {
namespace {

TEST(TextField, IsEmptyAtFirst) {
    EXPECT_EQ(TextField().stringValue(), "");
}

TEST(TextField, ShowsTheTextItWasGiven) {
    TextField field;
    std::string text = "C3";
    field.setStringValue(text);
    text = "gone";
    EXPECT_EQ(field.stringValue(), "C3");
    field.setStringValue("");
    EXPECT_EQ(field.stringValue(), "");
}

TEST(TextField, MayBeGivenItsOwnText) {
    TextField field;
    field.setStringValue("a text that is longer than the short string optimisation holds");
    field.setStringValue(field.stringValue());
    EXPECT_EQ(field.stringValue(),
              "a text that is longer than the short string optimisation holds");
    field.setStringValue(std::string_view(field.stringValue()).substr(2, 4));
    EXPECT_EQ(field.stringValue(), "text");
}

TEST(TextField, TellsItsViewOfChangesOnly) {
    TextField field;
    int told = 0;
    field.onChange = [&] { ++told; };
    field.setStringValue("");
    EXPECT_EQ(told, 0);
    field.setStringValue("C3");
    EXPECT_EQ(told, 1);
    field.setStringValue("C3");
    EXPECT_EQ(told, 1);
    field.setStringValue("C4");
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace toolkit
