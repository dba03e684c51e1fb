// What holds in every window alike.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPalette>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <set>

#include "app/windows/EveryWindow.h"
#include "qt/letterContrast.h"
#include "qt/palettes.h"
#include "qt/widgets/ButtonView.h"
#include "qt/widgets/TextFieldView.h"

namespace tests {
namespace {

bool hasLabel(QAccessibleInterface& widget) {
    return !widget.relations(QAccessible::Label).isEmpty();
}

TEST(EveryWindow, TellsAScreenReaderWhatEachThingInItIsCalled) {
    forEveryWindow([](QWidget& window, const QString& name) {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const bool reachable = widget->focusPolicy() != Qt::NoFocus && widget->isVisible();
            if (!reachable || qobject_cast<QScrollBar*>(widget) != nullptr) {
                continue;
            }
            QAccessibleInterface* access = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(access, nullptr);
            const bool isBox = qobject_cast<QComboBox*>(widget) != nullptr;
            const bool named = !isBox && !access->text(QAccessible::Name).isEmpty();
            EXPECT_TRUE(named || hasLabel(*access))
                << name.toStdString() << ": " << widget->metaObject()->className() << " "
                << widget->objectName().toStdString();
        }
    });
}

/// Every text of the window has the space it needs, inside the window.
void expectNoTextCut(QWidget& window, const QString& name) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool holdsText = qobject_cast<QLabel*>(widget) != nullptr ||
                               qobject_cast<QAbstractButton*>(widget) != nullptr ||
                               qobject_cast<QGroupBox*>(widget) != nullptr ||
                               qobject_cast<QComboBox*>(widget) != nullptr;
        if (!widget->isVisible() || !holdsText) {
            continue;
        }
        // A line would cut itself; only a name of more than a hundred letters may need it.
        const auto* field = dynamic_cast<qt::widgets::TextFieldView*>(widget);
        const bool isLine = field != nullptr && !field->wordWrap();
        const bool mayCut = name.endsWith(QLatin1String("long-name"));
        const QSize needed = isLine && !mayCut ? widget->sizeHint() : widget->minimumSizeHint();
        EXPECT_TRUE(widget->width() >= needed.width() && widget->height() >= needed.height())
            << name.toStdString() << ": " << widget->objectName().toStdString();
        EXPECT_TRUE(
            window.rect().contains(QRect(widget->mapTo(&window, QPoint(0, 0)), widget->size())))
            << name.toStdString() << ": " << widget->objectName().toStdString();
        const auto* label = qobject_cast<QLabel*>(widget);
        if (label != nullptr && label->wordWrap()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << name.toStdString() << ": " << label->text().toStdString();
        }
    }
}

/// The desktop's letters are larger for as long as it lives.
class LargerLetters {
public:
    explicit LargerLetters(qreal times) {
        QFont larger = usual_;
        larger.setPointSizeF(usual_.pointSizeF() * times);
        QApplication::setFont(larger);
    }
    LargerLetters(const LargerLetters&) = delete;
    LargerLetters& operator=(const LargerLetters&) = delete;
    ~LargerLetters() { QApplication::setFont(usual_); }

private:
    const QFont usual_ = QApplication::font();
};

TEST(EveryWindow, CutsNoText) {
    forEveryWindow(expectNoTextCut);
}

TEST(EveryWindow, CutsNoTextAndFitsASmallScreenWithLargerLetters) {
    const LargerLetters larger(1.3);
    forEveryWindow([](QWidget& window, const QString& name) {
        expectNoTextCut(window, name);
        // It may open larger where there is space.
        const QSize needed = window.minimumSizeHint();
        EXPECT_LE(needed.width(), 1280) << name.toStdString();
        EXPECT_LE(needed.height(), 720) << name.toStdString();
    });
}

TEST(EveryWindow, CutsNoTextFromASmallScreenToAVeryLargeOne) {
    for (const qreal times : {1.0, 1.3}) {
        const LargerLetters larger(times);
        forEveryWindow([](QWidget& window, const QString& name) {
            if (!name.startsWith(QLatin1String("main")) && name != QLatin1String("pad")) {
                return;
            }
            const QSize before = window.size();
            for (const QSize size : {QSize(1280, 720), QSize(1920, 1080), QSize(3840, 2160)}) {
                window.resize(size);
                QApplication::processEvents();
                EXPECT_EQ(window.size(), size) << name.toStdString();
                expectNoTextCut(window, name);
            }
            window.resize(before);
        });
    }
}

TEST(EveryWindow, CanBeReadInALightAndInADarkTheme) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        forEveryWindow([](QWidget& window, const QString& name) {
            const QStringList texts = unreadableTexts(window.grab().toImage(), window);
            EXPECT_TRUE(texts.isEmpty())
                << name.toStdString() << ": " << texts.join(QLatin1Char('\n')).toStdString();
            QImage flat(window.size(), QImage::Format_RGB32);
            flat.fill(Qt::gray);
            EXPECT_EQ(unreadableTexts(flat, window).isEmpty(), !window.isEnabled())
                << name.toStdString();
        });
    }
    QApplication::setPalette(lightPalette());
}

