#include "qt/surface/SurfaceEditor.h"

#include <QApplication>
#include <QTest>
#include <array>

#include "config/control.h"
#include "config/layout.h"
#include "qt/mouse.h"

namespace tests {

namespace {

/// A layer with something of everything, set as a person would set it.
void mixAssignments(SurfaceEditor& editor) {
    constexpr std::array<int, 4> modeBytes = {0x09, 0x4B, 0x0C, 0x49};
    for (int control = 0; control < config::firstEncoder; ++control) {
        const auto pick = static_cast<std::size_t>(control % 7 % 4);
        config::setMode(editor.state.sysData, 0, control, modeBytes.at(pick));
        config::setNumber(editor.state.sysData, 0, control, (control * 37 + 20) % 128);
        config::setChannel(editor.state.sysData, 0, control, control * 5 % 16);
    }
    config::setMode(editor.state.sysData, 0, config::firstEncoder + 2, 0x0C);
    config::setMode(editor.state.sysData, 0, config::firstEncoder + 5, 0x09);
    config::setMode(editor.state.sysData, 0, config::lastFader, 0x0E);
    config::setMode(editor.state.sysData, 0, config::firstPad, 0x0B);
    config::setMode(editor.state.sysData, 0, config::firstPad + 1, 0x08);
}

void lookAt(SurfaceEditor& editor, const char* name,
            const std::function<void(SurfaceEditor&, const QString&)>& visit) {
    QApplication::processEvents();
    visit(editor, QString::fromLatin1(name));
}

}  // namespace

SurfaceEditor::SurfaceEditor() {
    controller.awakeFromNib();
    window.actionEnded = [this] { panel.refresh(); };
    panel.resize(panel.sizeHint());
    panel.show();
    panel.refresh();
}

void SurfaceEditor::click(int tag) {
    window.keysOrderedByTag.at(static_cast<std::size_t>(tag)).click();
}

qt::surface::FaceButton& SurfaceEditor::face(const QString& outlet) const {
    for (QPushButton* button : panel.findChildren<QPushButton*>(outlet)) {
        if (auto* face = dynamic_cast<qt::surface::FaceButton*>(button)) {
            return *face;
        }
    }
    qFatal("There is no face \"%s\"", qUtf8Printable(outlet));
}

qt::surface::FaceButton& SurfaceEditor::faceOf(int tag) const {
    return face(QStringLiteral("encoder%1").arg(tag));
}

void forEverySurface(const std::function<void(SurfaceEditor& editor, const QString& name)>& visit) {
    SurfaceEditor editor;
    parkMouse();
    (void)QTest::qWaitForWindowActive(&editor.panel);
    editor.click(9);
    lookAt(editor, "surface-nuendo", visit);
    editor.chooseMode(editor::liveMode);
    lookAt(editor, "surface-live", visit);
    editor.chooseMode(editor::huiMode);
    lookAt(editor, "surface-hui", visit);
    editor.chooseMode(editor::userDefinedMode);
    editor.window.moLaCtrls[1].click();
    editor.click(58);
    lookAt(editor, "surface-fader", visit);
    editor.window.moLaCtrls[3].click();
    editor.click(12);
    lookAt(editor, "surface-toggles", visit);
    editor.window.moLaCtrls[0].click();
    mixAssignments(editor);
    editor.click(49);
    editor.faceOf(49).setFocus();
    lookAt(editor, "surface-mixed", visit);
    editor.click(69);
    editor.face(QStringLiteral("moLa3")).setFocus();
    lookAt(editor, "surface-pad", visit);
    QTest::mouseMove(&editor.faceOf(17));
    QTest::mousePress(&editor.faceOf(18), Qt::LeftButton);
    lookAt(editor, "surface-held", visit);
    QTest::mouseRelease(&editor.faceOf(18), Qt::LeftButton);
    parkMouse();
    editor.panel.setEnabled(false);
    lookAt(editor, "surface-disabled", visit);
}

}  // namespace tests
