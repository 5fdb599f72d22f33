// What one object has beside its values: definitions of its own, menus and display statuses.

#include "qzdistribution/Handles.h"
#include "registry/content/ContentPrivate.h"
#include "registry/content/check_value.h"

#include <algorithm>

namespace qzDescriptor {

Definition const* ContentPrivate::P_FindReplaced(unsigned int index) const {
    ContentExtras::OfAttribute const* const extras = m_extras->Find(index);
    return extras != nullptr ? extras->definition.get() : nullptr;
}

bool ContentPrivate::ReplaceDefinition(unsigned int index, std::shared_ptr<Definition const> definition) {
    if (!definition || !P_Exists(index))
        return false;
    Value defaultValue(definition.get(), definition->GetUserParams().GetDefaultDisplayStatus(),
                       QZDT_DBHandle());
    ContentExtras::OfAttribute& extras = P_Extras().attributes[index];
    extras.defaultValue = std::move(defaultValue);
    extras.definition = std::move(definition);
    P_MindDefinition(index);
    return true;
}

bool ContentPrivate::RestoreDefinition(unsigned int index) {
    if (!P_Exists(index))
        return false;
    if (P_FindExtras(index) != nullptr) {
        ContentExtras::OfAttribute& extras = m_extras->attributes[index];
        extras.definition.reset();
        extras.defaultValue = Value();
        extras.tabularDefinition.reset();
        P_MindDefinition(index);
    }
    return true;
}

// A value that the allowables refuse may stay when there is nothing better to take its place.
void ContentPrivate::P_MindDefinition(unsigned int index) {
    ValuePtr* const own = P_FindOwn(index);
    if (own == nullptr)
        return;
    own->SetDisplayStatus(GetDisplayStatus(index));
    Definition const& definition = *GetDefinition(index);
    Value allowed;
    if (!IsOfType(definition, own) ||
        (CheckValue(definition, own).status != 0 && definition.GetAllowables().GetDefault(allowed)))
        Reset(index);
}

TabularDefinition const* ContentPrivate::GetTabularDefinition(unsigned int index) const {
    if (GetAttributeType(index) != ATTRIBUTE_TABULAR)
        return nullptr;
    ContentExtras::OfAttribute const* const extras = P_FindExtras(index);
    return extras != nullptr && extras->tabularDefinition ? extras->tabularDefinition.get()
                                                          : m_members->GetTabularDefinition(index).get();
}

TabularDefinition const*
ContentPrivate::RegisterManagedTabularDefinition(TabularDefinition const& definition) {
    return P_Manage(definition).get();
}

bool ContentPrivate::ReplaceDefinition(unsigned int index, TabularDefinition const* definition) {
    if (definition == nullptr || GetAttributeType(index) != ATTRIBUTE_TABULAR)
        return false;
    std::shared_ptr<TabularDefinition const> managed = P_Manage(*definition);
    P_Extras().attributes[index].tabularDefinition = std::move(managed);
    return true;
}

// Flags, which the equality of tabular definitions leaves out, are told apart here.
std::shared_ptr<TabularDefinition const> ContentPrivate::P_Manage(TabularDefinition const& definition) {
    auto& managed = P_Extras().managed;
    auto const found = std::ranges::find_if(managed, [&](auto const& known) {
        return known.get() == &definition ||
               (*known == definition && known->GetEditable() == definition.GetEditable() &&
                known->GetVisible() == definition.GetVisible());
    });
    if (found != managed.end())
        return *found;
    managed.push_back(std::make_shared<TabularDefinition const>(definition));
    return managed.back();
}

DataOperationList const& ContentPrivate::GetDataOperationList(unsigned int index) const {
    static DataOperationList const s_none;
    ContentExtras::OfAttribute const* const extras = P_FindExtras(index);
    return extras != nullptr ? extras->operations : s_none;
}

bool ContentPrivate::SetDataOperationList(unsigned int index, DataOperationList const& operations) {
    if (!P_Exists(index))
        return false;
    P_Extras().attributes[index].operations = operations;
    return true;
}

DisplayStatus ContentPrivate::GetDisplayStatus(unsigned int index) const {
    ContentExtras::OfAttribute const* const extras = P_FindExtras(index);
    if (extras != nullptr && extras->displayStatus != DS_DEFAULT)
        return extras->displayStatus;
    Definition const* const definition = GetDefinition(index);
    return definition != nullptr ? definition->GetUserParams().GetDefaultDisplayStatus() : DS_DEFAULT;
}

bool ContentPrivate::SetDisplayStatus(unsigned int index, DisplayStatus status) {
    if (!P_Exists(index))
        return false;
    if (P_FindExtras(index) != nullptr || status != DS_DEFAULT)
        P_Extras().attributes[index].displayStatus = status;
    if (ValuePtr* const own = P_FindOwn(index))
        own->SetDisplayStatus(GetDisplayStatus(index));
    return true;
}

ContentExtras& ContentPrivate::P_Extras() {
    if (!m_extras)
        m_extras = std::make_unique<ContentExtras>();
    return *m_extras;
}

// The bytes of a holder's class are not known here; those of the smallest one, beside its data, come close.
std::size_t ContentPrivate::GetMemoryUsage() const {
    std::size_t bytes = sizeof(ContentPrivate) + m_reach * sizeof(ValuePtr*);
    for (unsigned int index = 0; index < m_reach; ++index) {
        if (ValuePtr const* const own = P_FindOwn(index))
            bytes += sizeof(ValuePtr) + own->GetValueMemoryUsage();
    }
    if (m_extras) {
        bytes += sizeof(ContentExtras) + m_extras->managed.capacity() * sizeof(m_extras->managed[0]);
        for (auto const& [index, extras] : m_extras->attributes)
            bytes += sizeof(index) + sizeof(extras) + extras.defaultValue.GetValueMemoryUsage() +
                     extras.operations.GetCount() * sizeof(DataOperation);
    }
    return bytes;
}

} // namespace qzDescriptor
