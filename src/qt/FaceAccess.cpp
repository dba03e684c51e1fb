#include "qt/FaceAccess.h"

#include <QAccessibleWidget>

#include "qt/FaceButton.h"
#include "qt/SurfacePanel.h"

namespace qt {

namespace {

/// One control or layer button. The program's own object, so that a screen reader hears "selected"
/// and not of a box that could be unchecked: a second press changes nothing.
class FaceAccess final : public QAccessibleWidget {
public:
    explicit FaceAccess(FaceButton* face)
        : QAccessibleWidget(face, QAccessible::RadioButton), face_(face) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.selectable = true;
        state.checked = face_->isChecked();
        state.selected = face_->isChecked();
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

    void doAction(const QString& action) override {
        if (action == pressAction()) {
            if (face_->isEnabled()) {
                face_->click();
            }
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    FaceButton* face_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* face = dynamic_cast<FaceButton*>(object)) {
        return new FaceAccess(face);
    }
    if (auto* panel = dynamic_cast<SurfacePanel*>(object)) {
        return new QAccessibleWidget(panel, QAccessible::Grouping);
    }
    return nullptr;
}

}  // namespace

void describeFaces() {
    QAccessible::installFactory(makeInterface);
}

void describeAfresh(QObject& face) {
    if (QAccessibleInterface* early = QAccessible::queryAccessibleInterface(&face)) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
    }
}

}  // namespace qt
