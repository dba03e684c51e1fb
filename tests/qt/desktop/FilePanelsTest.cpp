#include "qt/desktop/FilePanels.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "qt/desktop/QtDesktop.h"
#include "support/windows/hands.h"

namespace qt::desktop {
namespace {

using support::hands::press;
using support::hands::whenDialogOpens;

class FilePanels : public testing::Test {
protected:
    void createFile(const QString& name) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    /// A person goes to the folder, types a name and presses Enter.
    void enter(QDialog& dialog, const QString& name) const {
        auto& panel = dynamic_cast<QFileDialog&>(dialog);
        panel.setDirectory(folder.path());
        auto& field = support::hands::find<QLineEdit>(panel, "fileNameEdit");
        field.setText(name);
        press(field, Qt::Key_Enter);
    }
    std::filesystem::path inFolder(const char* name) const {
        return std::filesystem::path(folder.path().toStdString()) / name;
    }

    QTemporaryDir folder;
    QtDesktop desktop{[](int) {}};
    const toolkit::SavePanel save{"Specify the Tormelk file name", "Tormelk", "Tormelk"};
    const toolkit::OpenPanel open{"Tormelk", {"Tormelk"}};
    const QString saveTitle = QStringLiteral("Specify the Tormelk file name");
    const QString openTitle = QStringLiteral("Open");
};

TEST_F(FilePanels, ProposeNameAndTypeForAFileToSave) {
    whenDialogOpens(saveTitle, [](QDialog& dialog) {
        const auto& panel = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(support::hands::find<QLineEdit>(panel, "fileNameEdit").text(),
                  QStringLiteral("Tormelk"));
        EXPECT_EQ(panel.nameFilters(), QStringList{QStringLiteral("Tormelk files (*.Tormelk)")});
        EXPECT_EQ(panel.acceptMode(), QFileDialog::AcceptSave);
        dialog.reject();
    });
    EXPECT_EQ(desktop.runSavePanel(save), std::nullopt);
}

TEST_F(FilePanels, GiveAFileWithoutATypeTheRequiredOne) {
    whenDialogOpens(saveTitle, [this](QDialog& dialog) { enter(dialog, QStringLiteral("Stage")); });
    EXPECT_EQ(desktop.runSavePanel(save), inFolder("Stage.Tormelk"));
}

TEST_F(FilePanels, LeaveATypeThatWasTyped) {
    whenDialogOpens(saveTitle,
                    [this](QDialog& dialog) { enter(dialog, QStringLiteral("Stage.Tormelk")); });
    EXPECT_EQ(desktop.runSavePanel(save), inFolder("Stage.Tormelk"));
}

TEST_F(FilePanels, TakeAnotherDotInANameForNoType) {
    for (const char* name : {"mix 1.2", "v2.", "Stage.txt"}) {
        const QString typed = QString::fromLatin1(name);
        whenDialogOpens(saveTitle, [this, typed](QDialog& dialog) { enter(dialog, typed); });
        EXPECT_EQ(desktop.runSavePanel(save), inFolder((std::string(name) + ".Tormelk").c_str()));
    }
}

TEST_F(FilePanels, LeaveATypeInOtherLettersAsItWasTyped) {
    whenDialogOpens(saveTitle,
                    [this](QDialog& dialog) { enter(dialog, QStringLiteral("stage.tormelk")); });
    EXPECT_EQ(desktop.runSavePanel(save), inFolder("stage.tormelk"));
}

TEST_F(FilePanels, OpenAFolderThatWasTyped) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("songs")));
    whenDialogOpens(saveTitle, [this](QDialog& dialog) {
        enter(dialog, QStringLiteral("songs"));
        const auto& panel = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_TRUE(panel.isVisible());
        EXPECT_EQ(panel.directory().dirName(), QStringLiteral("songs"));
        dialog.reject();
    });
    EXPECT_EQ(desktop.runSavePanel(save), std::nullopt);
}

TEST_F(FilePanels, AskBeforeAFileIsOverwritten) {
    createFile(QStringLiteral("Stage.Tormelk"));
    whenDialogOpens(saveTitle, [this](QDialog& dialog) {
        whenDialogOpens(saveTitle, [](QDialog&) {});
        QTimer::singleShot(50, &dialog, [&dialog] {
            auto* question = QApplication::activeModalWidget();
            ASSERT_NE(question, &dialog) << "there should be a question";
            press(*question, Qt::Key_Escape);
        });
        enter(dialog, QStringLiteral("Stage"));
        dialog.reject();
    });
    EXPECT_EQ(desktop.runSavePanel(save), std::nullopt);
}

