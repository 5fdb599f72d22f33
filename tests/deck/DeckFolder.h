#pragma once

#include "model/Model.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <string_view>
#include <vector>

/// A folder of decks for one test.
class DeckFolder : public TemporaryFolder {
public:
    /// Writes a file with exactly these bytes and returns its path.
    std::string Write(std::string const& name, std::string_view text) const;
    /// The model of a deck with this text.
    qzDeck::Model Read(std::string_view text) const;
};

/// A deck of the repository.
std::string OwnDeck(std::string const& name);
/// Our decks, sound and broken ones, and those below.
std::vector<std::string> AllDecks();
/// Published decks that are not ours to keep: none where they are not at hand.
std::vector<std::string> SharedDecks();

/// One line for a card: `GRID 1 _ 0.5 'A'` is an integer, a blank, a real and a text; `bad'1..2'` is a text
/// with the mark of its kind.
std::string TextOf(qzDeck::Card const& card);
/// The lines of all cards.
std::string TextOf(qzDeck::Model const& model);

/// The reports without the path: `7: a blank inside a number: '1. 5'`, one a line.
std::string ReportsOf(qzDeck::Model const& model);

/// Whether databases of tables can be opened: not when the library was built without SQLite.
bool HasTableStore();
