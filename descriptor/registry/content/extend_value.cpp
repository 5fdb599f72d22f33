#include "registry/content/extend_value.h"

#include "registry/content/table_rows.h"
#include "values/storage/holder_parts.h"

namespace qzDescriptor {

namespace {

// Puts the second one's elements behind the first one's; false when they do not go together.

template <class T>
bool Extend(qzStlVector<T>& first, qzStlVector<T> const& second) {
    first.insert(first.end(), second.begin(), second.end());
    return true;
}

bool Extend(EntityList& first, EntityList const& second) {
    first.Reserve(first.GetIdListCount() + second.GetIdListCount());
    Entity entity;
    for (unsigned int i = 0; second.GetEntity(entity, i); ++i) {
        if (!first.SetEntity(entity, first.GetIdListCount()))
            return false;
    }
    return true;
}

bool Extend(EntityList2& first, EntityList2 const& second) {
    if (!first.GetEntityFullType().IsValid())
        first.SetEntityFullType(second.GetEntityFullType());
    else if (second.GetEntityFullType().IsValid() &&
             !(first.GetEntityFullType() == second.GetEntityFullType()))
        return false;
    return Extend(first.GetList(), second.GetList());
}

bool Extend(EntityListBag& first, EntityListBag const& second) {
    first += second;
    return true;
}

bool Extend(EntityListBagList& first, EntityListBagList const& second) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs;
    second.GetRegisteredPairs(pairs);
    for (auto const& [key, name] : pairs) {
        unsigned int const from = second.Find(key, name);
        bool const isNew = first.Find(key, name) == EntityListBagList::s_notFound;
        unsigned int const to = first.Register(key, name);
        first.Modify(to) += second.Query(from);
        if (isNew)
            first.SetUserFlag(to, second.GetUserFlag(from));
    }
    return true;
}

bool Extend(FormulaBag& first, FormulaBag const& second) {
    qzStlVector<EntityFullType> types;
    second.GetEntityFullTypeList(types);
    for (EntityFullType const& type : types) {
        if (first.GetFormulaPointer(type) == nullptr)
            first.SetFormula(second.GetFormula(type));
    }
    return true;
}

bool ExtendColumn(Tabular& first, unsigned int column, unsigned int rows, Tabular const& second) {
    BasicType const basic = first.GetBasicType(column);
    CompoundType const compound = first.GetCompoundType(column);
    if (second.GetBasicType(column) != basic || second.GetCompoundType(column) != compound)
        return false;
    bool isExtended = false;
    VisitColumn(basic, compound, [&]<class List>(std::type_identity<List>) {
        List list = ReadRows<List>(first, column, rows);
        isExtended = Extend(list, ReadRows<List>(second, column, second.GetRowCount()));
        if (isExtended)
            first.SetColumn(column, list);
    });
    return isExtended;
}

bool Extend(Tabular& first, Tabular const& second) {
    if (second.GetColumnCount() == 0)
        return true;
    if (first.GetColumnCount() == 0) {
        first = second;
        return true;
    }
    unsigned int const rows = first.GetRowCount(); // the first column that is extended lengthens them all
    bool isExtended = first.GetColumnCount() == second.GetColumnCount();
    for (unsigned int column = 0; isExtended && column < first.GetColumnCount(); ++column)
        isExtended = ExtendColumn(first, column, rows, second);
    return isExtended;
}

/// False when the first value is no such container.
template <class C>
bool ExtendAs(ValuePtr const& first, ValuePtr const& second, Value& extended) {
    C scratch, otherScratch;
    C const* const own = ReadContainer(first, scratch);
    if (own == nullptr)
        return false;
    C const* const other = ReadContainer(second, otherScratch);
    C all = *own;
    if (other != nullptr && Extend(all, *other)) {
        extended = first;
        extended.SetValue(all);
    }
    return true;
}

template <class... C>
Value Extended(ValuePtr const& first, ValuePtr const& second, TypeList<C...>) {
    Value extended;
    (ExtendAs<C>(first, second, extended) || ...);
    return extended;
}

} // namespace

bool HoldsMany(ValuePtr const& value) {
    return value.GetArrayDimension() != 0 || value.GetCompoundType() == CT_TABULAR;
}

Value ExtendedBy(ValuePtr const& first, ValuePtr const& second) {
    return Extended(first, second, ContainerTypes());
}

} // namespace qzDescriptor
