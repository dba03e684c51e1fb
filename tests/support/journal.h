#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>

#include "toolkit/Desktop.h"

// The lines of a ScriptedDesktop's journal, for a test to write down what it expects:
//
//     EXPECT_THAT(desktop.journal(), ElementsAre(journal::bytes(block), journal::sleep(0.002)));
namespace support::journal {

std::string alert(const toolkit::Alert& alert);
/// The product's most frequent alert: title "Tormelk Wyro", one button "OK".
std::string alert(std::string_view message);
std::string savePanel(const toolkit::SavePanel& panel);
std::string openPanel(const toolkit::OpenPanel& panel);
std::string sleep(std::chrono::duration<double> seconds);
std::string sleep(double seconds);
std::string stopModal();
std::string exit(int status);

/// Bytes that a test saw leave; the desktop itself never writes this line.
std::string bytes(std::span<const std::uint8_t> bytes);

// Lines about a window name its controller's class without the namespace: "modal seldev begins".
std::string modalBegins(const std::type_info& controller);
std::string modalEnds(const std::type_info& controller);
std::string modalNotShown(const std::type_info& controller);
std::string showWindow(const std::type_info& controller);

template <typename Controller>
std::string modalBegins() {
    return modalBegins(typeid(Controller));
}
template <typename Controller>
std::string modalEnds() {
    return modalEnds(typeid(Controller));
}
template <typename Controller>
std::string modalNotShown() {
    return modalNotShown(typeid(Controller));
}
template <typename Controller>
std::string showWindow() {
    return showWindow(typeid(Controller));
}

/// A class's name without its namespaces.
std::string className(const std::type_info& type);

}  // namespace support::journal
