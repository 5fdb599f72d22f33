#pragma once

#include "reader/Source.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qzDeck {

/// The lines on which a card is written: all of the narrowest format that holds its name and its texts. Both
/// must live as long.
///
///     CardLines lines("PSHELL", texts);
///     for (std::size_t i = 0; i < lines.Count(); ++i)
///         lines.Append(out, i);
class CardLines {
public:
    /// Texts by their place, trimmed; empty when blank.
    CardLines(std::string_view name, std::span<std::string const> texts);

    std::size_t Count() const { return m_lines.size(); }
    /// Appends a line without its end.
    void Append(std::string& out, std::size_t line) const;

private:
    struct Part {
        LineFormat format;
        std::size_t firstPlace;
        std::size_t count; ///< of fields: large ones are half as many
    };

    void P_AddRow(LineFormat format, std::size_t firstPlace);
    bool P_Fit(LineFormat format, std::size_t firstPlace, std::size_t count) const;
    std::string_view P_Text(std::size_t place) const {
        return place < m_texts.size() ? std::string_view(m_texts[place]) : std::string_view();
    }
    std::string P_FirstField(Part const& line) const;
    void P_AppendFixed(std::string& out, Part const& line) const;
    void P_AppendFree(std::string& out, Part const& line) const;

    std::string_view m_name;
    std::span<std::string const> m_texts;
    std::vector<Part> m_lines;
};

/// Appends the fields of a free line, so that a reader takes none of them for a generator of fields.
void AppendTokens(std::string& out, std::span<std::string_view const> tokens);

} // namespace qzDeck
