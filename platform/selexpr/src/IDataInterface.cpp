#include "selexpr/IDataInterface.h"

namespace ui::selexpr {

namespace {

/// Reads through the getter of an interface that binds no properties itself.
class GetterProperty : public IProperty {
public:
    GetterProperty(IDataInterface& data, qzString const& property) : m_data(data), m_property(property) {}

    bool Read(void* object, Scalar& value, qzString& scratch) const override {
        qzVariant variant;
        return m_data.GetValue(object, m_property, variant) && P_Convert(variant, value, scratch);
    }

private:
    static bool P_Convert(qzVariant const& variant, Scalar& value, qzString& scratch) {
        int integer = 0;
        long long long64 = 0;
        bool boolean = false;
        float real = 0;
        double doubleReal = 0;
        if (variant.GetInteger(integer))
            value.SetInteger(integer);
        else if (variant.GetLong64(long64))
            value.SetInteger(long64);
        else if (variant.GetBoolean(boolean))
            value.SetBoolean(boolean);
        else if (variant.GetFloat(real))
            value.SetFloat(real);
        else if (variant.GetDouble(doubleReal))
            value.SetDouble(doubleReal);
        else if (variant.GetString(scratch))
            value.SetText(scratch);
        else
            value.Clear();
        return !value.IsEmpty();
    }

    IDataInterface& m_data;
    qzString m_property;
};

} // namespace

IProperty::~IProperty() = default;
IDataInterface::~IDataInterface() = default;

std::unique_ptr<IProperty> IDataInterface::Bind(qzString const& property) {
    return std::make_unique<GetterProperty>(*this, property);
}

} // namespace ui::selexpr
