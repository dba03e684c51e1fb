#include "editor/Difference.h"

#include <algorithm>
#include <cstring>

namespace editor {

namespace {

constexpr std::size_t headSize = 4;  // of a run: so many equal bytes cost no more than a new one
constexpr std::size_t piece = 256;

std::uint8_t low(std::size_t value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}

std::uint8_t high(std::size_t value) {
    return static_cast<std::uint8_t>(value >> 8);
}

}  // namespace

Difference::Difference(std::span<const std::byte> one, std::span<const std::byte> other) {
    const std::size_t size = std::min(one.size(), other.size());
    const std::byte* first = one.data();
    const std::byte* second = other.data();
    const auto nextDifferent = [&](std::size_t from) {
        // Nearly all of it is equal, and large pieces are compared much faster at once.
        while (from + piece <= size && std::memcmp(first + from, second + from, piece) == 0) {
            from += piece;
        }
        while (from < size && first[from] == second[from]) {
            ++from;
        }
        return from;
    };
    for (std::size_t start = nextDifferent(0); start < size;) {
        std::size_t end = start + 1;
        std::size_t next = nextDifferent(end);
        while (next < size && next - end <= headSize) {
            end = next + 1;
            next = nextDifferent(end);
        }
        const std::size_t length = end - start;
        runs_.insert(runs_.end(), {low(start), high(start), low(length), high(length)});
        for (std::size_t i = start; i < end; ++i) {
            runs_.push_back(std::to_integer<std::uint8_t>(first[i] ^ second[i]));
        }
        start = next;
    }
    runs_.shrink_to_fit();
}

void Difference::applyTo(std::span<std::byte> bytes) const {
    for (std::size_t at = 0; at + headSize <= runs_.size();) {
        const std::size_t start = runs_[at] + (std::size_t{runs_[at + 1]} << 8);
        const std::size_t length = runs_[at + 2] + (std::size_t{runs_[at + 3]} << 8);
        at += headSize;
        for (std::size_t i = 0; i < length; ++i, ++at) {
            bytes[start + i] ^= std::byte{runs_[at]};
        }
    }
}

}  // namespace editor
