#pragma once

#include "qzutl/qzString.h"
#include "qzutl/qzVariant.h"
#include "selexpr/Export.h"
#include "selexpr/Scalar.h"

#include <memory>

namespace ui::selexpr {

/// One property of every object, resolved from its name once for a whole request.
///
///     struct Thickness : IProperty {
///         bool Read(void* object, Scalar& value, qzString&) const override {
///             value.SetDouble(static_cast<Part*>(object)->thickness);
///             return true;
///         }
///     };
///
/// Requests read from as many threads at once as their owner lets them run on.
class QZSELEXPR_API IProperty {
public:
    virtual ~IProperty();

    /// False, or true with the value left empty, says that the object has no value; no condition on it holds.
    /// A text lies in the object or, when it has to be made, in `scratch`, and stays there until the next
    /// call with the same scratch. The object may be null.
    virtual bool Read(void* object, Scalar& value, qzString& scratch) const = 0;

protected:
    IProperty() = default;
    IProperty(IProperty const&) = default;
    IProperty& operator=(IProperty const&) = default;
};

/// What a request knows of objects: the values of their properties, by name. The getter alone suffices; who
/// has many objects overrides `Bind` too and is then asked for no name and no string more than once.
class QZSELEXPR_API IDataInterface {
public:
    virtual ~IDataInterface();

    /// The value of a property of one object, as an integer, long64, boolean, float, double or string. False,
    /// or true with `out` left empty, says that there is none.
    virtual bool GetValue(void* object, qzString const& property, qzVariant& out) = 0;

    /// Resolves a property for a request, which keeps the result; null says that no object has such a
    /// property, and the text is refused. By default values are read through the getter.
    virtual std::unique_ptr<IProperty> Bind(qzString const& property);

protected:
    IDataInterface() = default;
    IDataInterface(IDataInterface const&) = default;
    IDataInterface& operator=(IDataInterface const&) = default;
};

} // namespace ui::selexpr
