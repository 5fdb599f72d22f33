// Contents against a plain map of what was set.

#include "registry/plate.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

using namespace qzDescriptor;
using namespace qzDescriptor::test;

namespace {

using Numbers = qzStlVector<double>;
using Datum = std::variant<double, int, qzString, Numbers>;

/// One object over one of two member sets, which have their attributes in different orders and one each that
/// the other has not; and what a map says it holds.
class Subject {
public:
    Subject(OwnedMembers const& members, std::vector<std::string> const& names)
        : content(MakeContent(members)), m_names(names) {}
    Subject(Subject const& other) : content(other.content->Clone()), set(other.set), m_names(other.m_names) {}

    static Datum Default(std::string const& name) {
        return std::map<std::string, Datum>{
            {"T", 1.0}, {"LIMIT", 12.0}, {"COUNT", 0}, {"MATERIAL", "steel"}, {"FACTORS", Numbers()}}
            .at(name);
    }

    static bool IsAllowed(std::string const& name, Datum const& datum) {
        auto const isBetween = [](double number) { return number > 0 && number < 10; };
        if (datum.index() != Default(name).index())
            return false;
        if (name == "T" || name == "LIMIT")
            return isBetween(std::get<double>(datum)) || datum == Default(name);
        if (name == "MATERIAL")
            return std::get<qzString>(datum) == "steel" || std::get<qzString>(datum) == "wood";
        if (name == "FACTORS")
            return std::ranges::all_of(std::get<Numbers>(datum), isBetween);
        return true;
    }

    bool Has(std::string const& name) const { return std::ranges::find(m_names, name) != m_names.end(); }
    unsigned int IndexOf(std::string const& name) const {
        return static_cast<unsigned int>(std::ranges::find(m_names, name) - m_names.begin());
    }

    bool Set(std::string const& name, Datum const& datum) {
        bool const isSet = std::visit(
            [&](auto const& data) { return content->SetValue(IndexOf(name), data).status == 0; }, datum);
        EXPECT_EQ(isSet, IsAllowed(name, datum)) << name;
        if (isSet)
            set[name] = datum;
        return isSet;
    }

    /// What the map becomes; nothing when the merge has to fail.
    std::optional<std::map<std::string, Datum>> Merged(Subject const& other, Content::AppendRule rule) const {
        std::map<std::string, Datum> merged = set;
        for (auto const& [name, datum] : other.set) {
            if (!Has(name))
                continue;
            bool const isNew = merged.emplace(name, datum).second;
            if (isNew || rule == Content::APPEND_KEEP)
                continue;
            if (rule == Content::APPEND_REPLACE)
                merged[name] = datum;
            else if (rule == Content::APPEND_FAIL && merged[name] != datum)
                return std::nullopt;
            else if (Numbers const* const more = std::get_if<Numbers>(&datum);
                     rule == Content::APPEND_EXTEND && more != nullptr)
                for (double const number : Numbers(*more))
                    std::get<Numbers>(merged[name]).push_back(number);
        }
        return merged;
    }

    void Check() const {
        for (std::string const& name : m_names) {
            unsigned int const index = IndexOf(name);
            auto const found = set.find(name);
            Datum const expected = found != set.end() ? found->second : Default(name);
            Datum actual = expected;
            std::visit([&](auto& data) { data = Get<std::remove_cvref_t<decltype(data)>>(*content, index); },
                       actual);
            EXPECT_EQ(actual, expected) << name;
            EXPECT_EQ(content->IsSet(index), found != set.end()) << name;
            EXPECT_EQ(content->IsAtDefault(index), expected == Default(name)) << name;
        }
    }

