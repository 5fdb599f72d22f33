#pragma once

/// What is wrong with a deck. Nothing that is reported is dropped: the deck is read on, and what could not be
/// understood is kept as it stands.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qzDeck {

class Source;

enum class Problem : std::uint8_t {
    // of a line's place among the others
    MissingInclude,
    CyclicInclude,
    DeepInclude,
    TooManyIncludes,
    UnexpandedGenerator,
    TooManyFreeFields,
    ContinuationOfNothing,
    OrphanContinuation,
    // of a line by itself
    DoubtfulContinuation,
    IncludeWithoutPath,
    NothingToRepeat,
    IgnoredTokens,
    MisplacedToken,
    BadCardName,
    WideInteger,
    ShiftedByLargeFreeLine,
    // of a field
    BlankInNumber,
    UnreadableField,
    LongText,
    IntegerOutOfRange,
    RealOutOfRange
};

struct Report {
    Problem problem;
    std::uint32_t file; ///< index of Source::Files
    std::uint32_t line;
    std::string_view subject; ///< the text at fault; it lives as long as the source
};
using Reports = std::vector<Report>;

/// Whether the deck as a whole suffers: lines or files that found no place in it.
bool IsStructural(Problem problem);

/// What is wrong, in words.
std::string_view Sentence(Problem problem);

/// `file:line`.
std::string Location(Source const& source, std::uint32_t file, std::uint32_t line);

/// A text as it may be shown: cut when it is long, without what would disturb a terminal.
std::string Printable(std::string_view text);

/// `file:line: what is wrong: 'subject'`.
std::string Describe(Report const& report, Source const& source);

} // namespace qzDeck
