#include "qt/windows/FirmView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "qt/widgets/ProgressView.h"
#include "qt/widgets/TextFieldView.h"
#include "qt/widgets/asText.h"
#include "qt/widgets/naming.h"
#include "sending/pace.h"

namespace qt::windows {

namespace {

using firmware::firm;

/// A step: its words, its button, and the line that says what it stands at.
struct StepContent {
    struct Words {
        std::string_view title;
        std::string_view whatToDo;
        std::string_view whatToExpect;
    };
    struct Button {
        toolkit::Button firm::*model;
        std::string_view outlet;
        std::string_view caption;
    };
    struct State {
        toolkit::TextField firm::*model = nullptr;  ///< none: the last one's stands at the bottom
        std::string_view outlet;
        std::string_view whenEmpty;
    };
    Words words;
    Button button;
    State state;
};

constexpr std::array<StepContent, 5> stepContents = {{
    {.words = {"Send the controller into its update mode",
               "Connect the controller, choose its output and send it the message.",
               "It then waits for firmware. If it does so already, go on with step 3."},
     .button = {&firm::updateButton, "update", "&Update Mode"},
     .state = {&firm::step1, "step1", ""}},
    {.words = {"Check that it is still connected", "Choose the controller's ports to be looked at.",
               "If it is gone, this program has to be started anew; go on with step 3 then."},
     .button = {&firm::checkButton, "check", "Chec&k..."},
     .state = {&firm::step2, "step2", "Not checked."}},
    {.words = {"Choose the device", "Choose the controller's output once more.",
               "In its update mode it may have another name than before."},
     .button = {&firm::selectButton, "select", "Choose &Device..."},
     .state = {&firm::step3, "step3", ""}},
    {.words = {"Open the firmware file",
               "Choose a file whose name begins with \"tormelk\", of the type BIN.",
               "It is read at once. A file that is refused is never written."},
     .button = {&firm::openButton, "open", "&Open File..."},
     .state = {&firm::step4, "step4", ""}},
    {.words = {"Upload", "You are asked once more; then the controller is erased and written.",
               "That takes up to %1. Until it has ended, the window takes no clicks."},
     .button = {&firm::uploadButton, "upload", "U&pload..."},
     .state = {}},
}};

/// Of the largest image, for the "%1" above.
QString longestUpload() {
    constexpr int mostBlocks = 112;
    return widgets::asText(sending::inWords(sending::timeOfUpload(mostBlocks)));
}

StepRow::Words asTexts(const StepContent::Words& words) {
    return {widgets::asText(words.title), widgets::asText(words.whatToDo),
            widgets::asText(words.whatToExpect).replace(QStringLiteral("%1"), longestUpload())};
}

widgets::ButtonView* makeButton(toolkit::Button& model, std::string_view outlet,
                                std::string_view caption) {
    auto* button = new widgets::ButtonView(model, widgets::ButtonView::Kind::Command,
                                           widgets::asText(caption));
    button->setObjectName(widgets::asText(outlet));
    return button;
}

widgets::TextFieldView* makeStateLine(toolkit::TextField& model, std::string_view outlet,
                                      std::string_view whenEmpty) {
    auto* line = new widgets::TextFieldView(model, widgets::asText(whenEmpty));
    line->setObjectName(widgets::asText(outlet));
    QFont italic = line->font();
    italic.setItalic(true);
    line->setFont(italic);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // port names may be long
    return line;
}

/// Its first line stands beside the words of the button.
widgets::TextFieldView* makeOutcome(toolkit::TextField& model, const QPushButton& button) {
    constexpr int lines = 3;
    auto* text = new widgets::TextFieldView(model, QStringLiteral("Nothing is being sent."));
    text->setObjectName(QStringLiteral("step5"));
    text->setWordWrap(true);  // what became of an upload that was cut takes some words
    const int lineHeight = text->fontMetrics().lineSpacing();
    const int above = std::max(0, (button.sizeHint().height() - lineHeight) / 2);
    text->setContentsMargins(0, above, 0, 0);
    text->setFixedHeight(above + lines * lineHeight);
    text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return text;
}

}  // namespace

FirmView::FirmView(firmware::firm& controller)
    : widgets::DialogView(controller, widgets::asText(controller.window().title())),
      controller_(controller),
      chooseOutput_(makeButton(controller.outputButton, "chooseOutput", "Choose Outpu&t...")),
      close_(makeButton(controller.closeButton, "close", "Close")),
      link_(controller, [this] { showNextStep(); }) {
    auto* progress = new widgets::ProgressView(controller.progress);
    widgets::nameWidget(*progress, QStringLiteral("progress"),
                        QStringLiteral("How far the upload is"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(4);
    addSteps(*layout);
    layout->addSpacing(6);
    layout->addWidget(progress);
    layout->addLayout(makeBottom());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(steps_.back().button, close_);
    showNextStep();
}

void FirmView::addSteps(QLayout& layout) {
    constexpr int buttonWidth = 130;
    QWidget* before = chooseOutput_;
    std::size_t index = 0;
    for (const auto& [words, button, state] : stepContents) {
        Step& step = steps_.at(index++);
        step.row = new StepRow(static_cast<int>(index), asTexts(words));
        step.row->setObjectName(widgets::asText(button.outlet) + QStringLiteral("Row"));
        step.button = makeButton(controller_.*button.model, button.outlet, button.caption);
        step.button->setMinimumWidth(buttonWidth);
        if (state.model != nullptr) {
            step.row->addLine(
                makeStateLine(controller_.*state.model, state.outlet, state.whenEmpty));
        }
        if (index == 1) {
            step.row->addButton(chooseOutput_);
        }
        step.row->addButton(step.button);
        layout.addWidget(step.row);
        setTabOrder(before, step.button);
        before = step.button;
    }
}

QLayout* FirmView::makeBottom() {
    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(0, 4, 0, 0);
    bottom->addWidget(makeOutcome(controller_.step5, *close_), 1);
    bottom->addWidget(close_, 0, Qt::AlignTop);
    return bottom;
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
