#include "descriptor/Color.h"
#include "descriptor/Entity.h"
#include "descriptor/EntityFullType.h"
#include "descriptor/Identifier.h"
#include "descriptor/Qualifier.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <ostream>
#include <set>
#include <tuple>
#include <type_traits>
#include <vector>

using namespace qzDescriptor;
using namespace std::string_literals;

namespace qzDescriptor {

void PrintTo(Identifier const& identifier, std::ostream* out) {
    *out << "(number " << identifier.GetNumericKey() << ", name '" << identifier.GetNameKey() << "', solver "
         << identifier.GetSolverIdx() << ", row " << identifier.GetRow() << ", column "
         << identifier.GetColumn() << ')';
}

} // namespace qzDescriptor

namespace {

constexpr unsigned int s_unset = Identifier::s_unset;

/// An identifier as what it says, for an oracle that knows neither sentinels nor the order of fields.
struct Parts {
    std::optional<int> number;
    std::optional<qzString> name;
    std::optional<int> solver;
    std::optional<unsigned int> row;
    std::optional<unsigned int> column;

    Identifier Make() const {
        Identifier identifier(number.value_or(0), static_cast<unsigned int>(solver.value_or(0)),
                              row.value_or(s_unset), column.value_or(s_unset));
        identifier.SetNameKey(name.value_or(""));
        return identifier;
    }
};

int CompareBytes(qzString const& a, qzString const& b) {
    int const common = std::memcmp(a.data(), b.data(), std::min(a.size(), b.size()));
    return common != 0 ? common : static_cast<int>(a.size()) - static_cast<int>(b.size());
}

template <class T>
bool Differ(std::optional<T> const& a, std::optional<T> const& b) {
    return a && b && *a != *b;
}

bool ExpectEqual(Parts const& a, Parts const& b) {
    return a.number == b.number && a.name == b.name &&
           !(Differ(a.solver, b.solver) || Differ(a.row, b.row) || Differ(a.column, b.column));
}

bool ExpectLess(Parts const& a, Parts const& b) {
    if (a.number && b.number) {
        if (*a.number != *b.number)
            return *a.number < *b.number;
    } else if (!a.name || !b.name) {
        return false;
    } else if (int const order = CompareBytes(*a.name, *b.name); order != 0) {
        return order < 0;
    }
    if (Differ(a.solver, b.solver))
        return *a.solver < *b.solver;
    if (Differ(a.row, b.row))
        return *a.row < *b.row;
    return Differ(a.column, b.column) && *a.column < *b.column;
}

std::vector<Parts> MakeAllParts() {
    std::vector<Parts> all;
    for (auto const& number : {std::optional<int>(), {5}, {-3}, {1010}})
        for (auto const& name : {std::optional<qzString>(), {"T"}, {"T\0x"s}, {"\xE9"}})
            for (auto const& solver : {std::optional<int>(), {1}, {-1}})
                for (auto const& row : {std::optional<unsigned int>(), {0}, {0xFFFFFFFE}})
                    for (auto const& column : {std::optional<unsigned int>(), {0}, {4}})
                        all.push_back({number, name, solver, row, column});
    return all;
}

TEST(Identifier, ComparesAndHashesWithUnsetPartsAsWildcards) {
    auto const all = MakeAllParts();
    std::vector<Identifier> identifiers;
    for (Parts const& parts : all)
        identifiers.push_back(parts.Make());
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t j = 0; j < all.size(); ++j) {
            Identifier const &a = identifiers[i], &b = identifiers[j];
            bool const isEqual = ExpectEqual(all[i], all[j]);
            ASSERT_TRUE((a == b) == isEqual && (a != b) != isEqual && (a < b) == ExpectLess(all[i], all[j]) &&
                        (!isEqual || Identifier::hash()(a) == Identifier::hash()(b)))
                << testing::PrintToString(a) << ' ' << testing::PrintToString(b);
        }
}

