#include "support/countedMemory.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

namespace support {
namespace {

TEST(CountedMemory, CountsEveryAllocation) {
    const std::size_t before = allocationCount();
    ::operator delete(::operator new(1));
    ::operator delete(::operator new(1));
    EXPECT_EQ(allocationCount(), before + 2);
}

TEST(CountedMemory, CountsWhatTheStandardContainersAskFor) {
    const std::size_t before = allocationCount();
    const std::vector<int> numbers(1000, 1);
    EXPECT_EQ(allocationCount(), before + 1);
    EXPECT_EQ(numbers.size(), 1000U);
}

TEST(CountedMemory, KnowsWhatIsHeldAndWhatWasFreed) {
    const std::size_t before = liveMemory();
    void* held = ::operator new(1000000);
    EXPECT_GE(liveMemory(), before + 1000000);
    ::operator delete(held);
    EXPECT_EQ(liveMemory(), before);
}

}  // namespace
}  // namespace support
