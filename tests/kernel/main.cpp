#include <gtest/gtest.h>

#include <iostream>

#include "kernel/systemFiles.h"

// These tests plug and unplug devices, and count on being alone with the sequencer.

int main(int argumentCount, char** arguments) {
    if (kernel::textOf("/proc/cmdline").find("tormelk.guest") == std::string::npos) {
        std::cerr << "These tests need a kernel of their own. Run: scripts/guest -- "
                  << arguments[0] << "\n";
        return 77;
    }
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