TEST(Identifier, DefaultStandsInRowAndColumnZero) {
    Identifier const none;
    EXPECT_FALSE(none.IsValid());
    EXPECT_EQ(none.GetRow(), 0U);
    EXPECT_EQ(none.GetColumn(), 0U);
    EXPECT_EQ(none, Identifier(0));
    EXPECT_NE(none, Identifier(0, 0, 1));
}

TEST(Identifier, AssigningAKeyKeepsTheRest) {
    Identifier identifier("T", 2, 3, 4);
    identifier = 9;
    EXPECT_EQ(identifier.GetNumericKey(), 9);
    EXPECT_EQ(identifier.GetNameKey(), "T");
    identifier = qzString("E");
    EXPECT_EQ(identifier.GetNumericKey(), 9);
    EXPECT_EQ(identifier.GetNameKey(), "E");
    EXPECT_EQ(identifier.GetSolverIdx(), 2);
    EXPECT_EQ(identifier.GetRow(), 3U);
    EXPECT_EQ(identifier.GetColumn(), 4U);
}

TEST(Identifier, IsValidWithEitherKey) {
    EXPECT_TRUE(Identifier(-1).IsValid());
    EXPECT_TRUE(Identifier(-1).UsesNumericKey());
    EXPECT_FALSE(Identifier(-1).UsesNameKey());
    EXPECT_TRUE(Identifier("T").IsValid());
    EXPECT_FALSE(Identifier("T").UsesNumericKey());
    EXPECT_FALSE(Identifier("").IsValid());
}

TEST(Identifier, HashOfANumberIsItsSignedRemainder) {
    auto const hash = [](int key) { return Identifier::hash()(Identifier(key)); };
    EXPECT_EQ(hash(5), 5U);
    EXPECT_EQ(hash(101), 0U);
    EXPECT_EQ(hash(1012), 2U);
    EXPECT_EQ(hash(-3), static_cast<std::size_t>(-3));
    EXPECT_EQ(hash(-104), static_cast<std::size_t>(-3));
    EXPECT_EQ(hash(std::numeric_limits<int>::min()), static_cast<std::size_t>(-34));
}

TEST(Identifier, HashOfANameIsTheSameEverywhere) {
    qzString everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    std::pair<qzString, std::uint32_t> const cases[] = {
        {"", 0x0},
        {"a", 0x41},
        {"ab", 0x6122},
        {"abc", 0x616203},
        {"abcd", 0x646362E1},
        {"abcde", 0x8C6C5849},
        {"Thickness", 0xC9081C90},
        {"\xFF", 0xFFFFFFDF},
        {"\x01\xFF", 0xBF},
        {"abcd\xE9\x01\x80", 0x738550AC},
        {qzString(5, '\0'), 0x1400},
        {qzString(1000, 'a'), 0xB2B2BD12},
        {everyByte, 0x100},
    };
    for (auto const& [name, hash] : cases) {
        EXPECT_EQ(Identifier::hash()(Identifier(name)), hash) << testing::PrintToString(name);
        EXPECT_EQ(EntityFullType::hash()(EntityFullType(name)), hash) << testing::PrintToString(name);
    }
}

using Sentinel = Identifier::FullLessThanSentinel;

TEST(FullLessThanSentinel, IsRaisedForTheLifeOfAGuard) {
    Sentinel::s_active = false;
    {
        Sentinel const guard;
        EXPECT_TRUE(Sentinel::s_active);
    }
    EXPECT_FALSE(Sentinel::s_active);
    static_assert(!std::is_copy_constructible_v<Sentinel> && !std::is_copy_assignable_v<Sentinel>);
}

TEST(FullLessThanSentinel, IsRaisedByEveryComparisonAndByAskingForIt) {
    Sentinel::s_active = false;
    EXPECT_FALSE(Identifier() < Identifier("T"));
    EXPECT_TRUE(Sentinel::s_active);
    Sentinel::s_active = false;
    EXPECT_TRUE(Sentinel::GetActive());
    EXPECT_TRUE(Sentinel::s_active);
}

