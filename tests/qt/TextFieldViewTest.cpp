#include "qt/TextFieldView.h"

#include <gtest/gtest.h>

#include <memory>

namespace qt {
namespace {

TEST(TextFieldView, ShowsAndFollowsItsField) {
    toolkit::TextField model;
    model.setStringValue("Const");
    const TextFieldView view(model);
    EXPECT_EQ(view.text(), QStringLiteral("Const"));
    model.setStringValue("None");
    EXPECT_EQ(view.text(), QStringLiteral("None"));
}

TEST(TextFieldView, ShowsItsOwnTextOnlyWhileTheFieldIsEmpty) {
    toolkit::TextField model;
    const TextFieldView view(model, QStringLiteral("Number"));
    EXPECT_EQ(view.text(), QStringLiteral("Number"));
    model.setStringValue("Note Value");
    EXPECT_EQ(view.text(), QStringLiteral("Note Value"));
    model.setStringValue("");
    EXPECT_EQ(view.text(), QStringLiteral("Number"));
}

TEST(TextFieldView, TakesNoTextForMarkup) {
    toolkit::TextField model;
    model.setStringValue("<b>1</b>");
    const TextFieldView view(model);
    EXPECT_EQ(view.textFormat(), Qt::PlainText);
}

TEST(TextFieldView, LeavesAModelThatOutlivesItAndOutlivesItsModel) {
    auto model = std::make_unique<toolkit::TextField>();
    auto view = std::make_unique<TextFieldView>(*model);
    view.reset();
    EXPECT_FALSE(model->onChange);
    view = std::make_unique<TextFieldView>(*model);
    model->setStringValue("last");
    model.reset();
    EXPECT_EQ(view->text(), QStringLiteral("last"));
}

}  // namespace
}  // namespace qt
