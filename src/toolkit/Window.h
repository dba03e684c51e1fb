#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace toolkit {

/// A window as the program sees it: a title, shown or hidden, in front, closed.
class Window {
public:
    enum class Change { Title, Visibility, Front };

    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void setTitle(std::string_view title);
    [[nodiscard]] const std::string& title() const { return title_; }

    [[nodiscard]] bool isVisible() const { return visible_; }

    /// Shows the window and brings it to the front.
    void makeKeyAndOrderFront();

    /// Hides the window; it is not closed.
    void orderOut();

    /// Closes the window, by a command or by its close box: `windowWillClose` runs, then it hides.
    /// A window that is hidden already is closed all the same. Closing from within
    /// `windowWillClose` does nothing more.
    void close();

    /// The delegate's `windowWillClose:`.
    std::function<void()> windowWillClose;

    /// Tells the one view of this window what changed.
    std::function<void(Change)> onChange;

private:
    void setVisible(bool visible);
    void tell(Change change) const;

    std::string title_;
    bool visible_ = false;
    bool closing_ = false;
};

}  // namespace toolkit