TEST(IdentifierPair, HoldsBothKeysUnscoped) {
    IdentifierPair const pair(7, "T");
    EXPECT_EQ(pair.GetNumeric(), Identifier(7, 0, 3, 4));
    EXPECT_EQ(pair.GetNamed(), Identifier("T", 0, 3, 4));
    EXPECT_TRUE(pair.IsValid());
    EXPECT_FALSE(IdentifierPair(7, "").IsValid());
    EXPECT_FALSE(IdentifierPair(0, "T").IsValid());
    EXPECT_FALSE(IdentifierPair().IsValid());
    EXPECT_EQ(IdentifierPair().GetNumeric().GetRow(), s_unset);
    EXPECT_EQ(pair, IdentifierPair(7, "T"));
    EXPECT_NE(pair, IdentifierPair(8, "T"));
    EXPECT_NE(pair, IdentifierPair(7, "t"));
}

using TypeFields = std::tuple<unsigned int, qzString, unsigned int, qzString>;

TypeFields GetFields(EntityFullType const& type) {
    return {type.GetTypeNumeric(), type.GetTypeNamed(), type.GetSubtypeNumeric(), type.GetSubtypeNamed()};
}

std::vector<EntityFullType> MakeAllTypes() {
    std::vector<EntityFullType> all;
    auto const add = [&all](auto const& type, auto const& subtype) {
        all.emplace_back(type, subtype);
        all.emplace_back(EntityFullType::TopologyType{4}, type, subtype);
    };
    for (unsigned int const type : {0U, 1U, 102U})
        for (unsigned int const subtype : {0U, 1U})
            add(type, subtype);
    for (qzString const& name : {""s, "1"s, "GRID"s})
        for (unsigned int const number : {0U, 1U}) {
            add(name, number);
            add(number, name);
            add(name, qzString(number, 'S'));
        }
    return all;
}

TEST(EntityFullType, ConstructorsFillTheirFields) {
    EXPECT_EQ(GetFields(EntityFullType()), TypeFields(0, "", 0, ""));
    EXPECT_EQ(GetFields(EntityFullType(1, 2)), TypeFields(1, "", 2, ""));
    EXPECT_EQ(GetFields(EntityFullType("A", 2)), TypeFields(0, "A", 2, ""));
    EXPECT_EQ(GetFields(EntityFullType(1, "B")), TypeFields(1, "", 0, "B"));
    EXPECT_EQ(GetFields(EntityFullType("A", "B")), TypeFields(0, "A", 0, "B"));
    EXPECT_EQ(EntityFullType("A", "B").GetTopologyType(), EntityFullType::TOPOLOGY_NONE);

    EntityFullType::TopologyType const topology{-7};
    for (auto const& [type, fields] : {std::pair{EntityFullType(topology, 1, 2), TypeFields(1, "", 2, "")},
                                       {EntityFullType(topology, "A", 2), TypeFields(0, "A", 2, "")},
                                       {EntityFullType(topology, 1, "B"), TypeFields(1, "", 0, "B")},
                                       {EntityFullType(topology, "A", "B"), TypeFields(0, "A", 0, "B")}}) {
        EXPECT_EQ(GetFields(type), fields);
        EXPECT_EQ(type.GetTopologyType(), topology);
    }
}

TEST(EntityFullType, EqualityIgnoresTheTopologyKindAlone) {
    auto const all = MakeAllTypes();
    for (auto const& a : all)
        for (auto const& b : all) {
            ASSERT_EQ(a == b, GetFields(a) == GetFields(b));
            if (a == b) {
                ASSERT_EQ(EntityFullType::hash()(a), EntityFullType::hash()(b));
            }
        }
}

TEST(EntityFullType, AnswersWhatItHas) {
    EXPECT_FALSE(EntityFullType().IsValid());
    EXPECT_FALSE(EntityFullType(0, 5).IsValid());
    EXPECT_TRUE(EntityFullType(0, 5).HaveSubType());
    EXPECT_TRUE(EntityFullType(0, 5).IsSubTypeNumeric());
    EXPECT_TRUE(EntityFullType("A").IsValid());
    EXPECT_FALSE(EntityFullType("A").IsTypeNumeric());
    EXPECT_FALSE(EntityFullType("A").HaveSubType());
    EXPECT_TRUE(EntityFullType(3, "B").IsTypeNumeric());
    EXPECT_TRUE(EntityFullType(3, "B").HaveSubType());
    EXPECT_FALSE(EntityFullType(3, "B").IsSubTypeNumeric());
}

