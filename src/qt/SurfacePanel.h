#pragma once

#include <QPixmap>
#include <QWidget>
#include <array>

#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "qt/FaceArt.h"
#include "qt/surfaceMoves.h"
#include "qt/surfacePlan.h"

namespace qt {

class FaceButton;

/// The controller, drawn: its case, and on it a face for each control and layer button, which
/// shows what the control sends. The drawing keeps its proportions and is as large as fits.
///
/// Keys, while one of the faces has the keyboard (Tab leads to the selected one, and out again):
///   arrows             to the next control that way, which is selected; layer buttons on the way
///                      only get the keyboard
///   Home, End          to the ends of a row
///   Enter, Space       click
///   1 to 4             mode layers, as their buttons would
///   Alt + 1 to 4       pad layers, as their buttons would
/// Digits are taken with Shift too, which some keyboards need for them.
class SurfacePanel final : public QWidget {
public:
    /// Window and state must outlive it.
    SurfacePanel(editor::MainWindow& window, const editor::EditorState& state,
                 QWidget* parent = nullptr);
    ~SurfacePanel() override;

    /// Shows afresh what each control sends; to be called when an action has ended. Only faces that
    /// changed are painted. Where a control's face has the keyboard, that goes on to the selected
    /// one.
    void refresh();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addControls(editor::MainWindow& window);
    void addLayers(std::array<toolkit::Button, 4>& buttons, int firstPlace, const QString& outlet,
                   const QString& name);
    FaceButton* addFace(toolkit::Button& model, int place, const QString& caption,
                        const QString& outlet, const QString& name);
    void makeTabStop(FaceButton* face);
    [[nodiscard]] FaceButton* selectedFace() const;
    [[nodiscard]] int placeWithFocus() const;
    void move(int place, Move move);
    [[nodiscard]] bool pressLayer(const QKeyEvent& event);

    [[nodiscard]] qreal unit() const;
    [[nodiscard]] QPointF corner() const;
    void arrange();

    const editor::EditorState& state_;
    FaceArt art_;
    std::array<FaceButton*, placeCount> faces_{};  ///< by their place
    FaceButton* tabStop_ = nullptr;
    QPixmap case_;  ///< painted once for a size, a palette and a font
};

}  // namespace qt
