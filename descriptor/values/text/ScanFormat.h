#pragma once

#include "values/text/Numbers.h"

#include <bitset>
#include <cstddef>
#include <string_view>
#include <variant>
#include <vector>

namespace qzDescriptor {

/// A floating number in both precisions, each rounded once.
struct ScannedReal {
    double value = 0;
    float single = 0;
    bool fitsSingle = false;
};

/// A caller's scanf format, checked and taken apart before any text is read by it. `%n`, unknown conversions
/// and unfinished ones make it invalid.
class ScanFormat {
public:
    /// What a conversion reads.
    enum class Class { Integer, Real, Text, Pointer };

    using Field = std::variant<ScannedInteger, ScannedReal, qzString>; ///< a pointer is read as an integer

    explicit ScanFormat(char const* format);

    bool IsValid() const { return m_valid; }

    /// The classes of the conversions that store something, in order ("%*d" stores nothing).
    std::vector<Class> const& GetClasses() const { return m_classes; }

    /// Reads a text: Matched when every conversion that stores something found its field, whatever follows
    /// the last one. `fields` is replaced, also by those that were found before one was not.
    Scan Read(std::string_view text, std::vector<Field>& fields) const;

private:
    struct Directive {
        enum Kind { Blanks, Literal, Conversion };

        Kind kind = Literal;
        char letter = '\0'; ///< the literal character, or the conversion
        bool skipped = false;
        std::size_t width = 0;     ///< 0: no limit
        std::bitset<256> accepted; ///< of "%["

        bool KeepsBlanks() const { return letter == 'c' || letter == '['; }
    };

    bool P_Parse(char const* format);
    static bool P_ParseConversion(char const*& at, Directive& directive);
    static bool P_ParseSet(char const*& at, std::bitset<256>& accepted);
    static Class P_ClassOf(char letter);
    static Scan P_ReadField(Directive const& directive, std::string_view& text, Field& field);

    std::vector<Directive> m_directives;
    std::vector<Class> m_classes;
    bool m_valid = false;
};

} // namespace qzDescriptor
