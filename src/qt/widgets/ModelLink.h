#pragma once

#include <memory>
#include <utility>

namespace qt::widgets {

/// Ties a view to its widget model, whichever of the two goes first: the view hears of changes as
/// long as it lives, and `model()` is null as soon as the model is gone or has got another view.
///
/// What tells of the changes is the model's `onChange`, or the function member that is named:
///
///     ModelLink<editor::pad, &editor::pad::actionEnded> link{controller, [this] { refresh(); }};
///
/// The model itself holds the only strong reference to a token; it is destroyed with the model.
template <typename Model, auto Hook = &Model::onChange>
class ModelLink {
public:
    /// `listener` takes what the hook takes. It may not destroy the link.
    template <typename Listener>
    ModelLink(Model& model, Listener listener) : model_(&model) {
        auto token = std::make_shared<char>();
        token_ = token;
        model.*Hook = [token = std::move(token), listener = std::move(listener)](auto... change) {
            listener(change...);
        };
    }
    ModelLink(const ModelLink&) = delete;
    ModelLink& operator=(const ModelLink&) = delete;
    ~ModelLink() {
        if (Model* alive = model()) {
            alive->*Hook = nullptr;
        }
    }

    [[nodiscard]] Model* model() const { return token_.expired() ? nullptr : model_; }

private:
    Model* model_;
    std::weak_ptr<char> token_;
};

}  // namespace qt::widgets
