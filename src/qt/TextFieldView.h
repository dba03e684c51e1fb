#pragma once

#include <QLabel>

#include "qt/ModelLink.h"
#include "toolkit/TextField.h"

namespace qt {

/// Shows a `toolkit::TextField`.
class TextFieldView final : public QLabel {
public:
    /// `whenEmpty` is shown while the field has no text.
    explicit TextFieldView(toolkit::TextField& model, const QString& whenEmpty = {},
                           QWidget* parent = nullptr);

private:
    void showModel();

    ModelLink<toolkit::TextField> link_;
    QString whenEmpty_;
};

}  // namespace qt
