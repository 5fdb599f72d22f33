// Any bytes as a query: parsed or refused, never more. What parses is written, read back and must mean the
// same.

#include "selexpr/IDataFilter.h"
#include "selexpr/IDataInterface.h"
#include "selexpr/IRequest.h"
#include "selexpr/explain.h"
#include "selexpr/objects.h" // of the tests: the filter with a default property

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

using namespace ui::selexpr;

/// Answers for every name, with a kind of value that the name chooses.
class AnyData : public IDataInterface {
public:
    bool GetValue(void*, qzString const& property, qzVariant& out) override {
        switch (property.size() % 6) {
        case 0:
            return false;
        case 1:
            out.SetLong64(-9'007'199'254'740'993);
            break;
        case 2:
            out.SetDouble(0.1);
            break;
        case 3:
            out.SetFloat(2.5f);
            break;
        case 4:
            out.SetString("Wing 12");
            break;
        default:
            out.SetBoolean(true);
        }
        return true;
    }
};

void Require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    qzString const text(reinterpret_cast<char const*>(data), size);
    AnyData values;
    test::Filter filter(&values);
    std::unique_ptr<IRequest> const request(filter.Parse(text));
    if (!request) {
        Require(filter.GetError().position > 0 && filter.GetError().offset <= size);
        return 0;
    }
    bool const matches = request->Matches(nullptr);
    Require(Explain(*request, nullptr).matches == matches);
    qzString const written = ToText(*request);
    std::unique_ptr<IRequest> const again(filter.Parse(written));
    Require(again && ToText(*again) == written && again->Matches(nullptr) == matches);
    return 0;
}
