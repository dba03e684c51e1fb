#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <utility>

#include "config/layout.h"
#include "toolkit/Button.h"
#include "toolkit/ComboBox.h"
#include "toolkit/TextField.h"
#include "toolkit/Window.h"

namespace editor {

namespace detail {
template <std::size_t... index>
std::array<toolkit::Button, sizeof...(index)> lightingButtons(int firstTag,
                                                              std::index_sequence<index...>) {
    return {toolkit::Button(toolkit::Button::Click::Lights, firstTag + static_cast<int>(index))...};
}
}  // namespace detail

/// `count` buttons that a click lights, tagged from `firstTag` on.
template <std::size_t count>
std::array<toolkit::Button, count> lightingButtons(int firstTag) {
    return detail::lightingButtons(firstTag, std::make_index_sequence<count>());
}

/// What the main window holds: its widgets under the names its view gives them too.
struct MainWindow {
    toolkit::Window window;

    /// The outlets `encoder0` to `encoder73` in the order of their tags: a button for each control.
    /// A tag is a control index, except that the pads' go through `aPadMap`.
    std::array<toolkit::Button, config::buttonCount> keysOrderedByTag =
        lightingButtons<config::buttonCount>(0);
    /// The outlets `moLa1` to `moLa4`, tags 32 to 35.
    std::array<toolkit::Button, 4> moLaCtrls = lightingButtons<4>(config::firstLayerKey);
    /// The outlets `paLa1` to `paLa4`, tags 36 to 39.
    std::array<toolkit::Button, 4> paLaCtrls = lightingButtons<4>(config::firstTransportKey);

    toolkit::Button locker{toolkit::Button::Click::Flips};
    /// Shows whether byte 73 of the image is set. Nothing is run by a click on it.
    toolkit::Button trigger;

    toolkit::ComboBox combo_mode;  ///< DAW mode
    toolkit::ComboBox combo_type;  ///< message kind
    toolkit::ComboBox combo_chan;  ///< MIDI channel
    toolkit::ComboBox combo_cc;    ///< note, controller or program number
    toolkit::ComboBox combo_trig;  ///< momentary or toggle
    toolkit::TextField mode_info;  ///< caption of `combo_cc`
    toolkit::TextField status;     ///< what the last action did
    toolkit::TextField output;     ///< where a Send goes
    toolkit::Button outputLamp;    ///< lit while the output is online; not clicked

    /// Tells the view that an action has ended: image, layer, mode and selection may be others now.
    std::function<void()> actionEnded;
};

}  // namespace editor
