#pragma once

#include "descriptor/qzdescriptor.h"

#include <memory>
#include <utility>

namespace qzDescriptor::test {

struct Destroyer {
    void operator()(auto* object) const { object->Destroy(); }
};
using OwnedMembers = std::unique_ptr<Members, Destroyer>;
using OwnedContent = std::unique_ptr<Content, Destroyer>;

inline OwnedContent MakeContent(OwnedMembers const& members) {
    return OwnedContent(Content::Create(members.get()));
}

inline Definition Define(char const* displayName, BasicType basic, CompoundType compound,
                         unsigned int dimension, Allowables const& allowables = Allowables()) {
    Definition definition;
    definition.SetDisplayName(displayName);
    definition.SetValueBasicType(basic);
    definition.SetValueCompoundType(compound);
    definition.SetArrayDimension(dimension);
    definition.SetAllowables(allowables);
    definition.SetVisible(true);
    return definition;
}

inline unsigned int Insert(OwnedMembers const& members, char const* name, Definition const& definition) {
    return members->InsertVariable(Identifier(name), definition, Identifier(), false, Members::s_none, "",
                                   {});
}

/// From 0 to 10, both excluded, unless it is the default.
inline Allowables Between0And10(double defaultValue) {
    using Bound = BoundT<double>;
    return Allowables({Bound(0, Bound::Greater), Bound(10, Bound::Less)}, defaultValue);
}

inline Allowables GridsOnly() {
    return Allowables(Allowables::List<EntityFullType>{{EntityFullType("GRID"), ""}}, 0);
}

/// An attribute of every kind, by index.
enum Place : unsigned int { T, COUNT, MATERIAL, FACTORS, LIMIT, GRIDS, CORNER, PARTS, LOADS, MENU, COUNT_OF };

inline TabularDefinition LoadColumns() {
    qzStlVector<Definition> columns{
        Define("Time", BT_DOUBLE, CT_SCALAR, 0), Define("Load", BT_DOUBLE, CT_SCALAR, 0, Between0And10(1.0)),
        Define("Phase", BT_STRING, CT_SCALAR, 0), Define("Grid", BT_UINT, CT_ENTITY, 0, GridsOnly())};
    return TabularDefinition("Loads", columns, true, true, "", "");
}

inline OwnedMembers MakePlate() {
    OwnedMembers plate(Members::Create("Plate"));
    Insert(plate, "T", Define("Thickness", BT_DOUBLE, CT_SCALAR, 0, Between0And10(1.0)));
    Insert(plate, "COUNT", Define("", BT_INT, CT_SCALAR, 0));
    Insert(plate, "MATERIAL",
           Define("Material", BT_STRING, CT_SCALAR, 0,
                  Allowables(Allowables::List<qzString>{{"steel", ""}, {"wood", ""}}, 0)));
    Insert(plate, "FACTORS", Define("", BT_DOUBLE, CT_SCALAR, 1, Between0And10(1.0)));
    Insert(plate, "LIMIT", Define("", BT_DOUBLE, CT_SCALAR, 0, Between0And10(12.0)));
    Insert(plate, "GRIDS", Define("", BT_UINT, CT_ENTITY, 1, GridsOnly()));
    Insert(plate, "CORNER", Define("", BT_UINT, CT_ENTITY, 0, GridsOnly()));
    Insert(plate, "PARTS", Define("", BT_UINT, CT_ENTITY, 3));
    Insert(plate, "LOADS", Define("", BT_OBJECT, CT_TABULAR, 0));
    plate->SetTabularDefinition(LOADS, std::make_shared<TabularDefinition>(LoadColumns()));
    Insert(plate, "MENU", Define("", BT_NONE, CT_NONE, 0));
    return plate;
}

inline EntityList List(char const* type, qzStlVector<unsigned int> const& ids) {
    return EntityList(EntityFullType(type), ids, {});
}

template <class T>
T Get(Content const& content, unsigned int index) {
    T value{};
    if (!content.GetValue(index, value))
        throw "the attribute has no value of that type";
    return value;
}

} // namespace qzDescriptor::test
