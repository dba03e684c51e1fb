#pragma once

#include <QLabel>

#include "qt/widgets/ModelLink.h"
#include "toolkit/TextField.h"

namespace qt::widgets {

/// Shows a `toolkit::TextField` in one line. A text that finds no space is cut with "..." and shown
/// whole in the tool tip; a screen reader always reads it whole. So it never keeps a window wide.
/// One that wraps its words is never cut: whoever makes it wrap gives it the height.
class TextFieldView final : public QLabel {
public:
    /// `whenEmpty` is shown while the field has no text.
    explicit TextFieldView(toolkit::TextField& model, const QString& whenEmpty = {},
                           QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showModel();
    [[nodiscard]] QString shownText() const;

    ModelLink<toolkit::TextField> link_;
    QString whenEmpty_;
};

}  // namespace qt::widgets
