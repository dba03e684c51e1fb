#include "support/ScriptedDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <array>

#include "toolkit/Button.h"

namespace support {
namespace {

using testing::ElementsAre;
using toolkit::AlertAnswer;
using toolkit::Desktop;

class Dialog : public toolkit::WindowController {
public:
    explicit Dialog(Desktop& desktop) : desktop_(desktop) {
        closeButton.action = [this](toolkit::Button&) { window().close(); };
    }
    void windowWillClose() override { desktop_.stopModal(); }

    toolkit::Button closeButton;
    int timesAwoken = 0;

protected:
    void awakeFromNib() override { ++timesAwoken; }

private:
    Desktop& desktop_;
};

class OtherDialog final : public Dialog {
    using Dialog::Dialog;
};

TEST(ScriptedDesktop, WritesEverythingIntoOneJournalInOrder) {
    ScriptedDesktop desktop;
    Dialog dialog(desktop);
    desktop.answerAlert();
    desktop.answerSavePanel("/tmp/file");
    desktop.answerOpenPanel(std::nullopt);
    desktop.onModal<Dialog>([](Dialog& shown) { shown.closeButton.click(); });

    EXPECT_EQ(desktop.runAlertPanel({"Title", "Question", "Yes", "No"}), AlertAnswer::Default);
    EXPECT_EQ(desktop.runSavePanel({"Save it", "type", "name"}), "/tmp/file");
    EXPECT_EQ(desktop.runOpenPanel({"type", {"one", "two"}}), std::nullopt);
    EXPECT_EQ(desktop.runModalForWindow(dialog), Desktop::modalStopped);
    desktop.sleepForTimeInterval(std::chrono::duration<double>(0.002));
    desktop.note(journal::bytes(std::array<std::uint8_t, 2>{0xF0, 0x0A}));
    desktop.showWindow(dialog);
    desktop.exit(3);

    EXPECT_THAT(desktop.journal(),
                ElementsAre("alert \"Title\" \"Question\" [Yes] [No]",
                            "save panel \"Save it\" type \"type\" name \"name\"",
                            "open panel type \"type\" types \"one\" \"two\"", "modal Dialog begins",
                            "stop modal", "modal Dialog ends", "sleep 0.002", "bytes F0 0A",
                            "show Dialog", "exit 3"));
    EXPECT_THAT(desktop.alerts(), ElementsAre(toolkit::Alert{"Title", "Question", "Yes", "No"}));
    EXPECT_THAT(desktop.sleeps(), ElementsAre(std::chrono::duration<double>(0.002)));
    EXPECT_THAT(desktop.exits(), ElementsAre(3));
}

TEST(ScriptedDesktop, AnswersAlertsInTheOrderLaidDown) {
    ScriptedDesktop desktop;
    desktop.answerAlert(AlertAnswer::Alternate);
    desktop.onAlert([](const toolkit::Alert& alert) {
        return alert.message == "Second" ? AlertAnswer::Default : AlertAnswer::Alternate;
    });
    EXPECT_EQ(desktop.runAlertPanel({"", "First"}), AlertAnswer::Alternate);
    EXPECT_EQ(desktop.runAlertPanel({"", "Second"}), AlertAnswer::Default);
    EXPECT_EQ(journal::alert("Send Done"), "alert \"Tormelk Wyro\" \"Send Done\" [OK]");
}

TEST(ScriptedDesktop, AModalRunLoadsAndShowsTheWindow) {
    ScriptedDesktop desktop;
    Dialog dialog(desktop);
    desktop.onModal<Dialog>([&](Dialog& shown) {
        EXPECT_EQ(shown.timesAwoken, 1);
        EXPECT_TRUE(shown.window().isVisible());
        EXPECT_EQ(desktop.modalRuns(), 1U);
        shown.closeButton.click();
    });
    EXPECT_EQ(desktop.runModalForWindow(dialog), Desktop::modalStopped);
    EXPECT_FALSE(dialog.window().isVisible());
    EXPECT_EQ(desktop.modalRuns(), 0U);
}

TEST(ScriptedDesktop, ModalRunsNestAndEndInnermostFirst) {
    ScriptedDesktop desktop;
    Dialog outer(desktop);
    OtherDialog inner(desktop);
    desktop.onModal<OtherDialog>([&](OtherDialog& shown) {
        EXPECT_EQ(desktop.modalRuns(), 2U);
        shown.closeButton.click();
    });
    desktop.onModal<Dialog>([&](Dialog& shown) {
        EXPECT_EQ(desktop.runModalForWindow(inner), Desktop::modalStopped);
        shown.closeButton.click();
    });
    EXPECT_EQ(desktop.runModalForWindow(outer), Desktop::modalStopped);
    EXPECT_THAT(desktop.journal(),
                ElementsAre(journal::modalBegins<Dialog>(), journal::modalBegins<OtherDialog>(),
                            journal::stopModal(), journal::modalEnds<OtherDialog>(),
                            journal::stopModal(), journal::modalEnds<Dialog>()));
}

TEST(ScriptedDesktop, StoppingTheInnerRunTwiceLeavesTheOuterGoingOn) {
    ScriptedDesktop desktop;
    Dialog outer(desktop);
    OtherDialog inner(desktop);
    desktop.onModal<OtherDialog>([&](OtherDialog&) {
        desktop.stopModal();
        desktop.stopModal();
    });
    desktop.onModal<Dialog>([&](Dialog&) { desktop.runModalForWindow(inner); });
    EXPECT_NONFATAL_FAILURE(desktop.runModalForWindow(outer),
                            "the script for Dialog left its modal run going on");
}

TEST(ScriptedDesktop, AWindowThatCannotBeShownIsNotLoaded) {
    ScriptedDesktop desktop;
    Dialog dialog(desktop);
    desktop.refuseModal<Dialog>();
    EXPECT_EQ(desktop.runModalForWindow(dialog), 0);
    EXPECT_EQ(dialog.timesAwoken, 0);
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::modalNotShown<Dialog>()));
}

