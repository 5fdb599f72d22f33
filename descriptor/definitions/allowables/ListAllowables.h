#pragma once

#include "definitions/allowables/AllowablesData.h"
#include "definitions/allowables/Refusal.h"
#include "definitions/allowables/SubTypeNames.h"
#include "definitions/allowables/subset.h"
#include "values/text/ElementText.h"

#include <algorithm>

namespace qzDescriptor {

/// Allowed values with their names, and which of them is the default.
template <class T>
struct AllowedList {
    static constexpr bool s_hasSubTypes = std::is_same_v<T, EntityFullType>;

    struct Nothing {
        friend bool operator==(Nothing const&, Nothing const&) = default;
    };

    Allowables::List<T> entries;
    unsigned int defaultIndex = 0;
    [[no_unique_address]] std::conditional_t<s_hasSubTypes, SubTypeNames, Nothing> subTypes;

    auto Find(T const& value) const {
        return std::find_if(entries.begin(), entries.end(),
                            [&](auto const& entry) { return entry.first == value; });
    }
    bool Contains(T const& value) const { return Find(value) != entries.end(); }

    /// Null when the index of the default is past the end.
    T const* Default() const {
        return defaultIndex < entries.size() ? &entries[defaultIndex].first : nullptr;
    }
    /// Of the first entry with this value; 0 when there is none.
    unsigned int IndexOf(T const& value) const {
        auto const found = Find(value);
        return found == entries.end() ? 0 : static_cast<unsigned int>(found - entries.begin());
    }

    void Remove(unsigned int index) {
        if constexpr (s_hasSubTypes) {
            EntityFullType const type = entries[index].first;
            entries.erase(entries.begin() + index);
            if (!Contains(type))
                subTypes.RemoveAllOf(type);
        } else {
            entries.erase(entries.begin() + index);
        }
        if (defaultIndex == index)
            defaultIndex = 0;
        else if (defaultIndex > index)
            --defaultIndex;
    }

    friend bool operator==(AllowedList const&, AllowedList const&) = default;
};

/// The values that are allowed, one by one: a main list of them and an extra one, of which one is in use.
template <class T, BasicType B, CompoundType C>
class AllowablesDataListT final : public PooledAllowables<AllowablesDataListT<T, B, C>, AllowablesData> {
public:
    using AllowablesData::AddToList;
    using AllowablesData::GetDefault;
    using AllowablesData::GetList;
    using AllowablesData::GetValueList;
    using AllowablesData::Test;

    AllowablesDataListT(Allowables::List<T> const& list, unsigned int defaultIndex) {
        m_main.entries.reserve(list.size());
        for (auto const& [value, name] : list)
            AddToList(value, name);
        m_main.defaultIndex = defaultIndex;
    }

    BasicType GetBasicType() const override { return B; }
    CompoundType GetCompoundType() const override { return C; }
    bool Enforceable() const override { return true; }
    bool GetOperateOnExtra() const override { return m_operateOnExtra; }
    int SetOperateOnExtra(bool extra) override {
        m_operateOnExtra = extra;
        return 1;
    }

    bool HaveList() const override { return true; }
    unsigned int GetListCount() const override {
        return static_cast<unsigned int>(P_Active().entries.size());
    }

    bool GetDefault(T& value) const override {
        T const* const found = P_Active().Default();
        if (found != nullptr)
            value = *found;
        return found != nullptr;
    }
    void SetDefaultIdx(unsigned int index) override { P_Active().defaultIndex = index; }
    /// The default becomes the first entry with this value, or the first of all.
    void SeekDefault(T const& value) { P_Active().defaultIndex = P_Active().IndexOf(value); }

    bool GetList(Allowables::List<T>& list, unsigned int& defaultIndex) const override {
        list = Allowables::List<T>(P_Active().entries); // whole or not at all
        defaultIndex = P_Active().defaultIndex;
        return true;
    }
    bool GetValueList(qzStlVector<T>& values, unsigned int& defaultIndex) const override {
        return P_GetPart(values, defaultIndex, &std::pair<T, qzString>::first);
    }
    bool GetNameList(qzStlVector<qzString>& names, unsigned int& defaultIndex) const override {
        return P_GetPart(names, defaultIndex, &std::pair<T, qzString>::second);
    }

    void AddToList(T const& value, qzString const& name) override;
    bool RemoveFromList(unsigned int index) override;
    bool SetListItemName(unsigned int index, qzString const& name) override {
        if (index >= GetListCount())
            return false;
        P_Active().entries[index].second = name;
        return true;
    }
    qzString GetListItemName(unsigned int index) const override {
        return index < GetListCount() ? P_Active().entries[index].second : qzString();
    }

    bool AddSubType(EntityFullType const& type, Allowables::SubType kind, qzString const& name) override;
    bool RemoveSubType(EntityFullType const& type, Allowables::SubType kind, qzString const& name) override;
    unsigned int GetSubTypeCount(EntityFullType const& type, Allowables::SubType kind) const override;
    bool GetSubTypeName(EntityFullType const& type, Allowables::SubType kind, unsigned int index,
                        qzString& name) const override;

    int Test(T const& value) const override {
        if (P_Active().Contains(value))
            return 0;
        m_refusal.Remember(value);
        return 1;
    }
    int ValidSubset(AllowablesData const& other) const override;

    qzString GetFailureMessage() const override;
    void SetFailureMessage(qzString const& message) override { m_refusal.SetMessage(message); }

    bool IsEqual(AllowablesDataListT const& other) const {
        return m_operateOnExtra == other.m_operateOnExtra && m_main == other.m_main &&
               m_extra == other.m_extra;
    }
    void Take(AllowablesDataListT const& other, bool takeAllowed, bool takeDefault);

private:
    using AllowedOfT = AllowedList<T>;

