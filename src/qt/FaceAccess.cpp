#include "qt/FaceAccess.h"

#include <QAccessibleWidget>

#include "qt/ControlButton.h"
#include "qt/FaceButton.h"
#include "qt/FacePanel.h"

namespace qt {

namespace {

/// One control, layer button or pad. The program's own object, so that a screen reader hears
/// "selected" and not of a box that could be unchecked: a second press changes nothing.
class FaceAccess final : public QAccessibleWidget {
public:
    explicit FaceAccess(FaceButton* face)
        : QAccessibleWidget(face, QAccessible::RadioButton), face_(face) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.selectable = true;
        state.checked = face_->isShownLit();
        state.selected = face_->isShownLit();
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
                QMetaObject::invokeMethod(face_, &FaceButton::click, Qt::QueuedConnection);
            }
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    FaceButton* face_;
};

/// Something that is lit or not and cannot be pressed.
class LampAccess final : public QAccessibleWidget {
public:
    explicit LampAccess(ControlButton* lamp)
        : QAccessibleWidget(lamp, QAccessible::StaticText), lamp_(lamp) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name
                   ? text + (lamp_->isChecked() ? QStringLiteral(": yes") : QStringLiteral(": no"))
                   : text;
    }
    [[nodiscard]] QStringList actionNames() const override { return {}; }

private:
    ControlButton* lamp_;
};

QAccessibleInterface* describeFace(const QString&, QObject* object) {
    if (auto* face = dynamic_cast<FaceButton*>(object)) {
        return new FaceAccess(face);
    }
    auto* button = dynamic_cast<ControlButton*>(object);
    if (button != nullptr && button->isLamp()) {
        return new LampAccess(button);
    }
    if (auto* panel = dynamic_cast<FacePanel*>(object)) {
        return new QAccessibleWidget(panel, QAccessible::Grouping);
    }
    return nullptr;
}

}  // namespace

void describeFaces() {
    QAccessible::installFactory(describeFace);
}

void describeAfresh(QObject& widget) {
    if (QAccessibleInterface* early = QAccessible::queryAccessibleInterface(&widget)) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
    }
}

}  // namespace qt
