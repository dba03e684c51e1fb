#include "qt/views.h"

#include "devices/seldev.h"
#include "devices/seldev2.h"
#include "editor/about.h"
#include "editor/pad.h"
#include "firmware/firm.h"
#include "firmware/message.h"
#include "qt/AboutView.h"
#include "qt/FirmView.h"
#include "qt/MessageView.h"
#include "qt/PadView.h"
#include "qt/SeldevView.h"

namespace qt {

namespace {

template <typename Controller, typename View>
void add(QtDesktop& desktop) {
    desktop.addView<Controller>(
        [](Controller& controller) { return std::make_unique<View>(controller); });
}

}  // namespace

void addEditorViews(QtDesktop& desktop) {
    add<devices::seldev, SeldevView>(desktop);
    add<devices::seldev2, SeldevView>(desktop);
    add<editor::pad, PadView>(desktop);
    add<firmware::firm, FirmView>(desktop);
    add<editor::about, AboutView>(desktop);
    add<firmware::message, MessageView>(desktop);
}

}  // namespace qt
