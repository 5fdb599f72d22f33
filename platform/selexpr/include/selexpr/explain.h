#pragma once

#include "qzutl/qzStlVector.h"
#include "qzutl/qzString.h"
#include "selexpr/Export.h"

namespace ui::selexpr {

class IRequest;

/// One condition that decided about an object.
struct Reason {
    qzString condition; ///< as the language writes it: thickness > 2.5
    bool holds = false;
    qzString property;
    qzString value; ///< as the language writes it; empty when the object has none
};

/// Why an object matches a request or does not.
struct Explanation {
    bool matches = false;
    qzStlVector<Reason> reasons;

    /// A line for each reason: "thickness > 2.5 is false: thickness is 1.2".
    QZSELEXPR_API qzString GetText() const;
};

/// Names the conditions that decide: of an `and` that fails the first that fails, of an `or` that fails all
/// of them. A request of a parser elsewhere gives no reasons.
///
///     std::unique_ptr<IRequest> request(parser.Parse("thickness > 2.5 and name = wing*"));
///     std::cout << Explain(*request, &part).GetText();
QZSELEXPR_API Explanation Explain(IRequest const& request, void* object);

/// The request in the language itself, with the fewest brackets; parsed again, it means the same. Empty for a
/// request of a parser elsewhere.
QZSELEXPR_API qzString ToText(IRequest const& request);

} // namespace ui::selexpr
