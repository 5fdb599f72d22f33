// The values of one object.

#include "registry/content/ContentPrivate.h"

#include "registry/content/check_value.h"

#include <algorithm>
#include <utility>

namespace qzDescriptor {

// Delegates, so that what was copied is released when memory runs out on the way.
ContentPrivate::ContentPrivate(ContentPrivate const& other) : ContentPrivate(*other.m_members) {
    if (other.m_extras)
        m_extras = std::make_unique<ContentExtras>(*other.m_extras);
    if (other.m_reach == 0)
        return;
    m_own = new ValuePtr*[other.m_reach]();
    m_reach = other.m_reach;
    for (unsigned int index = 0; index < m_reach; ++index) {
        if (ValuePtr const* const own = other.P_FindOwn(index))
            m_own[index] = own->Clone();
    }
}

unsigned int ContentPrivate::GetCount() const { return m_members->GetVariableCount(false, false); }

Content::AttributeType ContentPrivate::GetAttributeType(unsigned int index) const {
    return TypeOfAttribute(GetDefinition(index));
}

bool ContentPrivate::GetValue(unsigned int index, ValuePtr const*& value) const {
    ValuePtr const* const own = P_FindOwn(index);
    ValuePtr const* const found = own != nullptr ? own : GetDefaultValue(index);
    if (found != nullptr)
        value = found;
    return found != nullptr;
}

ValuePtr const* ContentPrivate::GetDefaultValue(unsigned int index) const {
    ContentExtras::OfAttribute const* const extras = P_FindExtras(index);
    return extras != nullptr && extras->definition ? extras->defaultValue.GetValuePtr()
                                                   : m_members->GetDefaultValue(index);
}

bool ContentPrivate::IsAtDefault(unsigned int index) const {
    ValuePtr const* const own = P_FindOwn(index);
    return own != nullptr ? HaveEqualData(own, GetDefaultValue(index)) : P_Exists(index);
}

bool ContentPrivate::GetValueAsString(unsigned int index, qzString& out, char const* format, unsigned int i,
                                      unsigned int j) const {
    ValuePtr const* value = nullptr;
    if (GetValue(index, value))
        return value->GetValueAsString(out, format, i, j);
    out.clear();
    return false;
}

qzReturnStatus ContentPrivate::SetValue(unsigned int index, Value const& value) {
    return SetValue(index, Value(value));
}

qzReturnStatus ContentPrivate::SetValue(unsigned int index, Value&& value) {
    qzReturnStatus const status = TestValue(index, value);
    if (status.status == 0)
        P_Store(index, std::move(value));
    return status;
}

qzReturnStatus ContentPrivate::TestValue(unsigned int index, Value const& value) const {
    return CheckAttributeValue(GetDefinition(index), value.GetValuePtr());
}

qzReturnStatus ContentPrivate::SetValueFromString(unsigned int index, qzString const& text,
                                                  char const* format, unsigned int i, unsigned int j) {
    Value changed = P_CopyValue(index);
    if (changed.GetValuePtr() == nullptr)
        return TestValue(index, changed);
    if (!changed.SetValueFromString(text, format, i, j))
        return Refusal("The text \"" + text + "\" cannot be read into the value.");
    return SetValue(index, std::move(changed));
}

bool ContentPrivate::SetValueUnchecked(unsigned int index, Value&& value) {
    if (value.GetValuePtr() == nullptr)
        return Reset(index);
    if (!P_Exists(index))
        return false;
    P_Store(index, std::move(value));
    return true;
}

ValuePtr* ContentPrivate::ModifyValue(unsigned int index) {
    if (ValuePtr* const own = P_FindOwn(index))
        return own;
    Value value = P_CopyValue(index);
    if (value.GetValuePtr() == nullptr)
        return nullptr;
    P_Store(index, std::move(value));
    return P_FindOwn(index);
}

Value ContentPrivate::P_CopyValue(unsigned int index) const {
    Value value;
    if (Content::GetValue(index, value))
        value.SetDisplayStatus(DS_DEFAULT);
    return value;
}

bool ContentPrivate::Reset(unsigned int index) {
    if (index < m_reach)
        ValuePtr::Destroy(std::exchange(m_own[index], nullptr));
    return P_Exists(index);
}

void ContentPrivate::ClearAll() {
    for (unsigned int index = 0; index < m_reach; ++index)
        ValuePtr::Destroy(m_own[index]);
    delete[] std::exchange(m_own, nullptr);
    m_reach = 0;
}

// A number that is set already is found and tested, and that is all: nothing here may slow that down.
template <class T>
bool ContentPrivate::P_Write(unsigned int index, T const& value) {
    ValuePtr* const own = P_FindOwn(index);
    ScalarStorage<T>* const scalar = own != nullptr ? ScalarStorage<T>::Of(own) : nullptr;
    Definition const* const definition = GetDefinition(index);
    if (definition == nullptr || definition->GetAllowables().Test(value) == 1)
        return false;
    if (scalar == nullptr)
        return P_WriteAnew(index, value, *definition);
    scalar->m_value = value;
    return true;
}

template <class T>
bool ContentPrivate::P_WriteAnew(unsigned int index, T const& value, Definition const& definition) {
    Value made;
    made.SetValue(value);
    if (!IsOfType(definition, made.GetValuePtr()))
        return false;
    P_Store(index, std::move(made));
    return true;
}

#define QZ_WRITE(T, ...) template bool ContentPrivate::P_Write(unsigned int, T const&);
QZ_NUMBER_TYPES(QZ_WRITE)
#undef QZ_WRITE

ValuePtr*& ContentPrivate::P_Place(unsigned int index) {
    if (index >= m_reach) {
        // An object that is filled attribute by attribute grows a few times, and never beyond its attributes.
        constexpr unsigned int least = 3; // what fits into the smallest piece of memory there is
        unsigned int const reach = std::min(std::max({index + 1, 2 * m_reach, least}), GetCount());
        auto* const own = new ValuePtr*[reach]();
        std::copy_n(m_own, m_reach, own);
        delete[] std::exchange(m_own, own);
        m_reach = reach;
    }
    return m_own[index];
}

void ContentPrivate::P_Store(unsigned int index, Value&& value) {
    ValuePtr*& place = P_Place(index);
    Value taken(std::move(value)); // a clone of what others manage
    DisplayStatus const carried = taken.GetDisplayStatus();
    if (carried != DS_DEFAULT && carried != GetDisplayStatus(index))
        P_Extras().attributes[index].displayStatus = carried;
    taken.SetDisplayStatus(GetDisplayStatus(index));
    ValuePtr::Destroy(std::exchange(place, taken.Release()));
}

} // namespace qzDescriptor
