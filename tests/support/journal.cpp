#include "support/journal.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <sstream>

namespace support::journal {
namespace {

std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

}  // namespace

std::string alert(const toolkit::Alert& alert) {
    std::string line = "alert " + inQuotes(alert.title) + ' ' + inQuotes(alert.message) + " [" +
                       alert.defaultButton + ']';
    if (!alert.alternateButton.empty()) {
        line += " [" + alert.alternateButton + ']';
    }
    return line;
}

std::string alert(std::string_view message) {
    return alert(toolkit::Alert{"Tormelk Wyro", std::string(message), "OK", ""});
}

std::string savePanel(const toolkit::SavePanel& panel) {
    return "save panel " + inQuotes(panel.title) + " type " + inQuotes(panel.requiredFileType) +
           " name " + inQuotes(panel.proposedName);
}

std::string openPanel(const toolkit::OpenPanel& panel) {
    std::string line = "open panel type " + inQuotes(panel.requiredFileType) + " types";
    for (const std::string& type : panel.fileTypes) {
        line += ' ' + inQuotes(type);
    }
    return line;
}

std::string sleep(std::chrono::duration<double> seconds) {
    std::ostringstream line;
    line << "sleep " << seconds.count();
    return line.str();
}

std::string sleep(double seconds) {
    return sleep(std::chrono::duration<double>(seconds));
}

std::string stopModal() {
    return "stop modal";
}

std::string exit(int status) {
    return "exit " + std::to_string(status);
}

std::string bytes(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string line = "bytes";
    line.reserve(line.size() + 3 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        line += {' ', digits[byte >> 4], digits[byte & 0x0F]};
    }
    return line;
}

std::string modalBegins(const std::type_info& controller) {
    return "modal " + className(controller) + " begins";
}

std::string modalEnds(const std::type_info& controller) {
    return "modal " + className(controller) + " ends";
}

std::string modalNotShown(const std::type_info& controller) {
    return "modal " + className(controller) + " not shown";
}

std::string showWindow(const std::type_info& controller) {
    return "show " + className(controller);
}

std::string className(const std::type_info& type) {
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> demangled(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), std::free);
    const std::string full = demangled ? demangled.get() : type.name();
    const std::size_t separator = full.rfind("::");
    return separator == std::string::npos ? full : full.substr(separator + 2);
}

}  // namespace support::journal
