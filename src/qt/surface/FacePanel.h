#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

#include "qt/access/Described.h"
#include "qt/surface/FaceArt.h"
#include "qt/surface/casePlan.h"
#include "toolkit/Button.h"

namespace qt::surface {

class FaceButton;

/// The controller or a part of it, drawn: a case, and faces at their places on it. The drawing
/// keeps its proportions and is as large as fits. Tab leads to one of the faces, and out again.
class FacePanel : public QWidget, public access::Described {
public:
    ~FacePanel() override;

    [[nodiscard]] QAccessibleInterface* newAccess() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] const CasePlan& plan() const { return plan_; }
    /// Pixels a unit of the drawing.
    [[nodiscard]] qreal unit() const;
    /// Where the case begins.
    [[nodiscard]] QPointF corner() const;
    /// In the order they were added in.
    [[nodiscard]] const std::vector<FaceButton*>& faces() const { return faces_; }

protected:
    FacePanel(CasePlan plan, const QString& outlet, const QString& name, QWidget* parent);

    void addFace(toolkit::Button& model, const Place& place, const QString& caption,
                 const QString& outlet, const QString& name);
    [[nodiscard]] FaceButton& face(int index) const {
        return *faces_.at(static_cast<std::size_t>(index));
    }
    /// The face that Tab leads to from now on.
    void makeTabStop(FaceButton& face);
    // The faces before `end` select what they stand for, one of them at a time.
    /// The focus goes along with the selection, unless it is at another kind of face.
    void keepFocusAtSelection(int end);
    /// Takes the focus from face to face; arriving at one of those selects it.
    void moveFocus(int from, int to, int end);
    /// Which face has the focus; -1 where none has.
    [[nodiscard]] int faceWithFocus() const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] FaceButton* litFaceBefore(int end) const;
    void arrange();
    [[nodiscard]] const QPixmap& drawnCase();

    CasePlan plan_;
    FaceArt art_;
    std::vector<FaceButton*> faces_;
    std::vector<QRectF> areas_;  ///< of the faces, in units of the drawing
    FaceButton* tabStop_ = nullptr;
    QPixmap case_;  ///< painted once for a size, a palette, a font and a device pixel ratio
};

}  // namespace qt::surface
