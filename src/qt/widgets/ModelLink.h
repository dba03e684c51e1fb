#pragma once

#include <memory>
#include <utility>

namespace qt::widgets {

/// Ties a view to its widget model, whichever of the two goes first: the view hears of changes as
/// long as it lives, and `model()` is null as soon as the model is gone or has got another view.
///
/// The model itself holds the only strong reference to a token; it is destroyed with the model.
template <typename Model>
class ModelLink {
public:
    /// `listener` takes what the model's `onChange` takes. It may not destroy the link.
    template <typename Listener>
    ModelLink(Model& model, Listener listener) : model_(&model) {
        auto token = std::make_shared<char>();
        token_ = token;
        model.onChange = [token = std::move(token),
                          listener = std::move(listener)](auto... change) { listener(change...); };
    }
    ModelLink(const ModelLink&) = delete;
    ModelLink& operator=(const ModelLink&) = delete;
    ~ModelLink() {
        if (Model* alive = model()) {
            alive->onChange = nullptr;
        }
    }

    [[nodiscard]] Model* model() const { return token_.expired() ? nullptr : model_; }

private:
    Model* model_;
    std::weak_ptr<char> token_;
};

}  // namespace qt::widgets
