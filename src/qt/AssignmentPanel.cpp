#include "qt/AssignmentPanel.h"

#include <QGridLayout>

#include "qt/ComboBoxView.h"
#include "qt/ControlButton.h"
#include "qt/TextFieldView.h"
#include "qt/widgets.h"

namespace qt {

namespace {

ComboBoxView* makeBox(toolkit::ComboBox& model, const QString& outlet, const QString& name) {
    auto* box = new ComboBoxView(model);
    nameWidget(*box, outlet, name);
    return box;
}

}  // namespace

AssignmentPanel::AssignmentPanel(editor::MainWindow& window, QWidget* parent) : QWidget(parent) {
    auto* type = makeBox(window.combo_type, QStringLiteral("combo_type"),
                         QStringLiteral("What kind of message the selected control sends"));
    auto* channel = makeBox(window.combo_chan, QStringLiteral("combo_chan"),
                            QStringLiteral("MIDI channel of the selected control"));
    auto* number = makeBox(window.combo_cc, QStringLiteral("combo_cc"),
                           QStringLiteral("Note, controller or program of the selected control"));
    auto* trigger = makeBox(window.combo_trig, QStringLiteral("combo_trig"),
                            QStringLiteral("Momentary or toggle"));
    auto* numberCaption = new TextFieldView(window.mode_info, QStringLiteral("N&umber"));
    numberCaption->setObjectName(QStringLiteral("mode_info"));
    numberCaption->setBuddy(number);

    auto* lamp =
        new ControlButton(window.trigger, ControlButton::Shape::Lamp, QStringLiteral("Trigger"));
    nameWidget(*lamp, QStringLiteral("trigger"), QStringLiteral("Trigger indicator"));
    lamp->setFocusPolicy(Qt::NoFocus);
    lamp->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(16);
    grid->addWidget(captionOf(*type, QStringLiteral("M&essage type")), 0, 0);
    grid->addWidget(type, 1, 0);
    grid->addWidget(captionOf(*channel, QStringLiteral("Ch&annel")), 0, 1);
    grid->addWidget(channel, 1, 1);
    grid->addWidget(numberCaption, 0, 2);
    grid->addWidget(number, 1, 2);
    grid->addWidget(captionOf(*trigger, QStringLiteral("Tri&gger mode")), 0, 3);
    grid->addWidget(trigger, 1, 3);
    grid->addWidget(lamp, 1, 4);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 4);
    grid->setColumnStretch(3, 2);
}

}  // namespace qt
