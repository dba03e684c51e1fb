#include "qt/access/Described.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPushButton>

#include "qt/access/FaceAccess.h"

namespace qt::access {
namespace {

/// Assistive technology asks for it as soon as it is made.
class EarlyButton : public QPushButton {
public:
    EarlyButton() { QAccessible::queryAccessibleInterface(this); }
};

class DescribedLamp final : public EarlyButton, public Described {
public:
    DescribedLamp() : Described(this) {}
    QAccessibleInterface* newAccess() override { return newLampAccess(*this); }
};

class DescribedAsUsual final : public QPushButton, public Described {
public:
    DescribedAsUsual() : Described(this) {}
    QAccessibleInterface* newAccess() override { return nullptr; }
};

QAccessible::Role roleOf(QObject& object) {
    return QAccessible::queryAccessibleInterface(&object)->role();
}

TEST(Described, IsToldAsItSaysAlsoWhereItWasAskedForTooEarly) {
    DescribedLamp lamp;
    EXPECT_EQ(roleOf(lamp), QAccessible::StaticText);
}

TEST(Described, IsToldAsQtDoesWhereItSaysNothing) {
    DescribedAsUsual button;
    EXPECT_EQ(roleOf(button), QAccessible::Button);
}

TEST(Described, LeavesOtherWidgetsAlone) {
    const DescribedLamp lamp;
    QPushButton button;
    EXPECT_EQ(roleOf(button), QAccessible::Button);
}

}  // namespace
}  // namespace qt::access
