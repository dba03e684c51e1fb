#include "qt/letterContrast.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFontMetrics>
#include <QHash>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <algorithm>
#include <vector>

#include "qt/surface/FaceButton.h"
#include "qt/surface/contrast.h"

namespace tests {

namespace {

struct Lettering {
    QString text;
    QRectF area;  ///< in the panel
};

std::vector<Lettering> letteringOf(const qt::surface::FacePanel& panel) {
    std::vector<Lettering> all;
    const qreal unit = panel.unit();
    qt::surface::Lettering lettering;
    for (const qt::surface::Engraving& engraving : panel.plan().engravings) {
        all.push_back(
            {engraving.text,
             {panel.corner() + engraving.area.topLeft() * unit, engraving.area.size() * unit}});
    }
    for (const qt::surface::FaceButton* button : panel.faces()) {
        const qt::surface::FaceLook look = button->look();
        const qt::surface::FaceLines lines = qt::surface::linesOf(look, lettering);
        const bool hasCaption = look.shape == qt::surface::FaceShape::Pad ||
                                look.shape == qt::surface::FaceShape::Layer;
        const QPointF origin = button->pos();
        if (hasCaption) {
            all.push_back({look.caption, qt::surface::captionAreaOf(look).translated(origin)});
        }
        for (const auto& [fitted, area] :
             {std::pair(lines.first, lines.firstArea), std::pair(lines.second, lines.secondArea)}) {
            if (!fitted.text.isEmpty()) {
                const qreal spare = (area.width() - fitted.width) / 2;
                all.push_back({fitted.text, area.adjusted(spare, 0, -spare, 0).translated(origin)});
            }
        }
    }
    return all;
}

/// Where a box shows its text, without frame and arrow.
QRect fieldOf(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = false;
    return box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                       &box);
}

/// What a widget says and where in it; no text where it says nothing.
Lettering letteringOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return {label->text(), label->contentsRect()};
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        return {box->currentText().trimmed(), fieldOf(*box)};
    }
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button == nullptr || dynamic_cast<const qt::surface::FaceButton*>(button) != nullptr) {
        return {};
    }
    QRect area(QPoint(0, 0), button->fontMetrics().size(Qt::TextShowMnemonic, button->text()));
    area.moveCenter(button->rect().center());
    return {button->text(), area};
}

std::vector<Lettering> letteringOfWindow(const QWidget& window) {
    std::vector<Lettering> all;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const Lettering found = letteringOf(*widget);
        if (!found.text.isEmpty() && widget->isVisible() && widget->isEnabled()) {
            const QPoint origin = widget->mapTo(&window, QPoint(0, 0));
            all.push_back({found.text, found.area.translated(origin)});
        }
    }
    return all;
}

/// The strongest contrast of any pixel to the commonest colour.
qreal contrastWithin(const QImage& part) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            ++counts[part.pixel(x, y)];
        }
    }
    QRgb background = 0;
    int most = 0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        if (entry.value() > most) {
            most = entry.value();
            background = entry.key();
        }
    }
    qreal strongest = 1;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        strongest =
            std::max(strongest, qt::surface::contrast(QColor(entry.key()), QColor(background)));
    }
    return strongest;
}

QStringList unreadable(const QImage& picture, const std::vector<Lettering>& letterings) {
    QStringList texts;
    const qreal ratio = picture.devicePixelRatio();
    for (const Lettering& lettering : letterings) {
        const QRectF area(lettering.area.topLeft() * ratio, lettering.area.size() * ratio);
        const qreal found = contrastWithin(picture.copy(area.toAlignedRect()));
        if (found < qt::surface::readableContrast) {
            texts.append(QStringLiteral("\"%1\": %2 to 1").arg(lettering.text).arg(found));
        }
    }
    return texts;
}

}  // namespace

QStringList unreadableTexts(const QImage& picture, const qt::surface::FacePanel& panel) {
    return unreadable(picture, letteringOf(panel));
}

QStringList unreadableTexts(const QImage& picture, const QWidget& window) {
    return unreadable(picture, letteringOfWindow(window));
}

int textCount(const qt::surface::FacePanel& panel) {
    return static_cast<int>(letteringOf(panel).size());
}

}  // namespace tests
