#include "descriptor/MemoryBuffer.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

using namespace qzDescriptor;

namespace {

std::string Read(MemoryBuffer const& buffer) {
    std::string bytes(buffer.GetBufferLength(), '?');
    EXPECT_EQ(buffer.GetBuffer(bytes.data(), bytes.size()), bytes.size());
    return bytes;
}

TEST(MemoryBuffer, GivesItsBytesOutWhole) {
    MemoryBuffer buffer;
    buffer.SetBuffer("abc", 3);
    char out[] = "????";
    EXPECT_EQ(buffer.GetBuffer(nullptr, 100), 0u);
    EXPECT_EQ(buffer.GetBuffer(out, 2), 0u);
    EXPECT_STREQ(out, "????");
    EXPECT_EQ(buffer.GetBuffer(out, 3), 3u);
    EXPECT_STREQ(out, "abc?");

    MemoryBuffer empty;
    empty.SetBuffer(out, 0);
    EXPECT_EQ(empty.GetBuffer(out, 0), 0u);
    MemoryBuffer nothing;
    nothing.SetBuffer(nullptr, 5);
    EXPECT_EQ(nothing.GetBufferLength(), 0u);
}

TEST(MemoryBuffer, SharesItsBytesByAssignmentAndCopiesThemOtherwise) {
    MemoryBuffer source;
    source.SetBuffer("abc", 3);
    MemoryBuffer const copy(source);
    // An assigned buffer is not destroyed here: its bytes are the source's.
    alignas(MemoryBuffer) unsigned char place[sizeof(MemoryBuffer)];
    MemoryBuffer& assigned = *new (place) MemoryBuffer;
    assigned = source;
    EXPECT_EQ(Read(assigned), "abc");
    EXPECT_EQ(Read(copy), "abc");
}

} // namespace
