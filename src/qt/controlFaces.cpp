#include "qt/controlFaces.h"

#include <array>

#include "config/layout.h"

namespace qt {

namespace {

using Shape = ControlButton::Shape;

constexpr int buttonsOfAStrip = 4;
constexpr std::array stripButtons = {"Select", "Solo", "Mute", "Rec"};
constexpr std::array layerKeys = {"Ch Left", "Ch Right", "Bank Left", "Bank Right"};
constexpr std::array layerKeyNames = {"channel left", "channel right", "bank left", "bank right"};
constexpr std::array transportKeys = {"Play", "Stop", "Rewind", "Fast Fwd"};
constexpr std::array transportKeyNames = {"play", "stop", "rewind", "fast forward"};

template <typename Texts>
QString from(const Texts& texts, int index) {
    return QString::fromLatin1(texts[static_cast<std::size_t>(index)]);
}

ControlFace stripFace(int tag) {
    const QString caption = from(stripButtons, tag % buttonsOfAStrip);
    return {Shape::Key, caption,
            QStringLiteral("Strip %1 %2").arg(tag / buttonsOfAStrip + 1).arg(caption.toLower())};
}

/// One of a row of eight, or nine with the master.
ControlFace rowFace(Shape shape, const char* caption, const char* name, int strip) {
    return {shape, QString::fromLatin1(caption),
            QStringLiteral("Strip %1 %2").arg(strip + 1).arg(QString::fromLatin1(name))};
}

ControlFace keyFace(const QString& caption, const char* kind, int index, const QString& name) {
    return {Shape::Key, caption,
            QStringLiteral("%1 %2: %3").arg(QString::fromLatin1(kind)).arg(index + 1).arg(name)};
}

}  // namespace

ControlFace faceOf(int tag) {
    using namespace config;
    if (tag < firstLayerKey) {
        return stripFace(tag);
    }
    if (tag < firstTransportKey) {
        const int key = tag - firstLayerKey;
        return keyFace(from(layerKeys, key), "Layer key", key, from(layerKeyNames, key));
    }
    if (tag < firstEncoderPush) {
        const int key = tag - firstTransportKey;
        return keyFace(from(transportKeys, key), "Transport key", key,
                       from(transportKeyNames, key));
    }
    if (tag < firstEncoder) {
        return rowFace(Shape::Key, "Push", "encoder push", tag - firstEncoderPush);
    }
    if (tag < firstFader) {
        return rowFace(Shape::Knob, "Enc", "encoder", tag - firstEncoder);
    }
    if (tag < lastFader) {
        return rowFace(Shape::Fader, "Fader", "fader", tag - firstFader);
    }
    if (tag == lastFader) {
        return {Shape::Fader, QStringLiteral("Fader"), QStringLiteral("Master fader")};
    }
    return {Shape::Pad, padCaption(tag - firstPad), padCaption(tag - firstPad)};
}

QString padCaption(int position) {
    return QStringLiteral("Pad %1").arg(position + 1);
}

}  // namespace qt
