#include "reader/Report.h"

#include "reader/Source.h"

#include <algorithm>

namespace qzDeck {

std::string_view Sentence(Problem problem) {
    switch (problem) {
    case Problem::MissingInclude:
        return "the included file cannot be read";
    case Problem::CyclicInclude:
        return "the file includes itself, directly or through others";
    case Problem::DeepInclude:
        return "files are included too deep";
    case Problem::TooManyIncludes:
        return "too many files are included";
    case Problem::UnexpandedGenerator:
        return "a generator that is not expanded";
    case Problem::TooManyFreeFields:
        return "a free line has more than ten fields; it is cut before";
    case Problem::ContinuationOfNothing:
        return "a continuation line before the first card";
    case Problem::OrphanContinuation:
        return "no card or more than one is continued by this line";
    case Problem::DoubtfulContinuation:
        return "behind a line that belongs elsewhere, an unnamed one is read as part of the card before both";
    case Problem::IncludeWithoutPath:
        return "INCLUDE without a path in single quotes is not followed";
    case Problem::NothingToRepeat:
        return "there is no free line before this one to repeat";
    case Problem::IgnoredTokens:
        return "'==' repeats all that remains; what follows it is ignored";
    case Problem::MisplacedToken:
        return "the field is already passed; the value goes to the next one";
    case Problem::BadCardName:
        return "not the name of a card";
    case Problem::WideInteger:
        return "an integer wider than its field of 8 columns";
    case Problem::ShiftedByLargeFreeLine:
        return "a free line of large fields begins a new row of eight fields";
    case Problem::BlankInNumber:
        return "a blank inside a number";
    case Problem::UnreadableField:
        return "neither a number nor a text";
    case Problem::LongText:
        return "a text of more than 8 characters";
    case Problem::IntegerOutOfRange:
        return "the integer needs more than 32 bits";
    case Problem::RealOutOfRange:
        return "the real number is out of range";
    }
    return "";
}

std::string Location(Source const& source, std::uint32_t file, std::uint32_t line) {
    return source.Files()[file].path + ':' + std::to_string(line);
}

std::string Printable(std::string_view text) {
    constexpr std::size_t longest = 72;
    std::string printable(text.substr(0, longest));
    if (text.size() > longest)
        printable += "...";
    auto const isControl = [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; };
    std::replace_if(printable.begin(), printable.end(), isControl, '?');
    return printable;
}

bool IsStructural(Problem problem) { return problem <= Problem::OrphanContinuation; }

std::string Describe(Report const& report, Source const& source) {
    std::string text = Location(source, report.file, report.line);
    text.append(": ").append(Sentence(report.problem));
    if (!report.subject.empty())
        text += ": '" + Printable(report.subject) + '\'';
    return text;
}

} // namespace qzDeck
