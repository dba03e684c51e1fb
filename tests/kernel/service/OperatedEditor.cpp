#include "kernel/service/OperatedEditor.h"

#include <unistd.h>

#include <csignal>
#include <fstream>
#include <stdexcept>

#include "kernel/service/editorDoing.h"
#include "kernel/waitUntil.h"

namespace kernel {

namespace {

using namespace std::chrono_literals;

constexpr const char* noDevice = "Please select MIDI device first";

/// An empty file, which the program may read whoever runs it.
std::filesystem::path emptyFile() {
    std::filesystem::path file = std::filesystem::temp_directory_path() / "orders";
    std::ofstream(file, std::ios::trunc).close();
    return file;
}

std::vector<std::string> commandFor(const std::vector<std::string>& starter,
                                    const std::string& orders) {
    std::vector<std::string> words = starter;
    const std::vector<std::string> editor = editorDoing("obey", {}, orders);
    words.insert(words.end(), editor.begin(), editor.end());
    return words;
}

}  // namespace

OperatedEditor::OperatedEditor(const std::vector<std::string>& starter)
    : orders_(emptyFile()), program_(commandFor(starter, orders_.string())) {
    next("ready", 60s);
}

void OperatedEditor::order(const std::string& what) const {
    std::ofstream(orders_, std::ios::app) << what + "\n";
}

std::string OperatedEditor::next(const std::string& beginning, std::chrono::milliseconds limit) {
    const std::string wanted = "operator: " + beginning;
    std::string rest;
    const auto isThere = [&] {
        const std::string told = program_.output();
        const std::size_t begin = told.find(wanted, read_);
        const std::size_t end = told.find('\n', begin);
        if (begin == std::string::npos || end == std::string::npos) {
            return false;
        }
        rest = told.substr(begin + wanted.size(), end - begin - wanted.size());
        read_ = end + 1;
        return true;
    };
    if (!waitUntil(isThere, limit)) {
        throw std::runtime_error("\"" + beginning + "\" was to be read, but there was:\n" +
                                 toldSince(0) +
                                 "and all of that was seen before this: " + toldSince(read_));
    }
    return rest;
}

void OperatedEditor::skip() {
    read_ = program_.output().size();
}

std::string OperatedEditor::toldSince(std::size_t begin) const {
    return program_.output().substr(begin);
}

std::string OperatedEditor::now(const std::string& what) {
    skip();
    order("tell");
    const std::size_t begin = read_;
    next("now next: ");
    const std::size_t end = read_;
    read_ = begin;
    std::string words = next("now " + what + ": ");
    read_ = end;
    return words;
}

void OperatedEditor::chooseOutput(const std::string& name) {
    order("trigger actionMidiDevices");
    next("in front: MIDI Devices");
    order("choose " + name);
    next("chose " + name);
}

std::string OperatedEditor::send() {
    order("press send");
    std::string said = next("alert Tormelk Wyro: ");
    order("leave");
    return said;
}

std::string OperatedEditor::sendOnceItIsThere() {
    std::string said;
    if (!waitUntil([&] { return (said = send()) != noDevice; }, patience)) {
        throw std::runtime_error("the device is not there for the editor:\n" + toldSince(0));
    }
    return said;
}

void OperatedEditor::openFirmwareWindow() {
    order("trigger actionFirmwareUpdate");
    next("in front: Firmware Upgrade");
}

void OperatedEditor::beginUpload(const std::string& output, const std::string& file) {
    order("press select");
    next("in front: MIDI Devices");
    order("choose " + output);
    next("chose " + output);
    order("press open");
    next("in front: Open");
    order("open " + file);
    order("press upload");
    next("in front: Firmware Update");
    order("press ok");
}

std::string OperatedEditor::endUpload(std::chrono::milliseconds limit) {
    std::string said = next("alert Upload: ", limit);
    order("leave");
    return said;
}

void OperatedEditor::freeze() const {
    kill(program_.process(), SIGSTOP);
}

void OperatedEditor::thaw() const {
    kill(program_.process(), SIGCONT);
}

int OperatedEditor::close() {
    order("close");
    return program_.finish(30s).status;
}

}  // namespace kernel
