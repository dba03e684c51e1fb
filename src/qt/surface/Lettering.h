#pragma once

#include <QCache>
#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QString>

#include "qt/surface/SignArt.h"
#include "qt/surface/fittedText.h"

namespace qt::surface {

/// A fitted text with its glyphs in their places, ready to be painted.
struct LaidText : FittedText {
    QList<QGlyphRun> glyphs;  ///< from the start of the text's base line on
};

/// Texts that were fitted and laid out, which takes many times as long as painting them, and the
/// signs beside them. The faces show the same few hundred again and again: "CC 64", "ch 3".
class Lettering {
public:
    /// No more texts are kept than these; what was not asked for the longest goes first.
    static constexpr int mostKept = 2000;

    /// What `fitText` makes of it.
    [[nodiscard]] LaidText fitted(const QString& text, const QFont& font, qreal size, qreal widest);

    [[nodiscard]] SignArt& signs() { return signs_; }

    [[nodiscard]] int kept() const { return static_cast<int>(texts_.size()); }
    void forget() {
        texts_.clear();
        signs_.forget();
    }

private:
    struct Key {
        QString text;
        QFont font;
        qreal size;
        qreal widest;

        bool operator==(const Key&) const = default;
    };
    friend std::size_t qHash(const Key& key, std::size_t seed) {
        return qHashMulti(seed, key.text, key.font.weight(), key.size, key.widest);
    }

    QCache<Key, LaidText> texts_{mostKept};
    SignArt signs_;
};

}  // namespace qt::surface
