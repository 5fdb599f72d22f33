#pragma once

#include <gtest/gtest.h>

#include <iterator>

/// Each object of the range is equal to its own copy and to no other object.
void ExpectDistinct(auto const& objects) {
    for (auto a = std::begin(objects); a != std::end(objects); ++a) {
        auto const copy = *a;
        for (auto b = std::begin(objects); b != std::end(objects); ++b)
            EXPECT_EQ(copy == *b, a == b)
                << std::distance(std::begin(objects), a) << ' ' << std::distance(std::begin(objects), b);
    }
}
