#pragma once

#include <QComboBox>
#include <QDialog>
#include <QTemporaryDir>

#include "app/Editor.h"
#include "editor/walk/Driver.h"
#include "platform/software/SoftwareMidiService.h"
#include "qt/desktop/QtDesktop.h"

namespace walk {

/// The editor as it is shipped, worked through its windows by mouse and keyboard in turn.
class WindowDriver final : public Driver {
public:
    enum class Hand { Mouse, Keyboard };

    /// `first` is what the first click or choice is made with.
    explicit WindowDriver(Hand first);

    void clickControl(int tag) override;
    void clickModeLayer(int index) override;
    void clickFirstPadLayer() override;
    void clickPadLayer(int index, const std::function<void()>& inside) override;
    void clickLocker() override;
    void choose(MainBox box, int index) override;

    void clickPad(int index) override;
    void clickEditorLayer(int padLayer) override;
    void chooseInPadEditor(PadBox box, int index) override;
    void finish() override;
    void closePadEditor() override;

    [[nodiscard]] editor::EditorState& state() override { return editor_.state; }
    [[nodiscard]] editor::MainWindow& window() override { return editor_.window; }
    [[nodiscard]] editor::mainController& controller() override { return editor_.controller; }
    [[nodiscard]] editor::pad* padEditor() override { return pad_; }
    [[nodiscard]] std::string shownOtherwise() override;

private:
    /// Changes hands with every call.
    [[nodiscard]] Hand nextHand();
    void operate(const QWidget& window, const QString& button);
    void pick(const QWidget& window, const QString& box, int index);

    platform::software::SoftwareMidiService service_;
    qt::desktop::QtDesktop desktop_{[](int) {}};
    const QTemporaryDir folder_;
    app::Editor editor_{service_, desktop_,
                        folder_.filePath(QStringLiteral("unsaved")).toStdString()};
    editor::pad* pad_ = nullptr;
    QDialog* padWindow_ = nullptr;
    Hand hand_;
};

}  // namespace walk
