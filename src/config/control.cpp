#include "config/control.h"

namespace config {
namespace {

constexpr int toggleBit = 0x40;
constexpr int lowBits = 0x0F;   // the kind
constexpr int kindBits = 0x1F;  // the kind and bit 4

int bitsOf(MessageKind kind) {
    switch (kind) {
        case MessageKind::Note:
            return 0x09;
        case MessageKind::ControlChange:
            return 0x0B;
        case MessageKind::ProgramChange:
            return 0x0C;
        case MessageKind::PitchBend:
            return 0x0E;
        case MessageKind::Unknown:
            break;
    }
    return 0;
}

}  // namespace

MessageKind sentKind(int modeByte) {
    for (const MessageKind kind : {MessageKind::Note, MessageKind::ControlChange,
                                   MessageKind::ProgramChange, MessageKind::PitchBend}) {
        if ((modeByte & lowBits) == bitsOf(kind)) {
            return kind;
        }
    }
    return MessageKind::Unknown;
}

MessageKind shownKind(int modeByte) {
    const MessageKind kind = sentKind(modeByte);
    return kind == MessageKind::PitchBend ? MessageKind::ControlChange : kind;
}

MessageKind kindAfterLoad(int modeByte) {
    const MessageKind kind = sentKind(modeByte);
    return kind == MessageKind::ControlChange || kind == MessageKind::ProgramChange
               ? kind
               : MessageKind::Note;
}

MessageKind kindBehindBlank(int modeByte) {
    switch ((modeByte & 0x06) >> 1) {
        case 0:
            return MessageKind::Note;
        case 2:
            return MessageKind::ProgramChange;
        default:
            return MessageKind::ControlChange;
    }
}

bool toggles(int modeByte) {
    return (modeByte & toggleBit) != 0;
}

int withKind(int modeByte, MessageKind kind) {
    return (modeByte & ~kindBits) | bitsOf(kind);
}

int withKindKeepingBit4(int modeByte, MessageKind kind) {
    return (modeByte & ~lowBits) | bitsOf(kind);
}

int withTrigger(int modeByte, bool toggle) {
    return (modeByte & kindBits) | (toggle ? toggleBit : 0);
}

int withTriggerOfLayer(int modeByte, bool toggle) {
    return (modeByte & ~toggleBit) | (toggle ? toggleBit : 0);
}

}  // namespace config
