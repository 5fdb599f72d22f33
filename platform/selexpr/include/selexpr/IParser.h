#pragma once

#include "qzutl/qzString.h"
#include "selexpr/Export.h"

#include <cstddef>

namespace ui::selexpr {

class IRequest;

/// Why a text is no request: "at 11: found 'or', expected a condition".
struct ParseError {
    std::size_t offset = 0;   ///< in bytes from 0
    std::size_t position = 0; ///< in characters from 1, as the message counts; 0 when there is no error
    qzString found;
    qzString expected;
    qzString message; ///< the whole sentence
};

/// Makes requests of texts.
///
///     std::unique_ptr<IRequest> request(parser.Parse("thickness > 2.5 and name = wing*"));
///     if (!request)
///         std::cerr << parser.GetError().message << '\n';
class QZSELEXPR_API IParser {
public:
    virtual ~IParser();

    /// The caller owns the request. Null for an empty text and for one that cannot be parsed; `GetError` then
    /// tells why.
    virtual IRequest* Parse(qzString const& text) = 0;
    /// About the last text that was parsed.
    virtual ParseError const& GetError() const = 0;

protected:
    IParser() = default;
    IParser(IParser const&) = default;
    IParser& operator=(IParser const&) = default;
};

} // namespace ui::selexpr
