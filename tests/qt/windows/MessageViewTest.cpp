#include "qt/windows/MessageView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "qt/desktop/QtDesktop.h"
#include "qt/windows/views.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

using support::hands::click;
using support::hands::find;
using support::hands::press;

/// What stands in the answer before it is given.
constexpr std::uint8_t unanswered = 99;

std::uint8_t answerOf(std::function<void(QDialog&)> person) {
    desktop::QtDesktop desktop([](int) {});
    addEditorViews(desktop);
    std::uint8_t answer = unanswered;
    firmware::message controller(desktop, answer);
    support::hands::whenDialogOpens(QStringLiteral("Firmware Update"), std::move(person));
    EXPECT_NE(desktop.runModalForWindow(controller), 0);
    EXPECT_FALSE(controller.window().isVisible());
    return answer;
}

TEST(MessageView, AnswersOneForOk) {
    EXPECT_EQ(answerOf([](QDialog& dialog) { click(find(dialog, "ok")); }), 1);
    EXPECT_EQ(answerOf([](QDialog& dialog) { press(dialog, Qt::Key_Return); }), 1);
}

TEST(MessageView, AnswersZeroForCancelAndForEscape) {
    EXPECT_EQ(answerOf([](QDialog& dialog) { click(find(dialog, "cancel")); }), 0);
    EXPECT_EQ(answerOf([](QDialog& dialog) { press(dialog, Qt::Key_Escape); }), 0);
}

TEST(MessageView, HasNoCloseBox) {
    answerOf([](QDialog& dialog) {
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowSystemMenuHint));
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::CustomizeWindowHint));
        click(find(dialog, "ok"));
    });
}

TEST(MessageView, LeavesTheAnswerAsItWasWhenItIsClosedAllTheSame) {
    EXPECT_EQ(answerOf([](QDialog& dialog) { dialog.close(); }), unanswered);
}

TEST(MessageView, TakesTheWindowManagersCloseForCancel) {
    EXPECT_EQ(answerOf([](QDialog& dialog) {
                  QCloseEvent event;
                  QSpontaneKeyEvent::setSpontaneous(&event);
                  qApp->notify(&dialog, &event);
              }),
              0);
}

/// What a window for this content shows, while a person looks at it.
void look(const firmware::Confirmation& content, const std::function<void(QDialog&)>& person) {
    desktop::QtDesktop desktop([](int) {});
    addEditorViews(desktop);
    std::uint8_t answer = unanswered;
    firmware::message controller(desktop, answer, content);
    support::hands::whenDialogOpens(QStringLiteral("Firmware Update"), [&person](QDialog& dialog) {
        person(dialog);
        press(dialog, Qt::Key_Return);
    });
    desktop.runModalForWindow(controller);
    EXPECT_EQ(answer, content.warnings.empty() ? 1 : 0);
}

QStringList textsOf(const QDialog& dialog) {
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        texts.append(label->text().remove(QChar(0x200B)));
    }
    return texts;
}

TEST(MessageView, ShowsWhatIsAboutToHappen) {
    look({{}, {{"File", "tormelk_2.bin"}, {"Time", "45 s"}}, "Start again at step 3."},
         [](QDialog& dialog) {
             const QStringList texts = textsOf(dialog);
             for (const char* text :
                  {"File", "tormelk_2.bin", "Time", "45 s", "Start again at step 3."}) {
                 EXPECT_TRUE(texts.contains(QString::fromLatin1(text))) << text;
             }
             EXPECT_TRUE(find<QPushButton>(dialog, "ok").isDefault());
         });
}

TEST(MessageView, WarnsInBoldAndMakesCancelTheDefault) {
    look({{"It was REFUSED.", "Press Cancel."}, {}, {}}, [](QDialog& dialog) {
        const auto warnings = dialog.findChildren<QLabel*>(QStringLiteral("warning"));
        ASSERT_EQ(warnings.size(), 2);
        EXPECT_EQ(warnings[0]->text(), QStringLiteral("It was REFUSED."));
        EXPECT_TRUE(warnings[0]->font().bold());
        EXPECT_EQ(warnings[0]->textFormat(), Qt::PlainText);
        EXPECT_TRUE(find<QPushButton>(dialog, "cancel").isDefault());
    });
}

TEST(MessageView, ShowsALongFileNameInFull) {
    const std::string name = "tormelk_" + std::string(240, 'x') + ".bin";
    look({{"The file \"" + name + "\" was REFUSED."}, {{"File", name}}, {}}, [&](QDialog& dialog) {
        EXPECT_TRUE(textsOf(dialog).contains(QString::fromStdString(name)));
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            const QRect needed = label->fontMetrics().boundingRect(label->contentsRect(),
                                                                   Qt::TextWordWrap, label->text());
            EXPECT_LE(needed.width(), label->width());
            EXPECT_LE(needed.height(), label->height());
        }
        EXPECT_LE(dialog.width(), 520);
    });
}

TEST(MessageView, KeepsItsLackOfACloseBoxOverAnotherWindow) {
    QWidget behind;
    behind.show();
    behind.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&behind));
    answerOf([&behind](QDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &behind);
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        click(find(dialog, "ok"));
    });
}

}  // namespace
}  // namespace qt::windows
