#include "qt/windows/views.h"

#include "devices/seldev.h"
#include "devices/seldev2.h"
#include "editor/about.h"
#include "editor/pad.h"
#include "firmware/firm.h"
#include "firmware/message.h"
#include "qt/windows/AboutView.h"
#include "qt/windows/FirmView.h"
#include "qt/windows/MessageView.h"
#include "qt/windows/PadView.h"
#include "qt/windows/SeldevView.h"

namespace qt::windows {

namespace {

template <typename Controller, typename View>
void add(desktop::QtDesktop& desktop) {
    desktop.addView<Controller>(
        [](Controller& controller) { return std::make_unique<View>(controller); });
}

}  // namespace

void addEditorViews(desktop::QtDesktop& desktop) {
    add<devices::seldev, SeldevView>(desktop);
    add<devices::seldev2, SeldevView>(desktop);
    add<editor::pad, PadView>(desktop);
    add<firmware::firm, FirmView>(desktop);
    add<editor::about, AboutView>(desktop);
    add<firmware::message, MessageView>(desktop);
}

}  // namespace qt::windows
