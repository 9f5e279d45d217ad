#include <gtest/gtest.h>

#include <set>

#include "BytesOf.h"
#include "Hash.h"

namespace vtr {
namespace {

TEST(Hash, IsTheSameOnEveryMachine) {
    EXPECT_EQ(HashOf(BytesOf("the")), 0xCA40D080998498DBU);
    EXPECT_EQ(HashOf(BytesOf("the content")), 0x36FD8EABAEB4F519U);
}

TEST(Hash, EveryByteAndEveryLengthCounts) {
    std::set<std::uint64_t> hashes;
    for (std::size_t length = 0; length <= 32; ++length) {
        Bytes bytes(length);
        EXPECT_TRUE(hashes.insert(HashOf(bytes)).second) << length;
        for (std::size_t at = 0; at < length; ++at) {
            bytes[at] = 128;
            EXPECT_TRUE(hashes.insert(HashOf(bytes)).second) << length << ", " << at;
            bytes[at] = 0;
        }
    }
}

}  // namespace
}  // namespace vtr
