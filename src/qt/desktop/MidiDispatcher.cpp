#include "qt/desktop/MidiDispatcher.h"

namespace qt::desktop {

MidiDispatcher::MidiDispatcher(platform::MidiService& service) {
    if (service.fileDescriptor() < 0) {
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(service.fileDescriptor(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [&service] { service.dispatch(); });
}

}  // namespace qt::desktop
