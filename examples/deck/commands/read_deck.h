#pragma once

#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"

#include <string>

namespace qzDeck {

/// The session of a deck, with what is wrong in its text told on standard error; null, with the reason there,
/// when it cannot be read.
DeckSession* ReadDeck(DeckRegistry& registry, std::string const& path);

/// Writes the deck of a session as it stands now. False, with the reason on standard error, when it cannot be
/// written; then it is not begun either.
bool WriteDeckFile(DeckSession const& session, std::string const& path);

/// Tells why nothing is done, and answers the exit status.
int Refuse(std::string const& reason, int status);

/// The exit status of a command that has written to standard output.
int EndOutput(int status);

} // namespace qzDeck