TEST(ScriptedDesktop, WhatWasNotLaidDownFailsTheTest) {
    ScriptedDesktop desktop;
    Dialog dialog(desktop);
    EXPECT_NONFATAL_FAILURE(desktop.runAlertPanel({"", "Surprise"}), "Surprise");
    EXPECT_NONFATAL_FAILURE(desktop.runSavePanel({}), "save panel");
    EXPECT_NONFATAL_FAILURE(desktop.runOpenPanel({}), "open panel");
    EXPECT_NONFATAL_FAILURE(desktop.runModalForWindow(dialog), "a modal run of Dialog");
}

TEST(ScriptedDesktop, AScriptThatLeavesItsWindowOpenFailsTheTest) {
    ScriptedDesktop desktop;
    Dialog dialog(desktop);
    desktop.onModal<Dialog>([](Dialog&) {});
    EXPECT_NONFATAL_FAILURE(desktop.runModalForWindow(dialog), "left its modal run going on");
}

TEST(ScriptedDesktop, AScriptIsForExactlyItsClass) {
    ScriptedDesktop desktop;
    OtherDialog dialog(desktop);
    Dialog base(desktop);
    desktop.onModal<Dialog>([](Dialog& shown) { shown.closeButton.click(); });
    EXPECT_NONFATAL_FAILURE(desktop.runModalForWindow(dialog), "a modal run of OtherDialog");
    EXPECT_EQ(desktop.runModalForWindow(base), Desktop::modalStopped);
}

TEST(ScriptedDesktop, AnAlertThatNeverCameFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop desktop;
            desktop.answerAlert();
        },
        "alerts that never came");
}

TEST(ScriptedDesktop, PanelsThatNeverCameFailTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop desktop;
            desktop.answerSavePanel(std::nullopt);
        },
        "save panels that never came");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop desktop;
            desktop.answerOpenPanel(std::nullopt);
        },
        "open panels that never came");
}

TEST(ScriptedDesktop, AModalRunThatNeverCameFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop desktop;
            desktop.onModal<Dialog>([](Dialog&) {});
        },
        "a modal run of Dialog that never came");
}

TEST(ScriptedDesktop, ATestCanActDuringASleep) {
    ScriptedDesktop desktop;
    desktop.onSleep = [&](std::chrono::duration<double> seconds) {
        desktop.note("asleep for " + std::to_string(seconds.count()));
    };
    desktop.sleepForTimeInterval(std::chrono::duration<double>(0.5));
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::sleep(0.5), "asleep for 0.500000"));
}

TEST(ScriptedDesktop, ClearingTheJournalKeepsTheValues) {
    ScriptedDesktop desktop;
    desktop.exit(0);
    desktop.clearJournal();
    EXPECT_TRUE(desktop.journal().empty());
    EXPECT_THAT(desktop.exits(), ElementsAre(0));
}

}  // namespace
}  // namespace support
