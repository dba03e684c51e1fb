#include "config/stores.h"

namespace config {

const std::array<std::int32_t, 12> aSysDatIndx = {
    7, 80, 81, 160, 161, 246,  // layer 0
    7, 71, 81, 151, 161, 246,  // layers 1 to 3
};

namespace {

/// Calls `copy(layer, offset)` for every byte inside the swap ranges.
template <typename Copy>
void forEachSwappedByte(Copy copy) {
    constexpr std::size_t rangesInARow = 3;
    for (int layer = 0; layer < layerCount; ++layer) {
        const std::size_t row = layer == 0 ? 0 : 2 * rangesInARow;
        for (std::size_t range = 0; range < rangesInARow; ++range) {
            // The start is always row 0's; only the end depends on the layer.
            const auto first = static_cast<std::size_t>(aSysDatIndx[2 * range]);
            const auto end = static_cast<std::size_t>(aSysDatIndx[row + 2 * range + 1]);
            for (std::size_t offset = first; offset < end; ++offset) {
                copy(layer, offset);
            }
        }
    }
}

std::size_t userAt(int layer, std::size_t offset) {
    return static_cast<std::size_t>(layer) * userBlockSize + offset;
}

}  // namespace

void keepUserDefined(const Image& sysData, Stores& stores) {
    forEachSwappedByte([&](int layer, std::size_t offset) {
        stores.SysBuf_usrdef[userAt(layer, offset)] = sysData[at(layer, offset)];
    });
}

void keepWholeUserDefined(const Image& sysData, Stores& stores) {
    for (int layer = 0; layer < layerCount; ++layer) {
        for (std::size_t offset = 0; offset < userBlockSize; ++offset) {
            stores.SysBuf_usrdef[userAt(layer, offset)] = sysData[at(layer, offset)];
        }
    }
}

void loadFactory(Image& sysData, const Stores& stores) {
    forEachSwappedByte([&](int layer, std::size_t offset) {
        sysData[at(layer, offset)] = stores.SysBuf_MCP[at(layer, offset)];
    });
}

void restoreUserDefined(Image& sysData, const Stores& stores) {
    forEachSwappedByte([&](int layer, std::size_t offset) {
        sysData[at(layer, offset)] = stores.SysBuf_usrdef[userAt(layer, offset)];
    });
}

}  // namespace config
