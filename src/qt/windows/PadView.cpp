#include "qt/windows/PadView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "describe/controlNames.h"
#include "describe/reports.h"
#include "qt/surface/PadPanel.h"
#include "qt/widgets/ButtonView.h"
#include "qt/widgets/ComboBoxView.h"
#include "qt/widgets/TextFieldView.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"
#include "qt/windows/VelocityPicture.h"
#include "qt/windows/headingFont.h"

namespace qt::windows {

namespace {

constexpr int constantVelocityEntry = 5;  // behind the five curves of `combo_curv`
constexpr int lettersInABox = 12;

QLabel* makeLine(const QString& outlet) {
    auto* label = new QLabel;
    label->setObjectName(outlet);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* makeHeading(const QString& outlet) {
    QLabel* label = makeLine(outlet);
    label->setFont(headingFont(label->font()));
    return label;
}

/// Rows of captions and boxes, the captions of several such grids as wide as each other.
class Rows {
public:
    explicit Rows(int captionWidth) : grid_(new QGridLayout) {
        grid_->setColumnMinimumWidth(0, captionWidth);
        grid_->setColumnStretch(1, 1);
        grid_->setHorizontalSpacing(12);
        grid_->setVerticalSpacing(8);
    }

    /// `beside` stands to the right of the box.
    widgets::ComboBoxView& add(toolkit::ComboBox& model, const QString& outlet,
                               const QString& caption, const QString& name,
                               QWidget* beside = nullptr) {
        auto* box = new widgets::ComboBoxView(model);
        widgets::nameWidget(*box, outlet, name);
        box->setMinimumContentsLength(lettersInABox);
        const int row = grid_->rowCount();
        grid_->addWidget(widgets::captionOf(*box, caption), row, 0);
        grid_->addWidget(box, row, 1, 1, beside == nullptr ? 2 : 1);
        if (beside != nullptr) {
            grid_->addWidget(beside, row, 2);
        }
        return *box;
    }

    [[nodiscard]] QGridLayout* grid() const { return grid_; }

private:
    QGridLayout* grid_;
};

}  // namespace

PadView::PadView(editor::pad& controller)
    : widgets::DialogView(controller, QStringLiteral("Pad Editor")),
      controller_(controller),
      pads_(new surface::PadPanel(controller)),
      pad_(makeHeading(QStringLiteral("selectedPad"))),
      sends_(makeLine(QStringLiteral("selectedSends"))),
      layer_(makeHeading(QStringLiteral("selectedLayer"))),
      link_(controller, [this] { refresh(); }) {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(24);
    columns->addWidget(pads_, 1);
    columns->addLayout(makeSettings());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(12);
    layout->addLayout(columns, 1);
    layout->addLayout(makeFoot());
    refresh();
}

QLayout* PadView::makeSettings() {
    const int captionWidth =
        fontMetrics().horizontalAdvance(QStringLiteral("Constant velocity")) + 4;
    Rows ofPad(captionWidth);
    ofPad.add(controller_.combo_msg, QStringLiteral("combo_msg"), QStringLiteral("&Note"),
              QStringLiteral("Note of the selected pad"));
    ofPad.add(controller_.combo_chan, QStringLiteral("combo_chan"), QStringLiteral("&Channel"),
              QStringLiteral("MIDI channel"));
    ofPad.add(controller_.combo_chanMod, QStringLiteral("combo_chanMod"),
              QStringLiteral("Channel &for"),
              QStringLiteral("Whether a channel is chosen for one pad or for all nine"));

    Rows ofLayer(captionWidth);
    ofLayer.add(controller_.combo_intervl, QStringLiteral("combo_intervl"),
                QStringLiteral("&Interval"), QStringLiteral("Pad interval in milliseconds"));
    const widgets::ComboBoxView& curve =
        ofLayer.add(controller_.combo_curv, QStringLiteral("combo_curv"),
                    QStringLiteral("Velocity c&urve"), QStringLiteral("Velocity curve"));
    auto* constant = new widgets::TextFieldView(controller_.tx_Non);
    constant->setObjectName(QStringLiteral("tx_Non"));
    constant->setMinimumWidth(constant->fontMetrics().horizontalAdvance(QStringLiteral("Const")));
    const widgets::ComboBoxView& velocity = ofLayer.add(
        controller_.combo_curConst, QStringLiteral("combo_curConst"),
        QStringLiteral("Constant &velocity"), QStringLiteral("Constant velocity"), constant);

    auto* layout = new QVBoxLayout;
    layout->setSpacing(0);
    layout->addWidget(pad_);
    layout->addWidget(sends_);
    layout->addSpacing(10);
    layout->addLayout(ofPad.grid());
    layout->addSpacing(22);
    layout->addWidget(layer_);
    layout->addWidget(new QLabel(QStringLiteral("All nine pads of the layer share these.")));
    layout->addSpacing(10);
    layout->addLayout(ofLayer.grid());
    layout->addSpacing(12);
    layout->addWidget(new VelocityPicture(curve, velocity, constantVelocityEntry));
    layout->addStretch(1);
    return layout;
}

QLayout* PadView::makeFoot() {
    auto* status = new widgets::TextFieldView(controller_.status);
    status->setObjectName(QStringLiteral("status"));
    auto* done = new widgets::ButtonView(controller_.finish, widgets::ButtonView::Kind::Command,
                                         QStringLiteral("Done"));
    done->setObjectName(QStringLiteral("finish"));
    done->setDefault(true);
    auto* foot = new QHBoxLayout;
    undo_ = std::make_unique<UndoActions>(*this, controller_);
    foot->addWidget(status, 1);
    foot->addWidget(done);
    return foot;
}

void PadView::refresh() {
    pads_->refresh();
    const int control = controller_.currentPad();
    const bool selected = config::isPad(control);
    pad_->setText(selected ? widgets::asText(describe::controlName(control))
                           : QStringLiteral("No pad selected"));
    sends_->setText(selected ? widgets::asText(controller_.assignmentOfPad(control).fullText())
                             : QStringLiteral("Click a pad to set its note and channel."));
    layer_->setText(widgets::asText(describe::padLayerName(controller_.currentLayer())));
    undo_->refresh();
}

}  // namespace qt::windows
