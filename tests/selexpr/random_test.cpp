// Random requests, written in random ways, against an evaluation that knows nothing of how requests are
// compiled.

#include "objects.h"
#include "support/Random.h"

#include <cmath>
#include <functional>
#include <limits>
#include <variant>

namespace ui::selexpr::test {
namespace {

/// A number as it is written and what it is in each type; a long double holds every 64-bit integer.
struct Literal {
    char const* text;
    long double exact;
    double real;
    float single;
};

#define LITERAL(number)                                                                                      \
    Literal { #number, number##L, number, number##f }
Literal const s_literals[] = {LITERAL(0.0),
                              LITERAL(1.0),
                              LITERAL(2.5),
                              LITERAL(-2.5),
                              LITERAL(0.1),
                              LITERAL(3e0),
                              LITERAL(9223372036854775807.0),
                              LITERAL(9223372036854775806.5),
                              LITERAL(9007199254740993.0),
                              LITERAL(1e19)};
#undef LITERAL
char const* const s_texts[] = {"", "a", "B", "ab", "aB*b", "and", "*", "?b", "a b", "x\"\\", "b:", "'"};
char const* const s_names[] = {"i", "d", "f", "s", "none"};

using Test = std::function<bool(Object const&)>;

/// A request in words and in deeds.
struct Request {
    qzString text;
    Test test;
};

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The meaning of wildcards, word for word.
bool Fits(char const* pattern, char const* text) {
    if (*pattern == '\0')
        return *text == '\0';
    if (*pattern == '*')
        return Fits(pattern + 1, text) || (*text != '\0' && Fits(pattern, text + 1));
    return *text != '\0' && (*pattern == '?' || Lower(*pattern) == Lower(*text)) &&
           Fits(pattern + 1, text + 1);
}

/// Whether the order of a number and a literal satisfies a sign. Texts that are no numbers and numbers
/// satisfy nothing, and NaN as little.
bool Compare(qzVariant const& value, Literal const& literal, qzString const& sign) {
    auto const holds = [&](auto left, auto right) {
        return sign == "<"    ? left < right
               : sign == "<=" ? left <= right
               : sign == ">"  ? left > right
               : sign == ">=" ? left >= right
                              : left == right;
    };
    long long integer = 0;
    double real = 0;
    float single = 0;
    return value.GetLong64(integer) ? holds(static_cast<long double>(integer), literal.exact)
           : value.GetDouble(real)  ? holds(real, literal.real)
           : value.GetFloat(single) ? holds(single, literal.single)
                                    : false;
}

bool HasValue(Object const& object, qzString const& name) {
    auto const found = object.find(name);
    double real = 0;
    return found != object.end() && !found->second.IsEmpty() &&
           !(found->second.GetDouble(real) && std::isnan(real));
}

class Generator {
public:
    explicit Generator(Random& random) : m_random(random) {}

    Request MakeRequest(unsigned depth) {
        if (depth == 0 || m_random.Chance(3))
            return P_Condition();
        if (m_random.Chance(4)) {
            Request const inner = MakeRequest(depth - 1);
            return {P_Word("not") + P_Blank(true) + "(" + inner.text + ")",
                    [test = inner.test](Object const& object) { return !test(object); }};
        }
        return P_Chain(depth);
    }

    Object MakeObject() {
        Object object{{"s", Text(m_random.Pick(s_texts))}, {"none", {}}};
        constexpr long long s_max = std::numeric_limits<long long>::max();
        object["i"] =
            Integer(m_random.Pick({0LL, 1LL, 2LL, 3LL, -2LL, s_max, s_max - 1, 9007199254740993LL}));
        object["d"] = Double(m_random.Chance(5) ? std::nan("") : m_random.Pick(s_literals).real);
        object["f"] = Float(m_random.Pick(s_literals).single);
        return object;
    }

private:
    Request P_Chain(unsigned depth) {
        bool const isAnd = m_random.Chance(2);
        Request chain = P_Bracketed(depth);
        for (unsigned count = 1 + m_random.Below(2); count > 0; --count) {
            Request const next = P_Bracketed(depth);
            chain.text += P_Blank(true) + P_Word(isAnd ? "and" : "or") + P_Blank(true) + next.text;
            chain.test = [isAnd, left = chain.test, right = next.test](Object const& object) {
                return isAnd ? left(object) && right(object) : left(object) || right(object);
            };
        }
        return chain;
    }

    Request P_Bracketed(unsigned depth) {
        Request const inner = MakeRequest(depth - 1);
        return {"(" + P_Blank() + inner.text + ")" + P_Blank(), inner.test};
    }

    Request P_Condition() {
        qzString const name = m_random.Pick(s_names);
        bool const negated = m_random.Chance(4);
        Request condition = m_random.Chance(2)   ? P_OfNumber(name, negated)
                            : m_random.Chance(2) ? P_OfText(name, negated)
                                                 : P_OfList(name, negated);
        condition.test = [=, test = condition.test](Object const& object) {
            return HasValue(object, name) && test(object) != negated;
        };
        return condition;
    }

    Request P_OfNumber(qzString const& name, bool negated) {
        Literal const literal = m_random.Pick(s_literals);
        qzString const sign = negated ? "!=" : m_random.Pick({"=", "==", "<", "<=", ">", ">="});
        return {name + P_Blank() + sign + P_Blank() + literal.text,
                [=](Object const& object) { return Compare(object.at(name), literal, sign); }};
    }

    Request P_OfText(qzString const& name, bool negated) {
        qzString const pattern = m_random.Pick(s_texts);
        return {name + P_Blank() + (negated ? "!=" : "=") + P_Blank() + P_Quote(pattern),
                [=](Object const& object) {
                    qzString text;
                    return object.at(name).GetString(text) && Fits(pattern.c_str(), text.c_str());
                }};
    }

    Request P_OfList(qzString const& name, bool negated) {
        Request list{name + P_Blank(true) + (negated ? P_Word("not") + " in " : "in "), nullptr};
        list.test = [](Object const&) { return false; };
        unsigned const count = 1 + m_random.Below(3);
        for (unsigned k = 0; k < count; ++k) {
            list.text += k == 0 ? "" : ",";
            if (m_random.Chance(3)) {
                P_AddSteps(name, list);
                continue;
            }
            Literal const first = m_random.Pick(s_literals);
            Literal const last = m_random.Pick(s_literals);
            list.text += P_Blank() + first.text + P_Blank() + ":" + P_Blank() + last.text;
            list.test = [=, others = list.test](Object const& object) {
                qzVariant const& value = object.at(name);
                return others(object) || (Compare(value, first, ">=") && Compare(value, last, "<=")) ||
                       (Compare(value, last, ">=") && Compare(value, first, "<="));
            };
        }
        return list;
    }

    void P_AddSteps(qzString const& name, Request& list) {
        int const first = static_cast<int>(m_random.Below(9)) - 4;
        int const step = static_cast<int>(1 + m_random.Below(3)) * (m_random.Chance(2) ? 1 : -1);
        int const last = first + step * static_cast<int>(m_random.Below(3)) + (step > 1 ? 1 : 0);
        list.text += std::to_string(first) + ":" + std::to_string(last) + ":" + std::to_string(step);
        list.test = [=, others = list.test](Object const& object) {
            if (others(object))
                return true;
            for (int k = first; step > 0 ? k <= last : k >= last; k += step) {
                auto const number = static_cast<float>(k);
                if (Compare(object.at(name), {"", number, number, number}, "="))
                    return true;
            }
            return false;
        };
    }

    qzString P_Blank(bool needed = false) { return m_random.Pick({needed ? " " : "", " ", "\n \t"}); }

    qzString P_Word(qzString word) {
        for (char& c : word)
            if (m_random.Chance(2))
                c = static_cast<char>(c - 'a' + 'A');
        return word;
    }

    qzString P_Quote(qzString const& text) {
        char const quote = m_random.Chance(2) ? '"' : '\'';
        qzString quoted(1, quote);
        for (char const c : text)
            quoted += c == quote || c == '\\' ? qzString{'\\', c} : qzString(1, c);
        return quoted + quote;
    }

    Random& m_random;
};

TEST(RandomQueries, MeanWhatANaiveEvaluationSaysAndAreReadBackAsWritten) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    Generator generator(random);
    Data data;
    Filter filter(&data);
    int matching = 0;
    for (int round = 0; round < 1'000; ++round) {
        Request const expected = generator.MakeRequest(4);
        auto const request = Parse(filter, expected.text);
        ASSERT_NE(request, nullptr) << expected.text << '\n' << filter.GetError().message;
        qzString const written = ToText(*request);
        auto const again = Parse(filter, written);
        ASSERT_NE(again, nullptr) << written << '\n' << filter.GetError().message;
        ASSERT_EQ(ToText(*again), written) << expected.text;
        for (int k = 0; k < 20; ++k) {
            Object object = generator.MakeObject();
            bool const matches = expected.test(object);
            matching += matches ? 1 : 0;
            ASSERT_EQ(request->Matches(&object), matches) << expected.text << '\n'
                                                          << Explain(*request, &object).GetText();
            ASSERT_EQ(again->Matches(&object), matches) << written;
            ASSERT_EQ(Explain(*request, &object).matches, matches);
        }
    }
    EXPECT_GT(matching, 2'500) << "the requests say too little";
    EXPECT_LT(matching, 17'500);
}

/// An e in its two bytes of UTF-8, and a 2 as the raised one of Latin-1, which is no UTF-8.
qzString Encode(qzString const& letters) {
    qzString bytes;
    for (char const c : letters)
        bytes += c == 'e' ? "\xC3\xA9" : c == '2' ? "\xB2" : qzString(1, c);
    return bytes;
}

TEST(RandomQueries, WildcardsFitAsTheirMeaningSays) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    Data data;
    Filter filter(&data);
    auto const word = [&](char const* letters, unsigned longest) {
        qzString made;
        for (unsigned count = random.Below(longest + 1); count > 0; --count)
            made += letters[random.Below(static_cast<unsigned>(qzString(letters).size()))];
        return made;
    };
    for (int round = 0; round < 3'000; ++round) {
        qzString const pattern = word(random.Chance(3) ? "abA**" : "abA*?e2", 8);
        qzString const part = word("abAe2", 3);
        auto const request = Parse(filter, "s = '" + Encode(pattern) + "'");
        auto const bare = Parse(filter, "'" + Encode(part) + "'");
        ASSERT_TRUE(request && bare) << pattern << ' ' << part;
        for (int k = 0; k < 10; ++k) {
            qzString const text = word("aBbe2", 12);
            Object object{{"s", Text(Encode(text))}, {"name", Text(Encode(text))}};
            ASSERT_EQ(request->Matches(&object), Fits(pattern.c_str(), text.c_str()))
                << pattern << ' ' << text;
            ASSERT_EQ(bare->Matches(&object), Fits(("*" + part + "*").c_str(), text.c_str()))
                << part << ' ' << text;
        }
    }
}

// Nothing that a text holds may do more than be refused.
TEST(RandomQueries, AnyTokensAreParsedOrRefusedWithAPlaceInTheText) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    Data data;
    Filter filter(&data);
    char const* const tokens[] = {
        "a", "and ", "or ", "not ", " in ", "(",   ")", "=",   "==", "!=", "<", ">=", "~",
        ",", ":",    "1",   "-2",   "0.5",  "'x'", "'", "\"b", " ",  "*",  "!", "\n", "\xC3\xA9"};
    Object object{{"a", Integer(1)}};
    int parsed = 0;
    for (int round = 0; round < 20'000; ++round) {
        qzString text;
        for (unsigned count = random.Below(10); count > 0; --count)
            text += random.Pick(tokens);
        if (auto const request = Parse(filter, text)) {
            ++parsed;
            qzString const written = ToText(*request);
            auto const again = Parse(filter, written);
            ASSERT_NE(again, nullptr) << text << '\n' << written;
            ASSERT_EQ(ToText(*again), written);
            ASSERT_EQ(again->Matches(&object), request->Matches(&object)) << text;
        } else {
            ASSERT_LE(filter.GetError().offset, text.size()) << text;
            ASSERT_FALSE(filter.GetError().message.empty()) << text;
        }
    }
    EXPECT_GT(parsed, 300);
}

} // namespace
} // namespace ui::selexpr::test
