#include "qt/windows/AssignmentPanel.h"

#include <QFont>
#include <QLabel>
#include <QVBoxLayout>

#include "describe/assignment.h"
#include "describe/controlNames.h"
#include "qt/surface/ControlButton.h"
#include "qt/widgets/ComboBoxView.h"
#include "qt/widgets/TextFieldView.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"
#include "qt/windows/headingFont.h"

namespace qt::windows {

namespace {

constexpr int spaceInARow = 4;
constexpr int spaceBetweenRows = 12;

QLabel* addLine(QVBoxLayout& layout, const QString& outlet) {
    auto* label = new QLabel;
    label->setObjectName(outlet);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout.addWidget(label);
    return label;
}

/// So that what stands below keeps its place, whatever is said.
void keepSpaceFor(QLabel& label, int lines) {
    label.setMinimumHeight(lines * label.fontMetrics().lineSpacing());
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void addRow(QVBoxLayout& layout, QLabel* caption, QWidget* field) {
    layout.addSpacing(spaceBetweenRows);
    layout.addWidget(caption);
    layout.addSpacing(spaceInARow);
    layout.addWidget(field);
}

widgets::ComboBoxView* makeBox(toolkit::ComboBox& model, const QString& outlet,
                               const QString& name) {
    auto* box = new widgets::ComboBoxView(model);
    widgets::nameWidget(*box, outlet, name);
    return box;
}

/// What there is to do where the boxes cannot be used.
QString hintFor(const editor::EditorState& state) {
    const bool nothing = state.selection.keyEvnt == editor::noControl;
    if (state.modes.machn_mod != editor::userDefinedMode) {
        return QStringLiteral(
            "The DAW decides what the controls do. Choose User Defined Mode to change them.");
    }
    return nothing ? QStringLiteral("Click a control to see and change what it sends.") : QString();
}

}  // namespace

AssignmentPanel::AssignmentPanel(editor::MainWindow& window, const editor::EditorState& state,
                                 QWidget* parent)
    : QWidget(parent), state_(state) {
    setObjectName(QStringLiteral("assignment"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addHeading();
    addBoxes(window);
    layout->addStretch(1);
    refresh();
}

void AssignmentPanel::addHeading() {
    auto& lines = dynamic_cast<QVBoxLayout&>(*layout());
    control_ = addLine(lines, QStringLiteral("selectedControl"));
    control_->setFont(headingFont(control_->font()));
    layer_ = addLine(lines, QStringLiteral("selectedLayer"));
    lines.addSpacing(spaceBetweenRows);
    sends_ = addLine(lines, QStringLiteral("selectedSends"));
    keepSpaceFor(*sends_, 2);
}

void AssignmentPanel::addBoxes(editor::MainWindow& window) {
    auto& rows = dynamic_cast<QVBoxLayout&>(*layout());
    auto* type = makeBox(window.combo_type, QStringLiteral("combo_type"),
                         QStringLiteral("What kind of message the selected control sends"));
    addRow(rows, widgets::captionOf(*type, QStringLiteral("Message &type")), type);
    auto* channel = makeBox(window.combo_chan, QStringLiteral("combo_chan"),
                            QStringLiteral("MIDI channel of the selected control"));
    addRow(rows, widgets::captionOf(*channel, QStringLiteral("Ch&annel")), channel);

    auto* number = makeBox(
        window.combo_cc, QStringLiteral("combo_cc"),
        QStringLiteral("Note, controller or program of the selected control; type to search"));
    auto* numberCaption = new widgets::TextFieldView(window.mode_info, QStringLiteral("N&umber"));
    numberCaption->setObjectName(QStringLiteral("mode_info"));
    numberCaption->setBuddy(number);
    addRow(rows, numberCaption, number);

    auto* trigger = makeBox(window.combo_trig, QStringLiteral("combo_trig"),
                            QStringLiteral("Momentary or toggle"));
    addRow(rows, widgets::captionOf(*trigger, QStringLiteral("Tri&gger mode")), trigger);

    auto* lamp = new surface::ControlButton(window.trigger, surface::ControlButton::Shape::Lamp,
                                            QStringLiteral("Trigger"));
    widgets::nameWidget(*lamp, QStringLiteral("trigger"), QStringLiteral("Trigger indicator"));
    lamp->setFocusPolicy(Qt::NoFocus);
    lamp->setAttribute(Qt::WA_TransparentForMouseEvents);
    rows.addSpacing(spaceBetweenRows);
    rows.addWidget(lamp);

    rows.addSpacing(spaceBetweenRows);
    hint_ = addLine(rows, QStringLiteral("selectionHint"));
    keepSpaceFor(*hint_, 4);
}

void AssignmentPanel::refresh() {
    const int control = state_.selection.keyEvnt;
    const int layer = state_.layers.layrData;
    const std::string name = describe::controlName(control);
    control_->setText(name.empty() ? QStringLiteral("Nothing selected") : widgets::asText(name));
    layer_->setText(name.empty() ? QString() : QStringLiteral("Layer %1").arg(layer + 1));
    sends_->setText(name.empty()
                        ? QString()
                        : widgets::asText(describe::assignmentOf(state_.sysData, layer,
                                                                 state_.modes.machn_mod, control)
                                              .fullText()));
    hint_->setText(hintFor(state_));
}

}  // namespace qt::windows
