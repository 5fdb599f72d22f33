#pragma once

namespace qzDescriptor {

class Clause;
class TextReader;

/// Reads the clause that stands next; false, leaving the clause as it was, when there is none.
bool ReadClause(TextReader& reader, Clause& clause);

} // namespace qzDescriptor
