#pragma once

namespace qzDescriptor {

class Formula;
class TextReader;

/// Reads the formula that stands next, up to the last of its clauses; false, leaving the formula as it was,
/// when there is none. Formulas may follow one another with blanks between them.
bool ReadFormula(TextReader& reader, Formula& formula);

} // namespace qzDescriptor
