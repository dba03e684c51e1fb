#include "describe/assignment.h"

#include <algorithm>
#include <array>

#include "config/modes.h"
#include "tables/data.h"
#include "texts/asciiCase.h"

namespace describe {

namespace {

/// An item of a list; empty where there is none.
std::string_view itemOf(texts::List list, int index) {
    return index >= 0 && index < static_cast<int>(list.size())
               ? list[static_cast<std::size_t>(index)]
               : std::string_view();
}

std::string_view withoutBlanksBefore(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view withoutBlanksBehind(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// What a note does in a host: an item of its list without the note's name before it.
std::string_view functionOfNote(int mode, int note) {
    constexpr std::string_view none = "- - -";
    const std::string_view item = itemOf(tables::data::Midi_Msg1(mode), note);
    const std::size_t nameEnd = item.find(')');
    if (nameEnd == std::string_view::npos) {
        return {};
    }
    const std::string_view function = withoutBlanksBefore(item.substr(nameEnd + 1));
    return function == none ? std::string_view() : function;
}

/// What turning an encoder or moving a fader does. The lists have functions for notes alone; these
/// are worded after their "V_Select CH.1" and "Fader Touch CH.1".
std::string_view functionOfMovement(config::MessageKind kind, int channel, int number) {
    constexpr int firstEncoderController = 16;
    constexpr std::array<std::string_view, 8> encoders = {
        "V-Pot CH.1", "V-Pot CH.2", "V-Pot CH.3", "V-Pot CH.4",
        "V-Pot CH.5", "V-Pot CH.6", "V-Pot CH.7", "V-Pot CH.8",
    };
    constexpr std::array<std::string_view, 9> faders = {
        "Fader CH.1", "Fader CH.2", "Fader CH.3", "Fader CH.4",   "Fader CH.5",
        "Fader CH.6", "Fader CH.7", "Fader CH.8", "Fader Master",
    };
    if (kind == config::MessageKind::PitchBend) {
        return itemOf(faders, channel);
    }
    return kind == config::MessageKind::ControlChange && channel == 0
               ? itemOf(encoders, number - firstEncoderController)
               : std::string_view();
}

/// The hosts take their functions from channel 1; a pad that plays drums on channel 10 is no
/// function key.
std::string_view functionOf(config::MessageKind kind, int channel, int number, int mode) {
    if (mode < config::nuendoMode || mode > config::logicMode) {
        return {};
    }
    if (kind == config::MessageKind::Note) {
        return channel == 0 ? functionOfNote(mode, number) : std::string_view();
    }
    return functionOfMovement(kind, channel, number);
}

std::string sentenceOf(const Assignment& assignment) {
    std::string kind(nameOf(assignment.kind));
    const std::string number = std::to_string(assignment.number);
    switch (assignment.kind) {
        case config::MessageKind::Note: {
            const bool isNote = assignment.number < static_cast<int>(tables::data::Note().size());
            return kind + " " + number + (isNote ? " " + noteText(assignment.number) : "");
        }
        case config::MessageKind::ControlChange: {
            const std::string_view item =
                withoutBlanksBehind(itemOf(tables::data::CC(), assignment.number));
            return kind + " " + (item.empty() ? number : std::string(item));
        }
        case config::MessageKind::ProgramChange:
            return kind + " " + number;
        case config::MessageKind::PitchBend:
        case config::MessageKind::Unknown:
            break;
    }
    return kind;
}

/// "note 10 A#-1" within a sentence.
std::string withinSentence(std::string text) {
    if (!text.empty()) {
        text[0] = texts::lowerCase(text[0]);
    }
    return text;
}

}  // namespace

Assignment assignmentOf(const config::Image& image, int layer, int mode, int control) {
    Assignment assignment;
    if (!config::isLayer(layer) || control < 0 || control >= config::buttonCount) {
        return assignment;
    }
    const int modeByte = config::mode(image, layer, control);
    assignment.kind = config::sentKind(modeByte);
    assignment.channel = config::channel(image, layer, control);
    assignment.number = config::number(image, layer, control);
    assignment.canToggle = control < config::firstEncoder;
    assignment.toggles = assignment.canToggle && config::toggles(modeByte);
    assignment.hostFunction =
        functionOf(assignment.kind, assignment.channel, assignment.number, mode);
    return assignment;
}

std::string noteText(int note) {
    const std::string_view item = itemOf(tables::data::Note(), note);
    const std::size_t open = item.find('(');
    if (open == std::string_view::npos) {
        return "Note " + std::to_string(note);
    }
    const std::string_view octave = item.substr(0, open);
    std::string text(item.substr(open + 1, item.size() - open - 2));
    return text.append(octave);
}

std::string_view nameOf(config::MessageKind kind) {
    switch (kind) {
        case config::MessageKind::Note:
            return "Note";
        case config::MessageKind::ControlChange:
            return "Control change";
        case config::MessageKind::ProgramChange:
            return "Program change";
        case config::MessageKind::PitchBend:
            return "Pitch bend";
        case config::MessageKind::Unknown:
            break;
    }
    return "Unknown message";
}

std::string Assignment::shortText() const {
    if (!hostFunction.empty()) {
        return std::string(hostFunction.substr(hostFunction.find(':') + 1));  // npos + 1 is 0
    }
    switch (kind) {
        case config::MessageKind::Note:
            return noteText(number);
        case config::MessageKind::ControlChange:
            return "CC " + std::to_string(number);
        case config::MessageKind::ProgramChange:
            return "PC " + std::to_string(number);
        case config::MessageKind::PitchBend:
            return "Pitch";
        case config::MessageKind::Unknown:
            break;
    }
    return "?";
}

std::string Assignment::channelText() const {
    return "ch " + std::to_string(channel + 1);
}

std::pair<std::string, std::string> Assignment::faceLines() const {
    const std::string text = shortText();
    if (hostFunction.empty()) {
        return {text, channelText()};
    }
    std::pair<std::string, std::string> lines{text, ""};
    std::size_t longest = std::string::npos;
    for (std::size_t blank = text.find(' '); blank != std::string::npos;
         blank = text.find(' ', blank + 1)) {
        const std::size_t longer = std::max(blank, text.size() - blank - 1);
        if (longer < longest) {
            longest = longer;
            lines = {text.substr(0, blank), text.substr(blank + 1)};
        }
    }
    return lines;
}

std::string Assignment::messageText() const {
    return withinSentence(sentenceOf(*this));
}

std::string Assignment::fullText() const {
    std::string text =
        hostFunction.empty() ? sentenceOf(*this) : std::string(hostFunction) + ": " + messageText();
    text += ", channel " + std::to_string(channel + 1);
    if (canToggle) {
        text += toggles ? ", toggle" : ", momentary";
    }
    return text;
}

}  // namespace describe
