#pragma once

#include <functional>

#include "describe/assignment.h"
#include "qt/access/Described.h"
#include "qt/surface/FaceArt.h"
#include "qt/widgets/ButtonView.h"

namespace qt::surface {

/// One control of the drawn controller: an encoder, a key, a fader, a pad or a layer button. It
/// shows what the control sends; selected, lit, under the mouse, held, with the focus and
/// switched off look different in shape as well as in colour. It is drawn to the scale that its
/// panel gives it, and leaves every key but Space to it.
class FaceButton final : public widgets::ButtonView, public access::Described {
public:
    /// The art is its panel's and must outlive it.
    FaceButton(toolkit::Button& model, FaceShape shape, const QString& caption, FaceArt& art,
               QWidget* parent = nullptr);

    /// Shows what the control sends. Nothing is painted afresh where it is what is shown already.
    void showAssignment(const describe::Assignment& assignment);
    [[nodiscard]] const describe::Assignment& assignment() const { return assignment_; }
    /// Marks what the window speaks of, although its button was not lit by a click: it is drawn,
    /// and told, as one that is lit.
    void setCurrent(bool current);
    [[nodiscard]] bool isShownLit() const { return isCurrent_ || isChecked(); }
    /// What is drawn now.
    [[nodiscard]] FaceLook look() const;

    /// Pixels a unit of the drawing.
    void setUnit(qreal unit);

    /// Called when the face gets the focus.
    std::function<void()> onFocus;

    [[nodiscard]] QAccessibleInterface* newAccess() override;
    [[nodiscard]] QSize sizeHint() const override { return {8, 8}; }  // its panel places it
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// It fills all of its area, so that nothing has to be painted beneath it.
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    FaceShape shape_;
    FaceArt& art_;
    describe::Assignment assignment_;
    qreal unit_ = 1;
    bool isCurrent_ = false;
};

}  // namespace qt::surface
