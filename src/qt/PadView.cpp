#include "qt/PadView.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>

#include "config/layout.h"
#include "qt/ButtonView.h"
#include "qt/ComboBoxView.h"
#include "qt/ControlButton.h"
#include "qt/TextFieldView.h"
#include "qt/VelocityPicture.h"
#include "qt/controlFaces.h"
#include "qt/widgets.h"

namespace qt {

namespace {

constexpr int padsInARow = 3;
constexpr int constantVelocityEntry = 5;  // behind the five curves of `combo_curv`

/// A box with its caption; `beside` stands to its right.
ComboBoxView* addBox(QFormLayout& form, toolkit::ComboBox& model, const QString& outlet,
                     const QString& caption, const QString& name, QWidget* beside = nullptr) {
    auto* box = new ComboBoxView(model);
    nameWidget(*box, outlet, name);
    box->setMinimumContentsLength(12);
    auto* row = new QHBoxLayout;
    row->addWidget(box, 1);
    if (beside != nullptr) {
        row->addWidget(beside);
    }
    form.addRow(captionOf(*box, caption), row);
    return box;
}

}  // namespace

PadView::PadView(editor::pad& controller) : DialogView(controller, QStringLiteral("Pad Editor")) {
    auto* done =
        new ButtonView(controller.finish, ButtonView::Kind::Command, QStringLiteral("Done"));
    done->setObjectName(QStringLiteral("finish"));
    done->setDefault(true);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(20);
    columns->addLayout(makePads(controller), 1);
    columns->addLayout(makeSettings(controller));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(done);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(columns, 1);
    layout->addLayout(buttons);
}

QLayout* PadView::makePads(editor::pad& controller) {
    auto* layers = new QHBoxLayout;
    int number = 1;
    for (toolkit::Button* model : {&controller.m_paLa1, &controller.m_paLa2, &controller.m_paLa3}) {
        const QString caption = QStringLiteral("Pad layer %1").arg(number + 1);
        auto* button = new ControlButton(*model, ControlButton::Shape::Key, caption);
        nameWidget(*button, QStringLiteral("m_paLa%1").arg(number), caption);
        button->beOneOfSeveral();
        layers->addWidget(button, 1);
        ++number;
    }
    auto* pads = new QGridLayout;
    for (int position = 0; position < config::padCount; ++position) {
        auto* button = new ControlButton(controller.m_pads[static_cast<std::size_t>(position)],
                                         ControlButton::Shape::Pad, padCaption(position));
        nameWidget(*button, QStringLiteral("p%1").arg(position + 1), padCaption(position));
        pads->addWidget(button, position / padsInARow, position % padsInARow);
    }
    auto* layout = new QVBoxLayout;
    layout->setSpacing(12);
    layout->addLayout(layers);
    layout->addLayout(pads, 1);
    return layout;
}

QLayout* PadView::makeSettings(editor::pad& controller) {
    auto* ofPad = new QGroupBox(QStringLiteral("Selected pad"));
    auto* padForm = new QFormLayout(ofPad);
    addBox(*padForm, controller.combo_msg, QStringLiteral("combo_msg"), QStringLiteral("&Note"),
           QStringLiteral("Note of the selected pad"));
    addBox(*padForm, controller.combo_chan, QStringLiteral("combo_chan"),
           QStringLiteral("&Channel"), QStringLiteral("MIDI channel"));
    addBox(*padForm, controller.combo_chanMod, QStringLiteral("combo_chanMod"),
           QStringLiteral("Channel &for"),
           QStringLiteral("Whether a channel is chosen for one pad or for all nine"));

    auto* ofLayer = new QGroupBox(QStringLiteral("Whole pad layer"));
    auto* layerForm = new QFormLayout(ofLayer);
    addBox(*layerForm, controller.combo_intervl, QStringLiteral("combo_intervl"),
           QStringLiteral("&Interval"), QStringLiteral("Pad interval in milliseconds"));
    const auto* curve = addBox(*layerForm, controller.combo_curv, QStringLiteral("combo_curv"),
                               QStringLiteral("Velocity c&urve"), QStringLiteral("Velocity curve"));
    auto* constant = new TextFieldView(controller.tx_Non);
    constant->setObjectName(QStringLiteral("tx_Non"));
    constant->setMinimumWidth(QLabel(QStringLiteral("Const")).sizeHint().width());
    const auto* velocity =
        addBox(*layerForm, controller.combo_curConst, QStringLiteral("combo_curConst"),
               QStringLiteral("Constant &velocity"), QStringLiteral("Constant velocity"), constant);
    layerForm->addRow(new VelocityPicture(*curve, *velocity, constantVelocityEntry));

    for (QFormLayout* form : {padForm, layerForm}) {
        form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    }
    auto* layout = new QVBoxLayout;
    layout->setSpacing(12);
    layout->addWidget(ofPad);
    layout->addWidget(ofLayer);
    layout->addStretch(1);
    return layout;
}

}  // namespace qt
