#include "firmware/message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "support/ScriptedDesktop.h"

namespace firmware {
namespace {

namespace journal = support::journal;
using testing::ElementsAre;
using toolkit::Desktop;

class MessageTest : public testing::Test {
protected:
    /// The answer after a person did something in the window; 7 is what it was before.
    int answerAfter(const std::function<void(message&)>& script) {
        std::uint8_t answer = 7;
        message confirmation(desktop, answer);
        desktop.onModal<message>(script);
        EXPECT_EQ(desktop.runModalForWindow(confirmation), Desktop::modalStopped);
        EXPECT_FALSE(confirmation.window().isVisible());
        return answer;
    }

    void expectOneStop() {
        EXPECT_THAT(desktop.journal(),
                    ElementsAre(journal::modalBegins<message>(), journal::stopModal(),
                                journal::modalEnds<message>()));
    }

    support::ScriptedDesktop desktop;
};

TEST_F(MessageTest, OkAnswers1AndEndsTheRun) {
    EXPECT_EQ(answerAfter([](message& shown) { shown.okButton.click(); }), 1);
    expectOneStop();
}

TEST_F(MessageTest, CancelAnswers0AndEndsTheRun) {
    EXPECT_EQ(answerAfter([](message& shown) { shown.cancelButton.click(); }), 0);
    expectOneStop();
}

TEST_F(MessageTest, ClosingTheWindowEndsTheRunAndLeavesTheAnswerAsItWas) {
    EXPECT_EQ(answerAfter([](message& shown) { shown.window().close(); }), 7);
    expectOneStop();
}

TEST_F(MessageTest, TheAnswerIsThereBeforeTheRunEnds) {
    std::uint8_t answer = 7;
    message confirmation(desktop, answer);
    desktop.onModal<message>([&](message& shown) {
        EXPECT_EQ(answer, 7);
        shown.okButton.click();
        EXPECT_EQ(answer, 1);
    });
    desktop.runModalForWindow(confirmation);
}

TEST_F(MessageTest, ItsActionsCanBeCalledWithoutTheButtons) {
    EXPECT_EQ(answerAfter([](message& shown) { shown.ok(); }), 1);
    EXPECT_EQ(answerAfter([](message& shown) { shown.cancel(); }), 0);
}

TEST_F(MessageTest, BothButtonsCanBeClickedFromTheStart) {
    std::uint8_t answer = 0;
    const message confirmation(desktop, answer);
    EXPECT_TRUE(confirmation.okButton.isEnabled());
    EXPECT_TRUE(confirmation.cancelButton.isEnabled());
}

TEST_F(MessageTest, HoldsWhatItIsToShow) {
    std::uint8_t answer = 0;
    EXPECT_TRUE(message(desktop, answer).content().facts.empty());
    const message told(desktop, answer, {{"Careful"}, {{"Time", "45 s"}}, "Start again."});
    EXPECT_THAT(told.content().warnings, ElementsAre("Careful"));
    EXPECT_THAT(told.content().facts, ElementsAre(Confirmation::Fact{"Time", "45 s"}));
    EXPECT_EQ(told.content().advice, "Start again.");
}

TEST_F(MessageTest, TwoOfThemKeepTheirAnswersApart) {
    std::uint8_t first = 7;
    std::uint8_t second = 7;
    message one(desktop, first);
    message other(desktop, second);
    desktop.onModal<message>([&](message& outer) {
        desktop.onModal<message>([](message& inner) { inner.cancelButton.click(); });
        desktop.runModalForWindow(other);
        EXPECT_EQ(desktop.modalRuns(), 1U);
        outer.okButton.click();
    });
    EXPECT_EQ(desktop.runModalForWindow(one), Desktop::modalStopped);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
}

}  // namespace
}  // namespace firmware