TEST(EntityFullType, HashOfANumberIsItsRemainder) {
    EXPECT_EQ(EntityFullType::hash()(EntityFullType(5, 3)), 5U);
    EXPECT_EQ(EntityFullType::hash()(EntityFullType(303, "B")), 0U);
    EXPECT_EQ(EntityFullType::hash()(EntityFullType(0xFFFFFFFF)), 67U);
    EXPECT_EQ(EntityFullType::hash()(EntityFullType()), 0U);
}

TEST(Entity, EqualityComparesEverythingAndOrderTheIdAlone) {
    Entity const a4(EntityFullType("A"), 4);
    Entity const b4(EntityFullType("B"), 4);
    EXPECT_NE(a4, b4);
    EXPECT_FALSE(a4 < b4);
    EXPECT_FALSE(b4 < a4);
    EXPECT_EQ((std::set<Entity>{a4, b4}.size()), 1U);
    EXPECT_NE(a4, Entity(EntityFullType("A"), 4, 1));
    EXPECT_TRUE(a4 < Entity(EntityFullType("A"), 0xFFFFFFFF));
    EXPECT_EQ(a4, Entity(EntityFullType(EntityFullType::TopologyType{2}, "A", 0U), 4));
}

TEST(Entity, WritesThroughItsReferences) {
    Entity entity;
    EXPECT_EQ(entity, Entity(EntityFullType(), 0, 0));
    entity.GetIdRef() = 12;
    entity.GetTopologyIndexRef() = 'x';
    EXPECT_EQ(entity, Entity(EntityFullType(), 12, 'x'));
    EXPECT_EQ(&std::as_const(entity).GetIdRef(), &entity.GetIdRef());
}

TEST(Qualifier, EqualityIsThatOfItsKeyItsTypeAndItsPool) {
    EntityFullType const shell("SHELL", 2U);
    Qualifier const wing("T", shell, 1, 2, 3, 4);
    EXPECT_EQ(wing, Qualifier("T", shell, 1, 2, 3, 4));
    EXPECT_EQ(wing, Qualifier("T", shell, 0, s_unset, s_unset, 4)) << "unset parts are wildcards";
    EXPECT_NE(wing, Qualifier("E", shell, 1, 2, 3, 4));
    EXPECT_NE(wing, Qualifier("T", EntityFullType("SHELL", 1U), 1, 2, 3, 4));
    EXPECT_NE(wing, Qualifier("T", shell, 2, 2, 3, 4));
    EXPECT_NE(wing, Qualifier("T", shell, 1, 0, 3, 4));
    EXPECT_NE(wing, Qualifier("T", shell, 1, 2, 0, 4));
    EXPECT_NE(wing, Qualifier("T", shell, 1, 2, 3, 0)) << "the pool is no wildcard";
}

TEST(Qualifier, EqualQualifiersHaveEqualHashes) {
    std::vector<Qualifier> all;
    for (auto const& type : {EntityFullType(5), EntityFullType("A", 1U), EntityFullType("A", "B")})
        for (unsigned int const row : {0U, 1U, s_unset})
            for (qzString const& name : {""s, "T"s}) {
                all.emplace_back(name, type, 0, row, row, 0);
                all.emplace_back(-3, type, 1, row, row, 0);
            }
    for (auto const& a : all)
        for (auto const& b : all)
            if (a == b) {
                ASSERT_EQ(Qualifier::hash()(a), Qualifier::hash()(b));
            }
}

