#pragma once

#include <QWidget>

class QComboBox;
class QPainter;

namespace qt::windows {

/// The velocity a pad layer's hits get, as far as it is known: a constant velocity is a level line
/// with its value. What the curves look like is built into the controller; they go by their names.
class VelocityPicture final : public QWidget {
public:
    /// Follows both boxes, which must outlive it. The last entry of `curve` stands for the constant
    /// velocity that `constant` gives.
    VelocityPicture(const QComboBox& curve, const QComboBox& constant, int constantEntry);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool isConstant() const;
    [[nodiscard]] QString words() const;
    void tell();
    void paintLevel(QPainter& painter, const QRectF& area) const;

    const QComboBox& curve_;
    const QComboBox& constant_;
    int constantEntry_;
};

}  // namespace qt::windows
