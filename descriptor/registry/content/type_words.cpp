#include "registry/content/type_words.h"

#include <iterator>

namespace qzDescriptor {

namespace {

struct Words {
    qzString one;
    qzString many;
};

struct Row {
    char const* one;
    char const* many;
};

constexpr Row s_nothing = {"nothing", "nothing"};

// By basic type. Objects are told by their compound type.
constexpr Row s_scalars[] = {
    s_nothing,
    {"a bool", "bools"},
    {"a char", "chars"},
    {"an unsigned char", "unsigned chars"},
    {"an int", "ints"},
    {"an unsigned int", "unsigned ints"},
    {"a short", "shorts"},
    {"an unsigned short", "unsigned shorts"},
    {"a long", "longs"},
    {"an unsigned long", "unsigned longs"},
    {"a float", "floats"},
    {"a double", "doubles"},
    {"a text", "texts"},
    s_nothing,
    {"a pointer", "pointers"},
};

// By compound type. Behind couples and triples stand their scalars.
constexpr Row s_compounds[] = {
    s_nothing,
    s_nothing,
    {"a couple of ", "couples of "},
    {"a triple of ", "triples of "},
    {"a 3x3 matrix", "3x3 matrices"},
    {"a 4x4 matrix", "4x4 matrices"},
    {"a color", "colors"},
    {"an entity", "entities"},
    {"a qualifier", "qualifiers"},
    {"a formula", "formulas"},
    {"a function", "functions"},
    {"a table", "tables"},
};

constexpr char const* s_arrays[] = {"", "a list of ", "a two-level list of ", "a bag of ",
                                    "a register of bags of "};

template <std::size_t Count>
Words At(Row const (&rows)[Count], int code) {
    Row const& row = code >= 0 && code < static_cast<int>(Count) ? rows[code] : s_nothing;
    return {row.one, row.many};
}

Words ElementWords(BasicType basic, CompoundType compound) {
    Words const scalar = At(s_scalars, basic);
    if (compound == CT_SCALAR)
        return scalar;
    Words words = At(s_compounds, compound);
    if (compound == CT_COUPLE || compound == CT_TRIPLE) {
        words.one += scalar.many;
        words.many += scalar.many;
    }
    return words;
}

} // namespace

qzString TypeWords(BasicType basic, CompoundType compound, unsigned int arrayDimension) {
    Words const words = ElementWords(basic, compound);
    if (arrayDimension == 0 || compound == CT_TABULAR || words.one == s_nothing.one)
        return words.one;
    return arrayDimension < std::size(s_arrays) ? s_arrays[arrayDimension] + words.many : s_nothing.one;
}

} // namespace qzDescriptor
