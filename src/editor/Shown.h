#pragma once

// What widgets show, as values: read from the models, compared, kept, and shown again.

#include <array>
#include <cstdint>

#include "editor/MainWindow.h"
#include "editor/ShortText.h"
#include "texts/List.h"
#include "toolkit/Button.h"
#include "toolkit/ComboBox.h"
#include "toolkit/TextField.h"

namespace editor {

struct ShownButton {
    int state = 0;
    bool isEnabled = true;

    bool operator==(const ShownButton&) const = default;
};

/// A box shows one of the fixed lists, and behind it no, one or, where it was blank for long, more
/// blanks.
struct ShownBox {
    texts::List list;
    int blanks = 0;
    int selected = -1;
    bool isEnabled = true;

    bool operator==(const ShownBox& other) const {
        return list.data() == other.list.data() && list.size() == other.list.size() &&
               blanks == other.blanks && selected == other.selected && isEnabled == other.isEnabled;
    }
};

[[nodiscard]] ShownButton shownBy(const toolkit::Button& button);
[[nodiscard]] ShownBox shownBy(const toolkit::ComboBox& box);
[[nodiscard]] ShortText shownBy(const toolkit::TextField& field);

/// Each changes nothing, and tells no view, where the model shows it already.
void show(const ShownButton& shown, toolkit::Button& button);
void show(const ShownBox& shown, toolkit::ComboBox& box);
void show(const ShortText& shown, toolkit::TextField& field);

/// Everything the main window shows of the configuration: all but the status line and the output.
struct Shown {
    ShortText title;
    std::array<ShownButton, config::buttonCount> keysOrderedByTag;
    std::array<ShownButton, 4> moLaCtrls;
    std::array<ShownButton, 4> paLaCtrls;
    ShownButton locker;
    ShownButton trigger;
    ShownBox combo_mode;
    ShownBox combo_type;
    ShownBox combo_chan;
    ShownBox combo_cc;
    ShownBox combo_trig;
    ShortText mode_info;

    bool operator==(const Shown&) const = default;
};

/// Calls `visit(widget, part)` for every widget of the main window that `Shown` has a part for.
template <typename Window, typename ShownParts, typename Visit>
void forEachWidget(Window& window, ShownParts& shown, Visit visit) {
    const auto visitEach = [&visit](auto& widgets, auto& parts) {
        for (std::size_t i = 0; i < widgets.size(); ++i) {
            visit(widgets[i], parts[i]);
        }
    };
    visitEach(window.keysOrderedByTag, shown.keysOrderedByTag);
    visitEach(window.moLaCtrls, shown.moLaCtrls);
    visitEach(window.paLaCtrls, shown.paLaCtrls);
    visit(window.locker, shown.locker);
    visit(window.trigger, shown.trigger);
    visit(window.combo_mode, shown.combo_mode);
    visit(window.combo_type, shown.combo_type);
    visit(window.combo_chan, shown.combo_chan);
    visit(window.combo_cc, shown.combo_cc);
    visit(window.combo_trig, shown.combo_trig);
    visit(window.mode_info, shown.mode_info);
}

[[nodiscard]] Shown shownBy(const MainWindow& window);

/// Shows it. Twice is once; no handler runs.
void show(const Shown& shown, MainWindow& window);

}  // namespace editor
