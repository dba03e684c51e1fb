#include "qt/windows/FirmView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/widgets/ProgressView.h"
#include "qt/widgets/TextFieldView.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"
#include "sending/pace.h"

namespace qt::windows {

namespace {

constexpr int linesOfOutcome = 3;

widgets::TextFieldView* stateLine(toolkit::TextField& model, const char* outlet,
                                  const QString& whenEmpty = {}) {
    auto* line = new widgets::TextFieldView(model, whenEmpty);
    line->setObjectName(QString::fromLatin1(outlet));
    QFont italic = line->font();
    italic.setItalic(true);
    line->setFont(italic);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // port names may be long
    return line;
}

}  // namespace

FirmView::FirmView(firmware::firm& controller)
    : widgets::DialogView(controller, QString()),
      controller_(controller),
      close_(new widgets::ButtonView(controller.closeButton, widgets::ButtonView::Kind::Command,
                                     QStringLiteral("Close"))) {
    setWindowTitle(widgets::asText(controller.window().title()));
    steps_[0] = makeStep(
        1,
        {QStringLiteral("Send the controller into its update mode"),
         QStringLiteral("Connect the controller, choose its output and send it the message."),
         QStringLiteral("It then waits for firmware. If it does so already, go on with step 3.")},
        controller.updateButton, QStringLiteral("update"), QStringLiteral("&Update Mode"));
    steps_[1] = makeStep(
        2,
        {QStringLiteral("Check that it is still connected"),
         QStringLiteral("Choose the controller's ports to be looked at."),
         QStringLiteral("If it is gone, this program has to be started anew; go on with step 3 "
                        "then.")},
        controller.checkButton, QStringLiteral("check"), QStringLiteral("Chec&k..."));
    steps_[2] = makeStep(
        3,
        {QStringLiteral("Choose the device"),
         QStringLiteral("Choose the controller's output once more."),
         QStringLiteral("In its update mode it may have another name than before.")},
        controller.selectButton, QStringLiteral("select"), QStringLiteral("Choose &Device..."));
    steps_[3] = makeStep(
        4,
        {QStringLiteral("Open the firmware file"),
         QStringLiteral("Choose a file whose name begins with \"tormelk\", of the type BIN."),
         QStringLiteral("It is read at once. A file that is refused is never written.")},
        controller.openButton, QStringLiteral("open"), QStringLiteral("&Open File..."));
    steps_[4] = makeStep(
        5,
        {QStringLiteral("Upload"),
         QStringLiteral("You are asked once more; then the controller is erased and written."),
         QStringLiteral("That takes up to %1. Until it has ended, the window takes no clicks.")
             .arg(widgets::asText(sending::inWords(sending::timeOfUpload(112))))},
        controller.uploadButton, QStringLiteral("upload"), QStringLiteral("U&pload..."));

    auto* choose =
        new widgets::ButtonView(controller.outputButton, widgets::ButtonView::Kind::Command,
                                QStringLiteral("Choose Outpu&t..."));
    choose->setObjectName(QStringLiteral("chooseOutput"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(4);
    steps_[0].row->addLine(stateLine(controller.step1, "step1"));
    steps_[1].row->addLine(stateLine(controller.step2, "step2", QStringLiteral("Not checked.")));
    steps_[2].row->addLine(stateLine(controller.step3, "step3"));
    steps_[3].row->addLine(stateLine(controller.step4, "step4"));
    steps_[0].row->addButton(choose);
    for (const Step& step : steps_) {
        step.row->addButton(step.button);
        layout->addWidget(step.row);
    }
    setTabOrder(choose, steps_[0].button);
    for (std::size_t i = 1; i < steps_.size(); ++i) {
        setTabOrder(steps_.at(i - 1).button, steps_.at(i).button);
    }

    auto* progress = new widgets::ProgressView(controller.progress);
    widgets::nameWidget(*progress, QStringLiteral("progress"),
                        QStringLiteral("How far the upload is"));
    auto* text =
        new widgets::TextFieldView(controller.step5, QStringLiteral("Nothing is being sent."));
    text->setObjectName(QStringLiteral("step5"));
    text->setWordWrap(true);  // what became of an upload that was cut takes some words
    const int lineHeight = text->fontMetrics().lineSpacing();
    const int above = std::max(0, (close_->sizeHint().height() - lineHeight) / 2);
    text->setContentsMargins(0, above, 0, 0);  // the first line stands beside the button's words
    text->setFixedHeight(above + linesOfOutcome * lineHeight);
    text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    close_->setObjectName(QStringLiteral("close"));
    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(0, 4, 0, 0);
    bottom->addWidget(text, 1);
    bottom->addWidget(close_, 0, Qt::AlignTop);
    layout->addSpacing(6);
    layout->addWidget(progress);
    layout->addLayout(bottom);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(steps_.back().button, close_);

    controller_.onNextStep = [this] { showNextStep(); };
    showNextStep();
}

FirmView::~FirmView() {
    controller_.onNextStep = nullptr;
}

FirmView::Step FirmView::makeStep(int number, const StepRow::Words& words, toolkit::Button& model,
                                  const QString& outlet, const QString& caption) {
    auto* row = new StepRow(number, words);
    row->setObjectName(outlet + QStringLiteral("Row"));
    auto* button = new widgets::ButtonView(model, widgets::ButtonView::Kind::Command, caption);
    button->setObjectName(outlet);
    button->setMinimumWidth(130);
    return {row, button};
}

void FirmView::showNextStep() {
    const int next = controller_.nextStep();
    int number = 0;
    for (const Step& step : steps_) {
        const bool isNext = ++number == next;
        step.row->setNext(isNext);
        step.button->setDefault(isNext);
        step.button->setAccessibleDescription(
            QStringLiteral("Step %1").arg(number) +
            (isNext ? QStringLiteral(", the next one to be done") : QString()));
    }
    close_->setDefault(next == 0);
}

}  // namespace qt::windows