TEST(Qualifier, HashMixesTheKeyAndTheTypeInUnsigned64Bits) {
    auto const hash = [](auto const& key, EntityFullType const& type) {
        return Qualifier::hash()(Qualifier(key, type, 9, 9, 9, 9));
    };
    EXPECT_EQ(hash(7, EntityFullType(5, 3)), 705U);
    EXPECT_EQ(hash(108, EntityFullType(106)), 705U);
    EXPECT_EQ(hash(-3, EntityFullType(5)), static_cast<std::size_t>(-295));
    EXPECT_EQ(hash(qzString("abcd"), EntityFullType("ab")),
              static_cast<std::size_t>(100ULL * 0x646362E1 + 0x6122));
    EXPECT_EQ(hash(0, EntityFullType()), 0U);
}

TEST(Qualifier, IsValidWithAKeyAndAType) {
    EXPECT_FALSE(Qualifier().IsValid());
    EXPECT_TRUE(Qualifier(1, EntityFullType(1), 0, 0, 0, 0).IsValid());
    EXPECT_FALSE(Qualifier(0, EntityFullType(1), 0, 0, 0, 0).IsValid());
    EXPECT_FALSE(Qualifier(1, EntityFullType(0, 1), 0, 0, 0, 0).IsValid());
}

TEST(Qualifier, ShowsItsTypePartByPart) {
    Qualifier const numbers(1, EntityFullType(2, 3), 4, 5, 6, 7);
    EXPECT_EQ(numbers.GetEntityFullTypeNumeric(), 2U);
    EXPECT_EQ(numbers.GetEntitySubtypeNumeric(), 3U);
    EXPECT_TRUE(numbers.IsEntityFullTypeNumeric());
    EXPECT_TRUE(numbers.IsEntitySubTypeNumeric());
    EXPECT_EQ(numbers.GetSolverIdx(), 4);
    EXPECT_EQ(numbers.GetRow(), 5U);
    EXPECT_EQ(numbers.GetColumn(), 6U);
    EXPECT_EQ(numbers.GetSolverIdPool(), 7U);
    Qualifier const names("T", EntityFullType("A", "B"), 0, 0, 0, 0);
    EXPECT_EQ(names.GetEntityFullTypeNamed(), "A");
    EXPECT_EQ(names.GetEntitySubtypeNamed(), "B");
    EXPECT_TRUE(names.HaveEntitySubType());
    EXPECT_FALSE(names.IsEntitySubTypeNumeric());
}

TEST(Qualifier, DoesNotTakeAKeyAlone) {
    static_assert(!std::is_assignable_v<Qualifier&, int>);
    static_assert(!std::is_assignable_v<Qualifier&, qzString const&>);
    static_assert(std::is_copy_assignable_v<Qualifier> && std::is_nothrow_move_assignable_v<Qualifier>);
}

TEST(Color, IsEitherAnIndexOrComponents) {
    unsigned int index = 77;
    unsigned char red = 1, green = 2, blue = 3;

    EXPECT_TRUE(Color(3).GetIndex(index));
    EXPECT_EQ(index, 3U);
    EXPECT_FALSE(Color(3).GetRGB(red, green, blue));
    EXPECT_EQ(std::tuple(red, green, blue), std::tuple(1, 2, 3));

    EXPECT_FALSE(Color(10, 20, 255).GetIndex(index));
    EXPECT_EQ(index, 3U);
    EXPECT_TRUE(Color(10, 20, 255).GetRGB(red, green, blue));
    EXPECT_EQ(std::tuple(red, green, blue), std::tuple(10, 20, 255));
    EXPECT_EQ(Color(), Color(0));
}

TEST(Color, ForgetsWhatItWas) {
    Color color(10, 20, 255);
    color.SetIndex(4);
    EXPECT_EQ(color, Color(4));
    color.SetRGB(0, 0, 0);
    EXPECT_EQ(color, Color(0, 0, 0));
    EXPECT_NE(color, Color(0));
    EXPECT_NE(color, Color(0, 0, 1));
    EXPECT_NE(color, Color(0, 1, 0));
    EXPECT_NE(color, Color(1, 0, 0));
}

} // namespace
