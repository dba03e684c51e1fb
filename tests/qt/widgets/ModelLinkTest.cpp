#include "qt/widgets/ModelLink.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace qt::widgets {
namespace {

struct Model {
    std::function<void(int)> onChange;
    std::function<void()> actionEnded;
};

TEST(ModelLink, HearsOfChangesAsLongAsItLives) {
    Model model;
    int heard = 0;
    std::optional<ModelLink<Model>> link(std::in_place, model, [&](int value) { heard = value; });
    model.onChange(7);
    EXPECT_EQ(heard, 7);
    link.reset();
    EXPECT_EQ(model.onChange, nullptr);
}

TEST(ModelLink, KnowsWhenItsModelHasGone) {
    std::optional<Model> model(std::in_place);
    const ModelLink<Model> link(*model, [](int) {});
    EXPECT_EQ(link.model(), &*model);
    model.reset();
    EXPECT_EQ(link.model(), nullptr);
}

TEST(ModelLink, KnowsWhenItsModelHasAnotherView) {
    Model model;
    int heard = 0;
    std::optional<ModelLink<Model>> first(std::in_place, model, [](int) {});
    const ModelLink<Model> second(model, [&](int value) { heard = value; });
    EXPECT_EQ(first->model(), nullptr);
    first.reset();
    model.onChange(7);
    EXPECT_EQ(heard, 7);
}

TEST(ModelLink, HearsOfWhatAnotherMemberTells) {
    Model model;
    int heard = 0;
    using Link = ModelLink<Model, &Model::actionEnded>;
    std::optional<Link> link(std::in_place, model, [&] { ++heard; });
    EXPECT_EQ(model.onChange, nullptr);
    model.actionEnded();
    EXPECT_EQ(heard, 1);
    link.reset();
    EXPECT_EQ(model.actionEnded, nullptr);
}

}  // namespace
}  // namespace qt::widgets
