#pragma once

#include "qt/access/Described.h"
#include "qt/surface/buttonPainting.h"
#include "qt/widgets/ButtonView.h"

namespace qt::surface {

/// A key or a lamp in a window beside the drawn controller. Its colours are the palette's,
/// so that it follows light and dark themes; one that is lit differs in its lettering and its frame
/// too, not in colour alone.
class ControlButton final : public widgets::ButtonView, public access::Described {
public:
    enum class Shape { Key, Lamp };

    ControlButton(toolkit::Button& model, Shape shape, const QString& caption,
                  QWidget* parent = nullptr);

    /// It is lit or not and cannot be pressed.
    [[nodiscard]] bool isLamp() const { return shape_ == Shape::Lamp; }

    [[nodiscard]] QAccessibleInterface* newAccess() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Style {
        QPen edge;
        QColor fill;
        QColor lettering;
    };
    [[nodiscard]] Style styleOf(const ButtonState& state) const;
    [[nodiscard]] Outline outline() const;
    void drawCaption(QPainter& painter, const QColor& lettering) const;

    Shape shape_;
};

}  // namespace qt::surface
