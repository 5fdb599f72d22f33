#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// The text of a formula: the type of the entities that it selects, and its clauses in order.
///
///     GRID: +range(10 20 5) -ids(1 2 7)@SET
///     "wing panel"/SHELL[2]: +name("wing \"left\"") +color(#0A14FF)
///
/// A clause that adds has a plus, one that removes a minus; behind an @ stands the type that it was written
/// against where that is another one. A type is a number or a name (in quotes unless it is a plain word), 0
/// being no type; behind it stand "/" and the subtype, and the topology kind in square brackets, where there
/// are such. The absence of a formula is written "none()".
QZDESCRIPTOR_API qzString GetAsString(Formula const& formula);

/// Reads what GetAsString writes, with any blanks between its parts; false, changing nothing, for other
/// texts.
QZDESCRIPTOR_API bool SetFromString(Formula& formula, qzString const& text);

/// The text of a function, for people: its usage, its names, and whether it has a callback. It cannot be read
/// back, since a callback has no text.
///
///     function(3 tcl("on change") native("OnChange") callback)
QZDESCRIPTOR_API qzString GetAsString(Function const& function);

} // namespace qzDescriptor
