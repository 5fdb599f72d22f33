#include "cards/card_position.h"

#include <gtest/gtest.h>

namespace {

using namespace qzDeck;
using qzDescriptor::CardPosition;

constexpr LineFormat s_formats[] = {LineFormat::Small, LineFormat::Large, LineFormat::Free};

CardPosition At(unsigned int row, unsigned char position, unsigned char length) {
    return CardPosition(row, position, length, "comment", CardPosition::DECORATOR_AFTER, "decorator");
}

TEST(CardPositions, AreMappedFromFormatToFormat) {
    struct Case {
        CardPosition small;
        CardPosition large;
        std::size_t largeColumn;
    };
    for (auto const& [small, large, column] : {Case{At(0, 0, 8), At(0, 0, 16), 8},
                                               {At(0, 3, 8), At(0, 3, 16), 56},
                                               {At(0, 4, 8), At(1, 0, 16), 8},
                                               {At(0, 7, 8), At(1, 3, 16), 56},
                                               {At(1, 0, 8), At(2, 0, 16), 8},
                                               {At(2, 5, 8), At(5, 1, 16), 24}}) {
        EXPECT_EQ(OnLines(small, LineFormat::Large), large);
        EXPECT_EQ(OnLines(large, LineFormat::Small), small);
        EXPECT_EQ(ColumnOf(large), column);
        CardPosition const free = OnLines(large, LineFormat::Free);
        EXPECT_EQ(free, At(small.GetCardRow(), small.GetRowPosition(), 0));
        EXPECT_TRUE(free.ForUnstructured());
    }
    EXPECT_EQ(ColumnOf(At(7, 5, 8)), 48U);
}

TEST(CardPositions, ComeBackFromEveryFormat) {
    for (std::size_t place = 0; place < 3000; ++place) {
        for (LineFormat format : s_formats) {
            CardPosition const position = PositionAt(place, format);
            ASSERT_EQ(PlaceOf(position), place);
            for (LineFormat other : s_formats)
                ASSERT_EQ(OnLines(OnLines(position, other), format), position);
        }
    }
}

} // namespace
