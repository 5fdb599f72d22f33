#pragma once

#include "selexpr/Export.h"

namespace ui::selexpr {

/// A parsed text, which says of each object whether it is meant. A request belongs to who had it parsed and
/// ends before its parser and the parser's data interface. See explain.h for why an object does not match.
class QZSELEXPR_API IRequest {
public:
    virtual ~IRequest();

    virtual bool Matches(void* object) const = 0;

protected:
    IRequest() = default;
    IRequest(IRequest const&) = default;
    IRequest& operator=(IRequest const&) = default;
};

} // namespace ui::selexpr