/// A thing of a window that Tab leads to.
bool isTabStop(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isVisible() && widget.isEnabled();
}

/// Where there is nothing but a system's own buttons, the highlighted one has the focus.
bool hasButtonsAlone(const QWidget& window) {
    const QList<QWidget*> all = window.findChildren<QWidget*>();
    return std::all_of(all.begin(), all.end(), [](const QWidget* widget) {
        const auto* button = qobject_cast<const QPushButton*>(widget);
        const bool isPlain = button != nullptr && button->autoDefault() &&
                             dynamic_cast<const qt::widgets::ButtonView*>(button) == nullptr;
        return !isTabStop(*widget) || isPlain;
    });
}

int pixelsThatDiffer(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < std::min(a.height(), b.height()); ++y) {
        for (int x = 0; x < std::min(a.width(), b.width()); ++x) {
            count += a.pixel(x, y) == b.pixel(x, y) ? 0 : 1;
        }
    }
    return count;
}

TEST(EveryWindow, ShowsWhatHasTheFocus) {
    static constexpr int plain = 20;  // pixels
    forEveryWindow([](QWidget& window, const QString& name) {
        QApplication::setActiveWindow(&window);
        window.setAttribute(Qt::WA_KeyboardFocusChange);  // as the first Tab does
        if (!QTest::qWaitForWindowActive(&window)) {
            ADD_FAILURE() << name.toStdString() << " does not get the focus";
            return;
        }
        QWidget* before = QApplication::focusWidget();
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            if (!isTabStop(*widget) || hasButtonsAlone(window)) {
                continue;
            }
            if (QWidget* other = QApplication::focusWidget()) {
                other->clearFocus();
            }
            const QImage without = widget->grab().toImage();
            widget->setFocus(Qt::TabFocusReason);
            const QImage with = widget->grab().toImage();
            EXPECT_GE(pixelsThatDiffer(without, with), plain)
                << name.toStdString() << ": " << widget->metaObject()->className() << " "
                << widget->objectName().toStdString();
        }
        if (before != nullptr) {
            before->setFocus();
        }
    });
}

bool keepsATimer(const QObject& object) {
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    return !dispatcher->registeredTimers(const_cast<QObject*>(&object)).isEmpty();
}

TEST(EveryWindow, KeepsNoTimerRunningWhileNobodyTouchesIt) {
    forEveryWindow([](QWidget& window, const QString& name) {
        QStringList busy;
        const auto atRest = [&] {
            busy.clear();
            for (const QObject* object : window.findChildren<QObject*>()) {
                if (keepsATimer(*object)) {
                    busy.append(QString::fromLatin1(object->metaObject()->className()) +
                                QLatin1Char(' ') + object->objectName());
                }
            }
            return busy.isEmpty();
        };
        EXPECT_TRUE(QTest::qWaitFor(atRest, 20000))
            << name.toStdString() << ": " << busy.join(u',').toStdString();
    });
}

TEST(EveryWindow, FitsASmallScreen) {
    forEveryWindow([](QWidget& window, const QString& name) {
        EXPECT_LE(window.width(), 1280) << name.toStdString();
        EXPECT_LE(window.height(), 720) << name.toStdString();
    });
}

TEST(EveryWindow, ShowsTheTextOfAChoiceInFullWhereItIsShort) {
    forEveryWindow([](QWidget& window, const QString& name) {
        if (name.endsWith(QLatin1String("long-name"))) {
            return;  // it is not
        }
        for (const QComboBox* box : window.findChildren<QComboBox*>()) {
            const int width = box->width() - 40;  // frame and arrow
            EXPECT_LE(box->fontMetrics().horizontalAdvance(box->currentText()), width)
                << name.toStdString() << ": " << box->objectName().toStdString();
        }
    });
}

TEST(EveryMenu, FitsASmallScreenWithLargerLettersToo) {
    for (const qreal times : {1.0, 1.3}) {
        const LargerLetters larger(times);
        int menus = 0;
        forEveryMenu([&menus](QWidget& window, const QString& name) {
            QRect all;
            for (const QMenu* menu : window.findChildren<QMenu*>()) {
                if (menu->isVisible()) {
                    ++menus;
                    all |= menu->frameGeometry();
                    EXPECT_GE(menu->width(), menu->sizeHint().width()) << name.toStdString();
                }
            }
            EXPECT_LE(all.width(), 1280) << name.toStdString();
            EXPECT_LE(all.height(), 720) << name.toStdString();
        });
        EXPECT_EQ(menus, 4);
    }
}

TEST(EveryWindow, IsOneOfTheWindowsThereAre) {
    std::set<std::string> seen;
    forEveryWindow([&seen](QWidget&, const QString& name) { seen.insert(name.toStdString()); });
    for (const char* window :
         {"main", "main-no-output", "main-sent", "main-disabled", "pad-constant", "seldev", "about",
          "message", "pad", "simulator", "firmware", "alert"}) {
        EXPECT_TRUE(seen.contains(window)) << window;
    }
}

}  // namespace
}  // namespace tests
