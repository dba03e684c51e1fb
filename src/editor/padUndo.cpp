// Undo and Redo within the pad editor. When it has closed, the main window counts all of it as one
// step.

#include "describe/reports.h"
#include "editor/pad.h"

namespace editor {

template <typename AnyMoment, typename Visit>
void pad::forEachPart(AnyMoment& moment, Visit visit) {
    const std::array<toolkit::Button*, 3> layers = {&m_paLa1, &m_paLa2, &m_paLa3};
    for (std::size_t i = 0; i < layers.size(); ++i) {
        visit(*layers[i], moment.layers[i]);
    }
    for (std::size_t i = 0; i < m_pads.size(); ++i) {
        visit(m_pads[i], moment.pads[i]);
    }
    const auto ownBoxes = boxes();
    for (std::size_t i = 0; i < ownBoxes.size(); ++i) {
        visit(*ownBoxes[i], moment.boxes[i]);
    }
    visit(tx_Non, moment.tx_Non);
}

pad::Moment pad::moment() {
    Moment now;
    now.state = state_;
    now.mainWindow = shownBy(mainWindow_);
    forEachPart(now, [](const auto& widget, auto& part) { part = shownBy(widget); });
    return now;
}

void pad::goTo(const Moment& moment) {
    state_ = moment.state;
    if (document_ != nullptr) {
        document_->judgeChange();
    }
    show(moment.mainWindow, mainWindow_);
    forEachPart(moment, [](auto& widget, const auto& part) { show(part, widget); });
    history_->goOnFrom(this->moment());
    tellActionEnded();
}

void pad::actionHasEnded(const Choice& choice) {
    const std::string& said = status.stringValue();
    history_->actionEnded(
        moment(), [&said] { return describe::stepName(said); }, choice);
    tellActionEnded();
}

void pad::undo() {
    if (canUndo()) {
        const std::string name(history_->undoName());
        goTo(history_->undo());
        report("Undone: " + name);
    }
}

void pad::redo() {
    if (canRedo()) {
        const std::string name(history_->redoName());
        goTo(history_->redo());
        report("Done again: " + name);
    }
}

}  // namespace editor
