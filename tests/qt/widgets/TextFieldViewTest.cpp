#include "qt/widgets/TextFieldView.h"

#include <gtest/gtest.h>

#include <memory>

namespace qt::widgets {
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

TEST(TextFieldView, CutsWhatFindsNoSpaceAndOnlyThat) {
    toolkit::TextField model;
    model.setStringValue("Const");
    TextFieldView view(model);
    const auto picture = [&view](int width) {
        view.resize(width, view.sizeHint().height());
        return view.grab().toImage();
    };
    const QLabel plain(QStringLiteral("Const"));
    const int whole = view.sizeHint().width();
    EXPECT_EQ(view.sizeHint(), plain.sizeHint());
    const QImage full = picture(whole);
    const QImage cut = picture(whole - 4);
    EXPECT_NE(cut, full.copy(0, 0, cut.width(), cut.height())) << "dots, not half a letter";
    EXPECT_LT(view.minimumSizeHint().width(), 200);
    model.setStringValue(std::string(127, 'W'));
    EXPECT_LT(view.minimumSizeHint().width(), 200);
    EXPECT_EQ(view.text().size(), 127);
}

TEST(TextFieldView, NeverCutsATextWhoseWordsItWraps) {
    toolkit::TextField model;
    model.setStringValue("Only 4 of 12 blocks left this computer");
    TextFieldView view(model);
    view.setWordWrap(true);
    QLabel plain(QStringLiteral("Only 4 of 12 blocks left this computer"));
    plain.setWordWrap(true);
    for (QLabel* label : {static_cast<QLabel*>(&view), &plain}) {
        label->resize(120, 100);
    }
    EXPECT_EQ(view.grab().toImage(), plain.grab().toImage());
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
}  // namespace qt::widgets
