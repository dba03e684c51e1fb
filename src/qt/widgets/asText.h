#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace qt::widgets {

/// The program's texts are UTF-8.
inline QString asText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace qt::widgets
