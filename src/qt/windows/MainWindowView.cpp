#include "qt/windows/MainWindowView.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "qt/access/Command.h"
#include "qt/surface/ControlButton.h"
#include "qt/surface/SurfacePanel.h"
#include "qt/widgets/ComboBoxView.h"
#include "qt/widgets/TextFieldView.h"
#include "qt/widgets/naming.h"
#include "qt/windows/AssignmentPanel.h"

namespace qt::windows {

namespace {

constexpr int outputWidth = 34;  // letters; MIDI port names can have over a hundred

/// A visible button for something the menu offers too.
QPushButton* buttonFor(QAction& action, const QString& outlet, const QString& caption,
                       const QString& name) {
    auto* button = new QPushButton(caption);
    button->setObjectName(outlet);
    button->setMinimumWidth(button->sizeHint().width() + 16);
    button->setToolTip(
        QStringLiteral("%1 (%2)").arg(name, action.shortcut().toString(QKeySequence::NativeText)));
    QObject::connect(button, &QPushButton::clicked, &action, &QAction::trigger);
    return button;
}

QFrame* makeSeparator(QFrame::Shape shape) {
    auto* line = new QFrame;
    line->setFrameShape(shape);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

}  // namespace

MainWindowView::MainWindowView(editor::MainWindow& window, editor::mainController& controller)
    : controller_(controller),
      binding_(*this, window.window, widgets::WindowBinding::Title::MarksUnsavedChanges),
      link_(window, [this] { refresh(); }) {
    makeActions(controller);
    makeMenus();
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(16, 12, 16, 8);
    layout->setSpacing(12);
    layout->addLayout(makeTopBar(window));
    layout->addWidget(makeSeparator(QFrame::HLine));
    layout->addLayout(makeContent(window), 1);
    setCentralWidget(content);
    showStatus(window);
    refresh();
}

QLayout* MainWindowView::makeContent(editor::MainWindow& window) {
    constexpr int assignmentWidth = 236;
    surface_ = new surface::SurfacePanel(window, controller_.state());
    assignment_ = new AssignmentPanel(window, controller_.state());
    assignment_->setFixedWidth(assignmentWidth);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addWidget(surface_, 1);
    columns->addWidget(makeSeparator(QFrame::VLine));
    columns->addWidget(assignment_);
    return columns;
}

void MainWindowView::showStatus(editor::MainWindow& window) {
    auto* text = new widgets::TextFieldView(window.status);
    text->setObjectName(QStringLiteral("status"));
    text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->setContentsMargins(12, 0, 12, 4);
    statusBar()->addWidget(text, 1);
    statusBar()->setSizeGripEnabled(false);
}

void MainWindowView::refresh() {
    surface_->refresh();
    assignment_->refresh();
    setWindowModified(controller_.isImageEdited());
    undo_->refresh();
}

QAction* MainWindowView::addAction(const QString& outlet, const QString& caption) {
    auto* action = new access::Command(caption, this);
    action->setObjectName(outlet);
    return action;
}

void MainWindowView::makeActions(editor::mainController& controller) {
    loadPreset_ = addAction(QStringLiteral("actionLoadPreset"), QStringLiteral("&Load Preset..."));
    loadPreset_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    connect(loadPreset_, &QAction::triggered, this, [&controller] { controller.loadFile(); });
    savePreset_ = addAction(QStringLiteral("actionSavePreset"), QStringLiteral("&Save Preset..."));
    savePreset_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    connect(savePreset_, &QAction::triggered, this, [&controller] { controller.saveFile(); });
    quit_ = addAction(QStringLiteral("actionQuit"), QStringLiteral("&Quit"));
    quit_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit_, &QAction::triggered, this, [&controller] { controller.exit(); });
    undo_ = std::make_unique<UndoActions>(*this, controller);

