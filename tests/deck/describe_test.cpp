#include "cards/registry.h"
#include "describe/card_page.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using namespace qzDeck;

std::string Page(CardDefinition const& card, PageStyle style) {
    std::ostringstream page;
    WriteCardPage(page, card, style);
    return page.str();
}

/// The line of a page that begins with a cell, with single blanks.
std::string LineWith(std::string const& page, std::string const& cell) {
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        auto const isDouble = [](char a, char b) { return a == ' ' && b == ' '; };
        line.erase(std::unique(line.begin(), line.end(), isDouble), line.end());
        if (line.starts_with(cell + " "))
            return line;
    }
    return "no line with " + cell;
}

TEST(CardPages, TellWhatDefinitionsSay) {
    struct Case {
        char const* card;
        char const* line;
    };
    for (auto const& [card, line] :
         {Case{"PSHELL", " T 1 25-32 real > 0. Length Thickness. Blank when every element has its own."},
          {"PSHELL", " TS/T 1 57-64 real 0.833333 > 0. Shear thickness, as a part of the thickness"},
          {"PSHELL", " MID4 2 25-32 integer >= 0, a material Material that couples membrane and bending"},
          {"GRID", " X2 1 33-40 real 0. Length or Angle Second coordinate"},
          {"MAT1", " NU 1 33-40 real > -1., < 0.5 Poisson's ratio."},
          {"CQUAD4", " PID 1 17-24 integer EID > 0, a shell property Property"},
          {"CQUAD4", " or MCID integer >= 0, a coordinate system System whose"},
          {"PCOMP", " SOUT(i) 2 33-40 text NO YES, NO Whether its stresses are put out"},
          {"SPC", " C1 1 25-32 components 0 digits 1 to 6, each once, or 0 Supported components"},
          {"SPC1", " G(i) 1 25-32 integer required > 0, a grid point Point"},
          {"RBE3", " A real required Thermal expansion Thermal expansion"},
          {"CBAR", " A blank field is what it is on the card BAROR, if there is one."},
          {"BAROR", " A deck has this card once at most."},
          {"LOAD", " (i): repeated to the end of the card."}}) {
        std::string const text = line;
        std::string const found =
            LineWith(Page(*FindCard(card), PageStyle::Text), text.substr(0, text.find(' ', 4)));
        EXPECT_EQ(found.substr(0, text.size()), text) << card;
    }
}

TEST(CardPages, AreTablesInMarkdown) {
    for (CardDefinition const& card : AllCards()) {
        std::istringstream page(Page(card, PageStyle::Markdown));
        std::string line;
        std::getline(page, line);
        EXPECT_EQ(line, "## " + card.Name() + ": " + card.Title());
        std::size_t rows = 0;
        while (std::getline(page, line)) {
            if (!line.starts_with('|'))
                continue;
            EXPECT_EQ(std::count(line.begin(), line.end(), '|'), 9) << line;
            ++rows;
        }
        EXPECT_EQ(rows, 2 + card.AllFields().size());
    }
    EXPECT_NE(Page(*FindCard("GRID"), PageStyle::Markdown)
                  .find("| X1 | 1 | 25-32 | real | 0. | | Length | First coordinate |\n"),
              std::string::npos);
}

} // namespace
