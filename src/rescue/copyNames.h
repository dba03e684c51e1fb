#pragma once

// The files of a copy. An editor writes one copy, again and again: every time under the next
// number, so that the one before stays whole until the new one is.
//
//     unsaved-3f9a1c22.lock                      locked while the editor lives
//     unsaved-3f9a1c22-17-user-defined.Tormelk   written first
//     unsaved-3f9a1c22-17.Tormelk                with this the copy is there

#include <cstdint>
#include <optional>
#include <string>

namespace rescue {

enum class Part { Shown, UserDefined, Lock };

struct CopyName {
    std::string stem;  ///< of all files of an editor: "unsaved-3f9a1c22"
    Part part = Part::Shown;
    std::uint64_t number = 0;  ///< 0 for the lock

    bool operator==(const CopyName&) const = default;
};

/// A stem that no other editor is likely to have.
[[nodiscard]] std::string newStem();

[[nodiscard]] std::string fileName(const CopyName& name);

/// None for a file that is no part of a copy.
[[nodiscard]] std::optional<CopyName> parsedName(const std::string& fileName);

}  // namespace rescue
