#include "values/storage/BagHolders.h"

namespace qzDescriptor {

ValuePtr* ValuePtrFormulaBag::Clone() const {
    return new ValuePtrFormulaBag(m_data, ValuePtr::GetDisplayStatus());
}

unsigned int ValuePtrFormulaBag::GetArrayDimensionExtent(EntityFullType const& type) const {
    return m_data.GetFormulaPointer(type) != nullptr ? 1 : 0;
}

bool ValuePtrFormulaBag::GetValue(Formula& value, EntityFullType const& type) const {
    return m_data.GetFormula(type, value);
}

// A formula stands under its own entity type and no other.
bool ValuePtrFormulaBag::SetValue(Formula const& value, EntityFullType const& type) {
    if (!(value.GetEntityFullType() == type))
        return false;
    m_data.SetFormula(value);
    return true;
}

Formula const* ValuePtrFormulaBag::GetValuePointerFormula(EntityFullType const& type) const {
    return m_data.GetFormulaPointer(type);
}

bool ValuePtrFormulaBag::GetValueAsString(qzString& out, EntityFullType const& type, unsigned int,
                                          char const* format) const {
    Formula formula;
    return WriteElement(out, m_data.GetFormula(type, formula), formula, format);
}

bool ValuePtrFormulaBag::SetValueFromString(qzString const& text, EntityFullType const& type, unsigned int,
                                            char const* format) {
    Formula formula;
    return ReadText(text, format, formula) && SetValue(formula, type);
}

ValuePtr* ValuePtrEntityListBag::Clone() const {
    return new ValuePtrEntityListBag(m_data, ValuePtr::GetDisplayStatus());
}

unsigned int ValuePtrEntityListBag::GetArrayDimensionExtent(EntityFullType const& type) const {
    return m_data.GetIdListCount(type);
}

bool ValuePtrEntityListBag::GetValue(Entity& value, EntityFullType const& type, unsigned int index) const {
    return m_data.GetListEntity(type, index, value);
}

bool ValuePtrEntityListBag::SetValue(Entity const& value, EntityFullType const& type, unsigned int index) {
    return index != s_wholeValue && m_data.SetListEntity(value, type, index);
}

bool ValuePtrEntityListBag::GetValueAsString(qzString& out, EntityFullType const& type, unsigned int index,
                                             char const* format) const {
    Entity entity;
    return WriteElement(out, m_data.GetListEntity(type, index, entity), entity, format);
}

bool ValuePtrEntityListBag::SetValueFromString(qzString const& text, EntityFullType const& type,
                                               unsigned int index, char const* format) {
    Entity entity;
    return ReadText(text, format, entity) && SetValue(entity, type, index);
}

ValuePtr* ValuePtrEntityListBagList::Clone() const {
    return new ValuePtrEntityListBagList(m_data, ValuePtr::GetDisplayStatus());
}

} // namespace qzDescriptor
