#include "editor/walk/ModelDriver.h"

#include "editor/walk/widgets.h"

namespace walk {

ModelDriver::ModelDriver() {
    editor_.controller.awakeFromNib();
    editor_.window.window.makeKeyAndOrderFront();
}

void ModelDriver::clickControl(int tag) {
    editor_.window.keysOrderedByTag.at(static_cast<std::size_t>(tag)).click();
}

void ModelDriver::clickModeLayer(int index) {
    editor_.window.moLaCtrls.at(static_cast<std::size_t>(index)).click();
}

void ModelDriver::clickFirstPadLayer() {
    editor_.window.paLaCtrls.front().click();
}

void ModelDriver::clickPadLayer(int index, const std::function<void()>& inside) {
    editor_.desktop.onModal<editor::pad>([this, &inside](editor::pad& pad) {
        pad_ = &pad;
        inside();
        pad_ = nullptr;
    });
    editor_.window.paLaCtrls.at(static_cast<std::size_t>(index)).click();
}

void ModelDriver::clickLocker() {
    editor_.window.locker.click();
}

void ModelDriver::choose(MainBox box, int index) {
    boxOf(editor_.window, box).choose(index);
}

void ModelDriver::clickPad(int index) {
    pad_->m_pads.at(static_cast<std::size_t>(index)).click();
}

void ModelDriver::clickEditorLayer(int padLayer) {
    layerButtonOf(*pad_, padLayer).click();
}

void ModelDriver::chooseInPadEditor(PadBox box, int index) {
    boxOf(*pad_, box).choose(index);
}

void ModelDriver::finish() {
    pad_->finish.click();
}

void ModelDriver::closePadEditor() {
    pad_->window().close();
}

}  // namespace walk
