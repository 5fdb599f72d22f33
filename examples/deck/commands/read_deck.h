#pragma once

#include "model/Model.h"

#include <optional>
#include <string>

namespace qzDeck {

/// The model of a deck, with what is wrong in its text told on standard error; nothing, with the reason
/// there, when it cannot be read.
std::optional<Model> ReadDeck(std::string const& path);

/// The exit status of a command that has written to standard output.
int EndOutput(int status);

} // namespace qzDeck
