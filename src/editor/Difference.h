#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace editor {

/// The bytes in which two values of one type differ. Put onto either of them it gives the other.
/// Only these bytes are kept, so that most differences take a few dozen.
class Difference {
public:
    Difference() = default;
    /// Both sides have the same length, 65,535 bytes at most.
    Difference(std::span<const std::byte> one, std::span<const std::byte> other);

    void applyTo(std::span<std::byte> bytes) const;

    /// What it takes in memory, besides itself.
    [[nodiscard]] std::size_t memory() const { return runs_.capacity(); }

private:
    /// Runs of bytes one after another: position and length, two bytes each, the lower first; then
    /// as many bytes, each the exclusive or of both sides.
    std::vector<std::uint8_t> runs_;
};

}  // namespace editor
