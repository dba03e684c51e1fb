#include "qt/access/FaceAccess.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <utility>

namespace qt::access {

namespace {

/// One control, layer button or pad. The program's own object, so that a screen reader hears
/// "selected" and not of a box that could be unchecked: a second press changes nothing.
class FaceAccess final : public QAccessibleWidget {
public:
    FaceAccess(QAbstractButton* face, std::function<bool()> isSelected)
        : QAccessibleWidget(face, QAccessible::RadioButton),
          face_(face),
          isSelected_(std::move(isSelected)) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.selectable = true;
        state.checked = isSelected_();
        state.selected = isSelected_();
        state.pressed = face_->isDown();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (face_->isEnabled()) {
            names.append(pressAction());
        }
        return names + QAccessibleWidget::actionNames();
    }

    /// The answer does not wait for what a press leads to, a whole window perhaps.
    void doAction(const QString& action) override {
        if (action == pressAction()) {
            if (face_->isEnabled()) {
                QMetaObject::invokeMethod(face_, &QAbstractButton::click, Qt::QueuedConnection);
            }
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    QAbstractButton* face_;
    std::function<bool()> isSelected_;
};

/// Something that is lit or not and cannot be pressed.
class LampAccess final : public QAccessibleWidget {
public:
    explicit LampAccess(QAbstractButton* lamp)
        : QAccessibleWidget(lamp, QAccessible::StaticText), lamp_(lamp) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name
                   ? text + (lamp_->isChecked() ? QStringLiteral(": yes") : QStringLiteral(": no"))
                   : text;
    }
    [[nodiscard]] QStringList actionNames() const override { return {}; }

private:
    QAbstractButton* lamp_;
};

}  // namespace

QAccessibleInterface* newFaceAccess(QAbstractButton& face, std::function<bool()> isSelected) {
    return new FaceAccess(&face, std::move(isSelected));
}

QAccessibleInterface* newLampAccess(QAbstractButton& lamp) {
    return new LampAccess(&lamp);
}

}  // namespace qt::access
