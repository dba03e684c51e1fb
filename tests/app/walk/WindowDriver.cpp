#include "app/walk/WindowDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QGuiApplication>
#include <QTest>
#include <algorithm>
#include <memory>
#include <sstream>
#include <utility>

#include "editor/walk/widgets.h"
#include "qt/windows/PadView.h"
#include "support/windows/hands.h"

namespace walk {

namespace {

using support::hands::click;
using support::hands::press;

template <typename Widget>
Widget& find(const QWidget& window, const QString& outlet) {
    return support::hands::find<Widget>(window, outlet.toLatin1().constData());
}

QString nameOf(MainBox box) {
    switch (box) {
        case MainBox::combo_mode:
            return QStringLiteral("combo_mode");
        case MainBox::combo_type:
            return QStringLiteral("combo_type");
        case MainBox::combo_chan:
            return QStringLiteral("combo_chan");
        case MainBox::combo_cc:
            return QStringLiteral("combo_cc");
        case MainBox::combo_trig:
            break;
    }
    return QStringLiteral("combo_trig");
}

QString nameOf(PadBox box) {
    switch (box) {
        case PadBox::combo_chan:
            return QStringLiteral("combo_chan");
        case PadBox::combo_chanMod:
            return QStringLiteral("combo_chanMod");
        case PadBox::combo_msg:
            return QStringLiteral("combo_msg");
        case PadBox::combo_intervl:
            return QStringLiteral("combo_intervl");
        case PadBox::combo_curv:
            return QStringLiteral("combo_curv");
        case PadBox::combo_curConst:
            break;
    }
    return QStringLiteral("combo_curConst");
}

/// Opens the list with a click. A desktop that is still busy giving a window the focus closes it
/// again, and then one clicks once more.
bool openByMouse(QComboBox& box) {
    constexpr int tries = 10;
    for (int tried = 0; tried < tries; ++tried) {
        click(box);
        if (!box.view()->isVisible()) {
            return false;
        }
        // The click must be over before the next one counts: its time has passed, and the box has
        // been told so.
        QTest::qWait(QApplication::doubleClickInterval() + 1);
        QApplication::processEvents();
        if (box.view()->isVisible()) {
            return true;
        }
    }
    return false;
}

bool openByKeyboard(QComboBox& box) {
    press(box, Qt::Key_Down, Qt::AltModifier);
    return box.view()->isVisible();
}

/// In the open list: a click on the item.
void pickByMouse(QComboBox& box, int index) {
    QAbstractItemView& list = *box.view();
    const QModelIndex item = box.model()->index(index, 0);
    list.scrollTo(item);
    const QPoint place = list.visualRect(item).center();
    QTest::mouseMove(list.viewport(), place);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
}

/// In the open list: the arrow keys, from the nearer end, and Enter.
void pickByKeyboard(QComboBox& box, int index) {
    QAbstractItemView& list = *box.view();
    const int fromTheEnd = box.count() - 1 - index;
    const bool down = index <= fromTheEnd;
    press(list, down ? Qt::Key_Home : Qt::Key_End);
    for (int row = 0; row < std::min(index, fromTheEnd); ++row) {
        press(list, down ? Qt::Key_Down : Qt::Key_Up);
    }
    press(list, Qt::Key_Enter);
}

void compareBox(std::ostream& differences, const QWidget& window, const QString& outlet,
                const toolkit::ComboBox& model) {
    const auto& box = find<QComboBox>(window, outlet);
    const int selected = model.indexOfSelectedItem();
    const std::string text(model.itemObjectValueAtIndex(selected).value_or(""));
    if (box.count() != model.numberOfItems() || box.currentIndex() != selected ||
        box.currentText().toStdString() != text || box.isEnabled() != model.isEnabled()) {
        differences << "  the window's " << outlet.toStdString() << " shows " << box.count()
                    << " items, number " << box.currentIndex() << " \""
                    << box.currentText().toStdString() << "\", enabled " << box.isEnabled() << '\n';
    }
}

void compareButton(std::ostream& differences, const QWidget& window, const QString& outlet,
                   const toolkit::Button& model) {
    const auto& button = find<QAbstractButton>(window, outlet);
    if (button.isChecked() != (model.state() != 0) || button.isEnabled() != model.isEnabled()) {
        differences << "  the window's " << outlet.toStdString() << " is lit " << button.isChecked()
                    << ", enabled " << button.isEnabled() << '\n';
    }
}

QString numbered(const char* name, std::size_t number) {
    return QString::fromLatin1(name) + QString::number(number);
}

/// The desktop has given the window the focus. A window that only belongs to the one with the focus
/// counts as active, too, and on a busy desktop no window at all has it for a moment in between: an
/// open list would close then.
bool waitForFocus(const QWidget& window) {
    return QTest::qWaitFor(
        [&window] { return QGuiApplication::focusWindow() == window.windowHandle(); }, 30'000);
}

}  // namespace

WindowDriver::WindowDriver(Hand first) : hand_(first) {
    QApplication::setDoubleClickInterval(1);
    desktop_.addView<editor::pad>([this](editor::pad& controller) {
        pad_ = &controller;
        return std::make_unique<qt::windows::PadView>(controller);
    });
    editor_.show();
    EXPECT_TRUE(waitForFocus(editor_.view));
}

WindowDriver::Hand WindowDriver::nextHand() {
    return std::exchange(hand_, hand_ == Hand::Mouse ? Hand::Keyboard : Hand::Mouse);
}

void WindowDriver::operate(const QWidget& window, const QString& button) {
    auto& widget = find<QAbstractButton>(window, button);
    if (nextHand() == Hand::Mouse) {
        click(widget);
    } else {
        press(widget, Qt::Key_Space);
    }
}

void WindowDriver::pick(const QWidget& window, const QString& outlet, int index) {
    auto& box = find<QComboBox>(window, outlet);
    const bool mouse = nextHand() == Hand::Mouse;
    if (!(mouse ? openByMouse(box) : openByKeyboard(box))) {
        EXPECT_FALSE(box.isEnabled()) << outlet.toStdString() << " did not open";
        return;
    }
    if (mouse) {
        pickByMouse(box, index);
    } else {
        pickByKeyboard(box, index);
    }
    EXPECT_FALSE(box.view()->isVisible()) << outlet.toStdString() << " did not close";
}

void WindowDriver::clickControl(int tag) {
    operate(editor_.view, QStringLiteral("encoder%1").arg(tag));
}

void WindowDriver::clickModeLayer(int index) {
    operate(editor_.view, QStringLiteral("moLa%1").arg(index + 1));
}

void WindowDriver::clickFirstPadLayer() {
    operate(editor_.view, QStringLiteral("paLa1"));
}

void WindowDriver::clickPadLayer(int index, const std::function<void()>& inside) {
    bool ran = false;
    support::hands::whenDialogOpens(QStringLiteral("Pad Editor"),
                                    [this, &inside, &ran](QDialog& dialog) {
                                        EXPECT_TRUE(waitForFocus(dialog));
                                        padWindow_ = &dialog;
                                        inside();
                                        ran = true;
                                        padWindow_ = nullptr;
                                        pad_ = nullptr;
                                    });
    operate(editor_.view, QStringLiteral("paLa%1").arg(index + 1));
    EXPECT_TRUE(ran);
    EXPECT_TRUE(waitForFocus(editor_.view));
}

void WindowDriver::clickLocker() {
    operate(editor_.view, QStringLiteral("locker"));
}

void WindowDriver::choose(MainBox box, int index) {
    pick(editor_.view, nameOf(box), index);
}

void WindowDriver::clickPad(int index) {
    operate(*padWindow_, QStringLiteral("p%1").arg(index + 1));
}

void WindowDriver::clickEditorLayer(int padLayer) {
    operate(*padWindow_, QStringLiteral("m_paLa%1").arg(padLayer));
}

void WindowDriver::chooseInPadEditor(PadBox box, int index) {
    pick(*padWindow_, nameOf(box), index);
}

void WindowDriver::finish() {
    operate(*padWindow_, QStringLiteral("finish"));
}

void WindowDriver::closePadEditor() {
    if (nextHand() == Hand::Mouse) {
        padWindow_->close();  // what the close box does
    } else {
        press(*padWindow_, Qt::Key_Escape);
    }
}

std::string WindowDriver::shownOtherwise() {
    std::ostringstream differences;
    const editor::MainWindow& main = editor_.window;
    const QWidget& view = editor_.view;
    for (const MainBox box : {MainBox::combo_mode, MainBox::combo_type, MainBox::combo_chan,
                              MainBox::combo_cc, MainBox::combo_trig}) {
        compareBox(differences, view, nameOf(box), boxOf(editor_.window, box));
    }
    for (std::size_t tag = 0; tag < main.keysOrderedByTag.size(); ++tag) {
        compareButton(differences, view, numbered("encoder", tag), main.keysOrderedByTag.at(tag));
    }
    for (std::size_t layer = 0; layer < 4; ++layer) {
        compareButton(differences, view, numbered("moLa", layer + 1), main.moLaCtrls.at(layer));
        compareButton(differences, view, numbered("paLa", layer + 1), main.paLaCtrls.at(layer));
    }
    compareButton(differences, view, QStringLiteral("locker"), main.locker);
    compareButton(differences, view, QStringLiteral("trigger"), main.trigger);
    // The mark for unsaved changes is the view's own.
    if (view.windowTitle().remove(QStringLiteral("[*]")).toStdString() != main.window.title()) {
        differences << "  the window's title is " << view.windowTitle().toStdString() << '\n';
    }
    if (view.isVisible() != main.window.isVisible()) {
        differences << "  the window is visible: " << view.isVisible() << '\n';
    }

    if (padWindow_ == nullptr) {
        return differences.str();
    }
    for (const PadBox box : {PadBox::combo_chan, PadBox::combo_chanMod, PadBox::combo_msg,
                             PadBox::combo_intervl, PadBox::combo_curv, PadBox::combo_curConst}) {
        compareBox(differences, *padWindow_, nameOf(box), boxOf(*pad_, box));
    }
    for (std::size_t position = 0; position < 9; ++position) {
        compareButton(differences, *padWindow_, numbered("p", position + 1),
                      pad_->m_pads.at(position));
    }
    for (int layer = 1; layer <= 3; ++layer) {
        compareButton(differences, *padWindow_, QStringLiteral("m_paLa%1").arg(layer),
                      layerButtonOf(*pad_, layer));
    }
    return differences.str();
}

}  // namespace walk
