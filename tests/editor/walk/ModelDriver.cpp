#include "editor/walk/ModelDriver.h"

#include "editor/walk/widgets.h"

namespace walk {

ModelDriver::ModelDriver() {
    controller_.awakeFromNib();
    window_.window.makeKeyAndOrderFront();
}

void ModelDriver::clickControl(int tag) {
    window_.keysOrderedByTag.at(static_cast<std::size_t>(tag)).click();
}

void ModelDriver::clickModeLayer(int index) {
    window_.moLaCtrls.at(static_cast<std::size_t>(index)).click();
}

void ModelDriver::clickFirstPadLayer() {
    window_.paLaCtrls.front().click();
}

void ModelDriver::clickPadLayer(int index, const std::function<void()>& inside) {
    desktop_.onModal<editor::pad>([this, &inside](editor::pad& pad) {
        pad_ = &pad;
        inside();
        pad_ = nullptr;
    });
    window_.paLaCtrls.at(static_cast<std::size_t>(index)).click();
}

void ModelDriver::clickLocker() {
    window_.locker.click();
}

void ModelDriver::choose(MainBox box, int index) {
    boxOf(window_, box).choose(index);
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
