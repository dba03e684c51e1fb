#include "devices/DeviceDialog.h"

#include <algorithm>
#include <string>
#include <utility>

#include "devices/missingMidi.h"

namespace devices {
namespace {

/// The manager's list as references, in its order.
template <typename Endpoints>
auto referencesTo(const Endpoints& endpoints) {
    std::vector<typename Endpoints::value_type::pointer> references;
    references.reserve(endpoints.size());
    for (const auto& endpoint : endpoints) {
        references.push_back(endpoint.get());
    }
    return references;
}

/// The endpoint at a position of the manager's list; none outside it.
template <typename Endpoints>
auto entryAt(const Endpoints& endpoints, int index) {
    const bool inside = index >= 0 && index < static_cast<int>(endpoints.size());
    return inside ? endpoints[static_cast<std::size_t>(index)].get() : nullptr;
}

template <typename Endpoint>
void show(toolkit::ComboBox& box, const std::vector<Endpoint*>& endpoints) {
    box.removeAllItems();
    for (const Endpoint* endpoint : endpoints) {
        box.addItemWithObjectValue(endpoint->displayName());
    }
}

/// Whether the box still shows exactly these endpoints' names.
template <typename Endpoint>
bool shows(const toolkit::ComboBox& box, const std::vector<Endpoint*>& endpoints) {
    if (box.numberOfItems() != static_cast<int>(endpoints.size())) {
        return false;
    }
    int index = 0;
    return std::all_of(endpoints.begin(), endpoints.end(), [&](const Endpoint* endpoint) {
        return box.itemObjectValueAtIndex(index++) == endpoint->displayName();
    });
}

template <typename Endpoint>
int positionOf(const Endpoint* wanted, const std::vector<Endpoint*>& endpoints) {
    const auto found = std::find(endpoints.begin(), endpoints.end(), wanted);
    return found == endpoints.end() ? -1 : static_cast<int>(found - endpoints.begin());
}

template <typename Endpoint>
Endpoint* selectedIn(const toolkit::ComboBox& box, const std::vector<Endpoint*>& endpoints) {
    const int index = box.indexOfSelectedItem();
    const bool selected = index >= 0 && index < static_cast<int>(endpoints.size());
    return selected ? endpoints[static_cast<std::size_t>(index)] : nullptr;
}

/// A choice made earlier is offered again only while it is online; otherwise the first entry is.
/// Of two entries with the same name it is the chosen endpoint's own.
template <typename Endpoint>
void preselect(toolkit::ComboBox& box, const std::vector<Endpoint*>& endpoints,
               const Endpoint* chosen) {
    const bool offerAgain = chosen != nullptr && chosen->isOnline();
    box.selectItemAtIndex(offerAgain ? positionOf(chosen, endpoints) : 0);
}

/// Shows the list anew and keeps what was selected. A list that was empty gets its first choice.
template <typename Endpoint>
void follow(toolkit::ComboBox& box, std::vector<Endpoint*>& shown, std::vector<Endpoint*> now,
            const Endpoint* chosen) {
    if (now == shown && shows(box, now)) {
        return;
    }
    const bool wasEmpty = shown.empty();
    const Endpoint* selected = selectedIn(box, shown);
    shown = std::move(now);
    show(box, shown);
    if (wasEmpty) {
        preselect(box, shown, chosen);
    } else {
        box.selectItemAtIndex(positionOf(selected, shown));
    }
}

bool awaitsChoice(const toolkit::ComboBox& box) {
    return box.numberOfItems() > 0 && box.indexOfSelectedItem() < 0;
}

std::string hintFor(const platform::ServiceState& midi, bool noInput, bool noOutput) {
    if (const std::string why = whyNoMidi(midi); !why.empty()) {
        const std::string remedy = remedyForNoMidi(midi);
        return why + " " + (remedy.empty() ? "Opening this window again tries again." : remedy);
    }
    if (!noInput && !noOutput) {
        return {};
    }
    std::string missing = "device";
    if (!noInput || !noOutput) {
        missing = noInput ? "input" : "output";
    }
    return "There is no MIDI " + missing +
           ". Connect the controller and switch it on: it appears here by itself.";
}

}  // namespace

DeviceDialog::DeviceDialog(midi::ZQMIDIProcess& process, toolkit::Desktop& desktop,
                           ChosenDevices& chosen)
    : process_(process), desktop_(desktop), chosen_(chosen) {
    okButton.action = [this](toolkit::Button&) { ok(); };
    cancelButton.action = [this](toolkit::Button&) { cancel(); };
    combo_in.onChoice = [this] { judgeOk(); };
    combo_out.onChoice = [this] { judgeOk(); };
}

void DeviceDialog::fillLists() {
    const midi::ZQMIDIManager& manager = process_.sharedInstance();
    process_.service().rescan();
    shownInputs_ = referencesTo(manager.realSources());
    shownOutputs_ = referencesTo(manager.realDestinations());
    show(combo_in, shownInputs_);
    show(combo_out, shownOutputs_);
    preselect(combo_in, shownInputs_, chosen_.g_inDevice);
    preselect(combo_out, shownOutputs_, chosen_.g_outDevice);
    judgeOk();
    showHint();
    setupChanges_ = process_.notificationCentre().addObserver(
        midi::ZQMIDISetupChanged, [this](const void*) { setupChanged(); });
    stateChanges_ = process_.service().stateChanges().addObserver(
        platform::MIDIServiceStateChanged, [this](const void*) { showHint(); });
}

void DeviceDialog::setupChanged() {
    const midi::ZQMIDIManager& manager = process_.sharedInstance();
    follow(combo_in, shownInputs_, referencesTo(manager.realSources()), chosen_.g_inDevice);
    follow(combo_out, shownOutputs_, referencesTo(manager.realDestinations()), chosen_.g_outDevice);
    judgeOk();
    showHint();
}

void DeviceDialog::showHint() {
    hint.setStringValue(
        hintFor(process_.service().state(), shownInputs_.empty(), shownOutputs_.empty()));
}

void DeviceDialog::judgeOk() {
    okButton.setEnabled(!awaitsChoice(combo_in) && !awaitsChoice(combo_out));
}

void DeviceDialog::ok() {
    judgeOk();
    if (!okButton.isEnabled()) {
        return;
    }
    storeChoice();
    window().close();
}

void DeviceDialog::storeChoice() {
    const midi::ZQMIDIManager& manager = process_.sharedInstance();
    const auto& sources = manager.realSources();
    const auto& destinations = manager.realDestinations();
    const int input = combo_in.indexOfSelectedItem();
    const int output = combo_out.indexOfSelectedItem();
    chosen_.g_inDevice = entryAt(sources, input);
    chosen_.g_outDevice = entryAt(destinations, output);
    if (chosen_.g_outDevice != nullptr) {
        outputStored(output);
    }
}

void DeviceDialog::cancel() {
    window().close();
}

void DeviceDialog::windowWillClose() {
    desktop_.stopModal();
}

}  // namespace devices