    AllowedOfT const& P_Active() const { return m_operateOnExtra ? m_extra : m_main; }
    AllowedOfT& P_Active() { return m_operateOnExtra ? m_extra : m_main; }

    template <class Part>
    bool P_GetPart(qzStlVector<Part>& parts, unsigned int& defaultIndex,
                   Part std::pair<T, qzString>::*part) const {
        qzStlVector<Part> found;
        found.reserve(P_Active().entries.size());
        for (auto const& entry : P_Active().entries)
            found.push_back(entry.*part);
        parts = std::move(found);
        defaultIndex = P_Active().defaultIndex;
        return true;
    }

    static AllowedOfT P_Taken(AllowedOfT const& own, AllowedOfT const& other, bool takeAllowed,
                              bool takeDefault);

    bool m_operateOnExtra = false;
    AllowedOfT m_main;
    AllowedOfT m_extra;
    mutable Refusal<T> m_refusal;
};

template <class T, BasicType B, CompoundType C>
void AllowablesDataListT<T, B, C>::AddToList(T const& value, qzString const& name) {
    std::pair<T, qzString> entry(value, name);
    if (entry.second.empty())
        AppendText(entry.second, value, nullptr);
    P_Active().entries.push_back(std::move(entry));
}

template <class T, BasicType B, CompoundType C>
bool AllowablesDataListT<T, B, C>::RemoveFromList(unsigned int index) {
    constexpr unsigned int all = 0xFFFFFFFF;
    if (index == all) {
        bool const hadEntries = GetListCount() > 0;
        P_Active() = AllowedOfT();
        return hadEntries;
    }
    if (index >= GetListCount())
        return false;
    P_Active().Remove(index);
    return true;
}

template <class T, BasicType B, CompoundType C>
bool AllowablesDataListT<T, B, C>::AddSubType(EntityFullType const& type, Allowables::SubType kind,
                                              qzString const& name) {
    if constexpr (AllowedOfT::s_hasSubTypes)
        return P_Active().Contains(type) && P_Active().subTypes.Add(type, kind, name);
    else
        return AllowablesData::AddSubType(type, kind, name);
}

template <class T, BasicType B, CompoundType C>
bool AllowablesDataListT<T, B, C>::RemoveSubType(EntityFullType const& type, Allowables::SubType kind,
                                                 qzString const& name) {
    if constexpr (AllowedOfT::s_hasSubTypes)
        return P_Active().subTypes.Remove(type, kind, name);
    else
        return AllowablesData::RemoveSubType(type, kind, name);
}

template <class T, BasicType B, CompoundType C>
unsigned int AllowablesDataListT<T, B, C>::GetSubTypeCount(EntityFullType const& type,
                                                           Allowables::SubType kind) const {
    if constexpr (AllowedOfT::s_hasSubTypes)
        return P_Active().subTypes.Count(type, kind);
    else
        return AllowablesData::GetSubTypeCount(type, kind);
}

template <class T, BasicType B, CompoundType C>
bool AllowablesDataListT<T, B, C>::GetSubTypeName(EntityFullType const& type, Allowables::SubType kind,
                                                  unsigned int index, qzString& name) const {
    if constexpr (AllowedOfT::s_hasSubTypes) {
        qzString const* const found = P_Active().subTypes.Name(type, kind, index);
        if (found != nullptr)
            name = *found;
        return found != nullptr;
    } else {
        return AllowablesData::GetSubTypeName(type, kind, index, name);
    }
}

template <class T, BasicType B, CompoundType C>
int AllowablesDataListT<T, B, C>::ValidSubset(AllowablesData const& other) const {
    if (!other.HaveList() || other.GetListCount() == 0 || GetListCount() == 0)
        return 1;
    if (other.GetBasicType() != B || other.GetCompoundType() != C)
        return 2;
    qzStlVector<T> own, others;
    unsigned int ignored = 0;
    GetValueList(own, ignored);
    other.GetValueList(others, ignored);
    return ContainsAll(own, others) ? 0 : -1;
}

template <class T, BasicType B, CompoundType C>
qzString AllowablesDataListT<T, B, C>::GetFailureMessage() const {
    constexpr std::size_t most = 16; // more would hide the value that was refused
    return m_refusal.GetMessage([this](qzString& text, T const& value) {
        text = "Input of ";
        AppendText(text, value, nullptr);
        text += " violates: VALUE in {";
        auto const& entries = P_Active().entries;
        for (std::size_t i = 0; i < entries.size() && i < most; ++i) {
            text += i > 0 ? ", " : "";
            AppendText(text, entries[i].first, nullptr);
        }
        text += entries.size() > most ? ", ...}" : "}";
        return true;
    });
}

template <class T, BasicType B, CompoundType C>
void AllowablesDataListT<T, B, C>::Take(AllowablesDataListT const& other, bool takeAllowed,
                                        bool takeDefault) {
    AllowedOfT main = P_Taken(m_main, other.m_main, takeAllowed, takeDefault);
    m_extra = P_Taken(m_extra, other.m_extra, takeAllowed, takeDefault);
    m_main = std::move(main); // both or none
}

/// The own list, or the other's, with the default of either, by its value when it comes from elsewhere.
template <class T, BasicType B, CompoundType C>
AllowedList<T> AllowablesDataListT<T, B, C>::P_Taken(AllowedOfT const& own, AllowedOfT const& other,
                                                     bool takeAllowed, bool takeDefault) {
    AllowedOfT taken = takeAllowed ? other : own;
    if (takeAllowed == takeDefault)
        return taken;
    T const* const wanted = takeDefault ? other.Default() : own.Default();
    taken.defaultIndex = wanted != nullptr ? taken.IndexOf(*wanted) : 0;
    return taken;
}

} // namespace qzDescriptor
