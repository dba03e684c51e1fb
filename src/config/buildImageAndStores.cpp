#include "config/buildImageAndStores.h"

#include <algorithm>

#include "config/control.h"
#include "config/factoryTables.h"
#include "config/modes.h"

namespace config {
namespace {

/// One layer's block in the image and in both stores, written together.
class LayerBlock {
public:
    LayerBlock(int layer, Image& sysData, Stores& stores)
        : image_(sysData.data() + at(layer, 0)),
          factory_(stores.SysBuf_MCP.data() + at(layer, 0)),
          user_(stores.SysBuf_usrdef.data() + static_cast<std::size_t>(layer) * userBlockSize) {}

    void writeEverywhere(std::size_t offset, std::uint8_t value) {
        writeImageAndFactory(offset, value);
        user_[offset] = value;
    }
    void writeImageAndFactory(std::size_t offset, std::uint8_t value) {
        image_[offset] = value;
        factory_[offset] = value;
    }
    void writeImage(std::size_t offset, std::uint8_t value) { image_[offset] = value; }

private:
    std::uint8_t* image_;
    std::uint8_t* factory_;
    std::uint8_t* user_;
};

void writeAssignments(LayerBlock& block, int layer) {
    const auto row = static_cast<std::size_t>(layer) * controlCount;
    for (std::size_t i = 0; i < controlCount; ++i) {
        block.writeEverywhere(channelOffset + i, key_chan[row + i]);
        block.writeEverywhere(numberOffset + i, preset[row + i]);
        block.writeEverywhere(modeOffset + i,
                              static_cast<std::uint8_t>(toggl_flg[row + i] | key_mod[row + i]));
    }
}

void writeTrailer(LayerBlock& block) {
    block.writeImage(curveOffset, 1);
    block.writeImageAndFactory(dawModeOffset, nuendoMode);
    block.writeImageAndFactory(intervalOffset, 0x40);
    block.writeImage(lockOffset, 1);
    block.writeImage(lockOffset + 1, 0);
    block.writeImage(lockOffset + 2, 0);
    // In the user-defined store, whose blocks are shorter, the end mark falls on the next block's
    // number, which is written after it, and for the last layer behind the last block.
    block.writeEverywhere(endOffset, 0xF7);
}

/// In User Defined mode the faders send control change.
void makeUserFadersSendControlChange(Stores& stores) {
    for (std::size_t layer = 0; layer < layerCount; ++layer) {
        for (std::size_t fader = firstFader; fader <= lastFader; ++fader) {
            std::uint8_t& mode = stores.SysBuf_usrdef[layer * userBlockSize + modeOffset + fader];
            mode = static_cast<std::uint8_t>(withKindKeepingBit4(mode, MessageKind::ControlChange));
        }
    }
}

}  // namespace

void buildImageAndStores(Image& sysData, Stores& stores) {
    std::copy_n(SysBuf_init.begin(), headerSize, sysData.begin());
    for (int layer = 0; layer < layerCount; ++layer) {
        LayerBlock block(layer, sysData, stores);
        for (std::size_t offset = 0; offset < headerSize; ++offset) {
            block.writeEverywhere(offset, sysData[offset]);
        }
        writeAssignments(block, layer);
        block.writeEverywhere(blockNumberOffset, static_cast<std::uint8_t>(layer + 1));
        writeTrailer(block);
    }
    sysData[at(0, intervalOffset)] = 100;
    stores.SysBuf_MCP[at(0, intervalOffset)] = 100;
    sysData[at(0, curveOffset)] = 0x7F;
    makeUserFadersSendControlChange(stores);
}

}  // namespace config
