#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace files {

/// What came of replacing a file. Where it failed, `reason` says why in plain words, as a sentence
/// without its full stop.
struct ReplaceResult {
    bool replaced = false;
    std::string reason;
    /// Whether there was never a moment at which neither the old contents nor the new ones were
    /// there.
    bool inOneStep = true;
};

/// Gives a file new contents, whole or not at all. The bytes are written beside the file, with its
/// permissions and, where allowed, its owner; flushed to disk; and put in its place in one step.
/// A new file gets the permissions the process gives to new files. A symbolic link stays, what it
/// points to is replaced. A failure leaves the old file as it was and nothing beside it. Where a
/// mount has permissions of its own, the file gets those.
///
/// A file that has several names, and one that can be written but not replaced (the folder takes no
/// new file, or the system refuses to put one in its place), is written over in place instead, as
/// overwriteFile.h says; the result tells.
///
/// A process that is killed meanwhile may leave a hidden file beside the old one, whose name begins
/// with ".unfinished-"; nothing reads it, and it may be removed.
[[nodiscard]] ReplaceResult replaceFile(const std::filesystem::path& path, std::string_view bytes);

/// The same for a file that is its owner's alone: nobody else may read it, whatever was there
/// before. It is put in place in one step or not at all; a symbolic link is replaced itself.
[[nodiscard]] ReplaceResult replacePrivateFile(const std::filesystem::path& path,
                                               std::string_view bytes);

}  // namespace files
