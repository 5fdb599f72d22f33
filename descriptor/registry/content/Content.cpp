// What a content does with its own operations, and the values that are made for it.

#include "descriptor/Content.h"

#include "descriptor/Definition.h"
#include "descriptor/Members.h"
#include "registry/content/ContentPrivate.h"
#include "registry/content/check_value.h"
#include "values/storage/BagHolders.h"

namespace qzDescriptor {

Content* Content::Create(Members const* members) {
    return members != nullptr ? new ContentPrivate(*members) : nullptr;
}

Content::~Content() = default;

bool Content::GetValue(unsigned int index, Value& value) const {
    ValuePtr const* holder = nullptr;
    if (!GetValue(index, holder))
        return false;
    value = *holder;
    return true;
}

Allowables const& Content::GetAllowables(unsigned int index) const {
    static Allowables const s_none;
    Definition const* const definition = GetDefinition(index);
    return definition != nullptr ? definition->GetAllowables() : s_none;
}

bool Content::SetAllowables(unsigned int index, Allowables const& allowables) {
    Definition const* const definition = GetDefinition(index);
    if (definition == nullptr)
        return false;
    auto const changed = std::make_shared<Definition>(*definition);
    changed->SetAllowables(allowables);
    return ReplaceDefinition(index, changed);
}

bool operator==(Content const& a, Content const& b) {
    unsigned int const count = a.GetCount();
    if (&a == &b)
        return true;
    if (count != b.GetCount())
        return false;
    Members const& ofA = *a.GetMembers();
    Members const& ofB = *b.GetMembers();
    for (unsigned int index = 0; index < count; ++index) {
        if (&ofA != &ofB && !(ofA.GetVariableIdentifier(index) == ofB.GetVariableIdentifier(index)))
            return false;
        ValuePtr const* valueOfA = nullptr;
        ValuePtr const* valueOfB = nullptr;
        a.GetValue(index, valueOfA);
        b.GetValue(index, valueOfB);
        if (valueOfA != valueOfB && !HaveEqualData(valueOfA, valueOfB))
            return false;
    }
    return true;
}

Value Content::P_ToValue(FormulaBag const& bag) { return Value(new ValuePtrFormulaBag(bag, DS_DEFAULT)); }

Value Content::P_ToValue(EntityListBag const& bag) {
    return Value(new ValuePtrEntityListBag(bag, DS_DEFAULT));
}

Value Content::P_ToValue(EntityListBagList const& bags) {
    return Value(new ValuePtrEntityListBagList(bags, DS_DEFAULT));
}

Value Content::P_ToValue(Tabular const& table) {
    Value value(BT_OBJECT, CT_TABULAR, 0, 0, DS_DEFAULT, QZDT_DBHandle());
    value.SetValue(table);
    return value;
}

} // namespace qzDescriptor
