#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

namespace qt::widgets {

/// A caption whose letter after "&" leads to the field, and which is the field's name for a screen
/// reader.
[[nodiscard]] inline QLabel* captionOf(QWidget& field, const QString& caption) {
    auto* label = new QLabel(caption);
    label->setBuddy(&field);
    return label;
}

/// What a widget is called: in full for people and for screen readers, by its outlet in the
/// program.
inline void nameWidget(QWidget& widget, const QString& outlet, const QString& name) {
    widget.setObjectName(outlet);
    widget.setAccessibleName(name);
    widget.setToolTip(name);
}

}  // namespace qt::widgets
