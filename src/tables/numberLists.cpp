// The lists that count: channels, programs, transpositions, velocities, intervals.

#include "tables/TextTable.h"
#include "tables/data.h"

namespace tables {
namespace {

constexpr int firstVelocity = 20;
constexpr int firstInterval = 25;
constexpr int lowestTransposition = -12;

// This one program has no parenthesis, and gets none: see data.h.
constexpr int programWithoutParenthesis = 112;

constexpr auto channelTexts =
    writeTexts<16>([](Text& text, int channel) { text.append(channel + 1); });

constexpr auto programTexts = writeTexts<128>([](Text& text, int program) {
    text.append(program);
    text.append(program == programWithoutParenthesis ? "---" : ")---");
});

constexpr auto transpositionTexts = writeTexts<25>([](Text& text, int i) {
    const int semitones = lowestTransposition + i;
    if (semitones > 0) {
        text.append('+');
    }
    text.append(semitones);
});

constexpr auto velocityTexts =
    writeTexts<108>([](Text& text, int i) { text.append(firstVelocity + i); });

constexpr auto intervalTexts = writeTexts<76>([](Text& text, int i) {
    text.append(firstInterval + i);
    text.append(" ms");
});

constexpr auto channels = viewsOf(channelTexts);
constexpr auto programs = viewsOf(programTexts);
constexpr auto transpositions = viewsOf(transpositionTexts);
constexpr auto velocities = viewsOf(velocityTexts);
constexpr auto intervals = viewsOf(intervalTexts);

}  // namespace

texts::List data::Chan() {
    return channels;
}
texts::List data::Prog() {
    return programs;
}
texts::List data::Trans() {
    return transpositions;
}
texts::List data::curv5_vel() {
    return velocities;
}
texts::List data::ms() {
    return intervals;
}

}  // namespace tables