    OwnedContent content;
    std::map<std::string, Datum> set;

private:
    std::vector<std::string> m_names;
};

OwnedMembers MakeMembers(std::vector<std::string> const& names) {
    OwnedMembers members(Members::Create("Random"));
    OwnedMembers const plate = MakePlate();
    for (std::string const& name : names) {
        unsigned int const index = plate->FindVariableIndexFromIdentifier(Identifier(name), 0, false);
        members->InsertVariable(Identifier(name), plate->ShareVariableDefinition(index), Identifier(), false,
                                Members::s_none, "", {});
    }
    return members;
}

Datum RandomDatum(Random& random) {
    auto const number = [&] { return random.Chance(6) ? 12.0 : 0.5 * random.Below(20); };
    switch (random.Below(4)) {
    case 0:
        return number();
    case 1:
        return static_cast<int>(random.Below(3));
    case 2:
        return qzString(random.Pick({"steel", "wood", "paper"}));
    default:
        return random.Chance(2) ? Numbers{number()} : Numbers{2.0, number()};
    }
}

TEST(ContentProperty, HoldsWhatAMapOfItsValuesHolds) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    std::vector<std::string> const names = {"T", "COUNT", "MATERIAL", "FACTORS"};
    std::vector<std::string> const otherNames = {"FACTORS", "LIMIT", "T", "MATERIAL"};
    OwnedMembers const members = MakeMembers(names), otherMembers = MakeMembers(otherNames);
    std::vector<Subject> subjects;
    for (int k = 0; k < 4; ++k)
        subjects.emplace_back(k < 2 ? members : otherMembers, k < 2 ? names : otherNames);
    int failures = 0, merges = 0;
    for (int step = 0; step < 4000 && !testing::Test::HasFailure(); ++step) {
        Subject& subject = subjects[random.Below(4)];
        std::string const name = random.Pick(random.Chance(2) ? names : otherNames);
        switch (random.Below(16)) {
        case 0:
        case 1: {
            Subject const& other = subjects[random.Below(4)];
            auto const rule = Content::AppendRule(random.Below(4));
            auto const merged = subject.Merged(other, rule);
            qzReturnStatus const status = subject.content->Append(*other.content, rule);
            EXPECT_EQ(status.status, merged ? 0 : -1) << status.message;
            subject.set = merged.value_or(subject.set);
            ++(merged ? merges : failures);
            break;
        }
        case 2:
            subject.content->ClearAll();
            subject.set.clear();
            break;
        case 3:
        case 4:
            EXPECT_EQ(subject.content->Reset(subject.IndexOf(name)), subject.Has(name));
            subject.set.erase(name);
            break;
        default:
            if (subject.Has(name))
                subject.Set(name, RandomDatum(random));
        }
        subject.Check();
        Subject const clone(subject);
        EXPECT_TRUE(*clone.content == *subject.content);
        clone.Check();
    }
    EXPECT_GT(failures, 10);
    EXPECT_GT(merges, 100);
}

TEST(ContentMerge, NamesWhatItRefusesAndChangesNothing) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members), other = MakeContent(members);
    using Bound = BoundT<double>;
    EXPECT_TRUE(other->SetAllowables(T, Allowables(Bound(0, Bound::Greater), 1.0)));
    other->SetValue(COUNT, 4);
    other->SetValue(T, 50.0);
    EXPECT_EQ(plate->Append(*other, Content::APPEND_KEEP).message, "T: Input of 50 violates: 0 < VALUE < 10");
    EXPECT_FALSE(plate->IsSet(COUNT) || plate->IsSet(T));
    other->SetValue(T, 5.0);
    plate->SetValue(T, 6.0);
    EXPECT_EQ(plate->Append(*other, Content::APPEND_FAIL).message, "T: Both have a value, and not the same.");
    EXPECT_FALSE(plate->IsSet(COUNT));
    EXPECT_EQ(plate->Append(*other, Content::APPEND_KEEP).status, 0);
    EXPECT_EQ(Get<int>(*plate, COUNT), 4);
    EXPECT_EQ(Get<double>(*plate, T), 6.0);
}

} // namespace