    send_ = addAction(QStringLiteral("actionSend"), QStringLiteral("&Send"));
    send_->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Return),
                         QKeySequence(Qt::CTRL | Qt::Key_Enter)});  // the keypad's
    connect(send_, &QAction::triggered, this, [&controller] { controller.sendData(); });
    midiDevices_ =
        addAction(QStringLiteral("actionMidiDevices"), QStringLiteral("&MIDI Devices..."));
    midiDevices_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    connect(midiDevices_, &QAction::triggered, this, [&controller] { controller.midiSelect(); });
    firmwareUpdate_ =
        addAction(QStringLiteral("actionFirmwareUpdate"), QStringLiteral("&Firmware Update..."));
    connect(firmwareUpdate_, &QAction::triggered, this, [&controller] { controller.firmware(); });

    about_ = addAction(QStringLiteral("actionAbout"), QStringLiteral("&About Tormelk Wyro"));
    connect(about_, &QAction::triggered, this, [&controller] { controller.about(); });
}

void MainWindowView::makeMenus() {
    file_ = menuBar()->addMenu(QStringLiteral("&File"));
    file_->addActions({loadPreset_, savePreset_});
    file_->addSeparator();
    file_->addAction(quit_);
    menuBar()->addMenu(QStringLiteral("&Edit"))->addActions(undo_->actions());
    QMenu* controllerMenu = menuBar()->addMenu(QStringLiteral("&Controller"));
    controllerMenu->addActions({send_, midiDevices_});
    controllerMenu->addSeparator();
    controllerMenu->addAction(firmwareUpdate_);
    menuBar()->addMenu(QStringLiteral("&Help"))->addAction(about_);
}

void MainWindowView::offer(editor::UnsavedWork& unsavedWork) {
    unsavedWork_ = std::make_unique<UnsavedWorkMenu>(*file_, *quit_, unsavedWork);
}

QBoxLayout* MainWindowView::makeTopBar(editor::MainWindow& window) {
    auto* mode = new widgets::ComboBoxView(window.combo_mode);
    widgets::nameWidget(*mode, QStringLiteral("combo_mode"),
                        QStringLiteral("The DAW the controller works with"));
    mode->setMinimumContentsLength(18);
    auto* locker = new surface::ControlButton(window.locker, surface::ControlButton::Shape::Key,
                                              QStringLiteral("&Lock"));
    widgets::nameWidget(*locker, QStringLiteral("locker"),
                        QStringLiteral("Lock the controller's settings"));
    locker->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    auto* bar = new QHBoxLayout;
    bar->addWidget(widgets::captionOf(*mode, QStringLiteral("DAW mo&de")));
    bar->addWidget(mode);
    bar->addSpacing(16);
    bar->addWidget(locker);
    bar->addStretch(1);
    auto* lamp = new surface::ControlButton(window.outputLamp, surface::ControlButton::Shape::Lamp,
                                            QString());
    widgets::nameWidget(*lamp, QStringLiteral("outputLamp"),
                        QStringLiteral("The output is online"));
    lamp->setFocusPolicy(Qt::NoFocus);
    lamp->setAttribute(Qt::WA_TransparentForMouseEvents);
    bar->addWidget(lamp);
    auto* output = new widgets::TextFieldView(window.output);
    output->setObjectName(QStringLiteral("output"));  // what a screen reader hears is its text
    output->setToolTip(QStringLiteral("Where a Send goes"));
    output->setMaximumWidth(output->fontMetrics().averageCharWidth() * outputWidth);
    bar->addWidget(output);
    bar->addSpacing(8);
    bar->addWidget(buttonFor(*midiDevices_, QStringLiteral("midiDevices"),
                             QStringLiteral("MIDI De&vices..."),
                             QStringLiteral("Choose the MIDI input and output")));
    bar->addWidget(buttonFor(*send_, QStringLiteral("send"), QStringLiteral("&Send"),
                             QStringLiteral("Send all four layers to the controller")));
    return bar;
}

}  // namespace qt::windows
