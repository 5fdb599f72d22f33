#pragma once

#include "descriptor/Content.h"
#include "registry/MembersPrivate.h"
#include "registry/content/ContentExtras.h"
#include "values/storage/HolderPool.h"
#include "values/storage/type_table.h"

namespace qzDescriptor {

/// One holder for each attribute that was set, in an array that reaches no further than needed, and a block
/// for everything that is rare.
class ContentPrivate final : public Content {
public:
    explicit ContentPrivate(Members const& members) : m_members(&MembersPrivate::Of(members)) {}
    ContentPrivate(ContentPrivate const& other);
    ~ContentPrivate() override { ContentPrivate::ClearAll(); }

    static void* operator new(std::size_t size) { return HolderPool<ContentPrivate>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ContentPrivate>::Release(memory, size);
    }

    using Content::GetValue;
    using Content::SetValue;
    using Content::TestValue;

    Content* Clone() const override { return new ContentPrivate(*this); }
    void Destroy() override { delete this; }
    Members const* GetMembers() const override { return m_members; }
    unsigned int GetCount() const override;
    AttributeType GetAttributeType(unsigned int index) const override;

    bool GetValue(unsigned int index, ValuePtr const*& value) const override;
    ValuePtr const* GetDefaultValue(unsigned int index) const override;
    bool IsSet(unsigned int index) const override { return P_FindOwn(index) != nullptr; }
    bool IsAtDefault(unsigned int index) const override;
    bool GetValueAsString(unsigned int index, qzString& out, char const* format, unsigned int i,
                          unsigned int j) const override;

    qzReturnStatus SetValue(unsigned int index, Value const& value) override;
    qzReturnStatus SetValue(unsigned int index, Value&& value) override;
    qzReturnStatus TestValue(unsigned int index, Value const& value) const override;
    qzReturnStatus SetValueFromString(unsigned int index, qzString const& text, char const* format,
                                      unsigned int i, unsigned int j) override;
    bool SetValueUnchecked(unsigned int index, Value&& value) override;
    ValuePtr* ModifyValue(unsigned int index) override;
    bool Reset(unsigned int index) override;
    void ClearAll() override;
    qzReturnStatus Append(Content const& other, AppendRule rule) override;

    Definition const* GetDefinition(unsigned int index) const override {
        if (Definition const* const replaced = m_extras ? P_FindReplaced(index) : nullptr)
            return replaced;
        Variable const* const variable = m_members->FindVariable(index);
        return variable != nullptr ? variable->GetDefinition().get() : nullptr;
    }
    bool ReplaceDefinition(unsigned int index, std::shared_ptr<Definition const> definition) override;
    bool RestoreDefinition(unsigned int index) override;
    TabularDefinition const* GetTabularDefinition(unsigned int index) const override;
    TabularDefinition const* RegisterManagedTabularDefinition(TabularDefinition const& definition) override;
    bool ReplaceDefinition(unsigned int index, TabularDefinition const* definition) override;
    DataOperationList const& GetDataOperationList(unsigned int index) const override;
    bool SetDataOperationList(unsigned int index, DataOperationList const& operations) override;
    DisplayStatus GetDisplayStatus(unsigned int index) const override;
    bool SetDisplayStatus(unsigned int index, DisplayStatus status) override;

    std::size_t GetMemoryUsage() const override;

private:
#define QZ_TRY_SET(T, ...)                                                                                   \
    bool P_TrySet(unsigned int index, T const& value) override { return P_Write(index, value); }
    QZ_NUMBER_TYPES(QZ_TRY_SET)
#undef QZ_TRY_SET
    template <class T>
    bool P_Write(unsigned int index, T const& value);
    template <class T>
    bool P_WriteAnew(unsigned int index, T const& value, Definition const& definition);

    bool P_Exists(unsigned int index) const { return GetDefinition(index) != nullptr; }
    /// The place for a holder of an attribute that exists.
    ValuePtr*& P_Place(unsigned int index);
    /// What is set, or the default, without a display status; empty where there is no value.
    Value P_CopyValue(unsigned int index) const;
    /// Sets an attribute that exists, without a check.
    void P_Store(unsigned int index, Value&& value);
    /// Brings what is set into line with a definition that has begun to hold.
    void P_MindDefinition(unsigned int index);
    /// The attribute with the identifier of another content's; Members::s_none without one.
    unsigned int P_FindMatch(Content const& other, unsigned int theirIndex) const;

    ContentExtras::OfAttribute const* P_FindExtras(unsigned int index) const {
        return m_extras ? m_extras->Find(index) : nullptr;
    }
    Definition const* P_FindReplaced(unsigned int index) const;
    ContentExtras& P_Extras();
    std::shared_ptr<TabularDefinition const> P_Manage(TabularDefinition const& definition);

    MembersPrivate const* m_members;
    std::unique_ptr<ContentExtras> m_extras;
};

} // namespace qzDescriptor