TEST_F(FilePanels, OfferFilesOfTheTypeAndNoOthersToOpen) {
    createFile(QStringLiteral("Stage.Tormelk"));
    createFile(QStringLiteral("Notes.txt"));
    whenDialogOpens(openTitle, [this](QDialog& dialog) {
        const auto& panel = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(panel.nameFilters(), QStringList{QStringLiteral("Tormelk files (*.Tormelk)")});
        EXPECT_EQ(panel.fileMode(), QFileDialog::ExistingFile);
        enter(dialog, QStringLiteral("Stage.Tormelk"));
    });
    EXPECT_EQ(desktop.runOpenPanel(open), inFolder("Stage.Tormelk"));
}

TEST_F(FilePanels, OfferEveryFileWhereNoTypeIsAskedFor) {
    createFile(QStringLiteral("tormelk_1.bin"));
    whenDialogOpens(openTitle, [this](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).nameFilters(),
                  QStringList{QStringLiteral("All Files (*)")});
        enter(dialog, QStringLiteral("tormelk_1.bin"));
    });
    EXPECT_EQ(desktop.runOpenPanel({}), inFolder("tormelk_1.bin"));
}

TEST_F(FilePanels, OpenOneRightAfterTheOther) {
    QWidget window;
    window.show();
    window.activateWindow();
    for (int i = 0; i < 20; ++i) {
        whenDialogOpens(openTitle, [](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
        EXPECT_EQ(desktop.runOpenPanel(open), std::nullopt);
        whenDialogOpens(saveTitle, [](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
        EXPECT_EQ(desktop.runSavePanel(save), std::nullopt);
        if (i % 5 == 4) {
            QTest::qWait(110);  // those before have gone
        }
    }
}

/// Whether a list was open when a panel went.
class ListsLeftOpen final : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool left = event->type() == QEvent::Hide && QApplication::activePopupWidget();
        count += left ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(FilePanels, CloseTheListOfNamesBeforeTheyGo) {
    createFile(QStringLiteral("mix.Tormelk"));
    ListsLeftOpen lists;
    whenDialogOpens(openTitle, [&](QDialog& dialog) {
        dialog.installEventFilter(&lists);
        dynamic_cast<QFileDialog&>(dialog).setDirectory(folder.path());
        auto& field = support::hands::find<QLineEdit>(dialog, "fileNameEdit");
        EXPECT_TRUE(QTest::qWaitFor(
            [&field] {
                field.clear();
                QTest::keyClicks(&field, QStringLiteral("mix.Tormelk"));
                return QApplication::activePopupWidget() != nullptr;
            },
            30000));
        press(field, Qt::Key_Enter);
    });
    EXPECT_EQ(desktop.runOpenPanel(open), inFolder("mix.Tormelk"));
    EXPECT_EQ(lists.count, 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(FilePanels, AnswerNothingWhenCancelled) {
    whenDialogOpens(openTitle, [](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop.runOpenPanel(open), std::nullopt);
}

TEST_F(FilePanels, PassNamesOutsideAsciiOnUnharmed) {
    const QString name = QString::fromUtf8("B\xC3\xBChne 1.Tormelk");
    whenDialogOpens(saveTitle, [this, name](QDialog& dialog) { enter(dialog, name); });
    const auto path = desktop.runSavePanel(save);
    ASSERT_TRUE(path);
    EXPECT_EQ(path->filename().string(), "B\xC3\xBChne 1.Tormelk");
}

TEST_F(FilePanels, LeaveNothingInTheHomeFolder) {
    whenDialogOpens(openTitle, [this](QDialog& dialog) {
        dynamic_cast<QFileDialog&>(dialog).setDirectory(folder.path());
        dialog.reject();
    });
    EXPECT_EQ(desktop.runOpenPanel(open), std::nullopt);
    EXPECT_EQ(
        QDir(QDir::homePath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList());
}

}  // namespace
}  // namespace qt::desktop
