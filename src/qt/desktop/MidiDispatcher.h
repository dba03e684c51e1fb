#pragma once

#include <QSocketNotifier>
#include <memory>

#include "platform/MidiService.h"

namespace qt::desktop {

/// Lets the event loop deliver what the MIDI service has for the main thread, also while a dialog
/// or an alert is open. The service must outlive it.
class MidiDispatcher {
public:
    explicit MidiDispatcher(platform::MidiService& service);

private:
    std::unique_ptr<QSocketNotifier> notifier_;  // none for a service that never has anything
};

}  // namespace qt::desktop
