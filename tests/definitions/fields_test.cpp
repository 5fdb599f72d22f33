#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>
#include <vector>

namespace qzDescriptor::test {
namespace {

/// One field of a plain value class: how to give it another value than the default, and whether two objects
/// agree in it.
template <class T>
struct Field {
    char const* name;
    std::function<void(T&)> change;
    std::function<bool(T&, T&)> agree;
    bool compared = true; ///< takes part in equality
};

template <class T, class Get, class Argument>
Field<T> MakeField(char const* name, Get get, void (T::*set)(Argument),
                   std::type_identity_t<std::remove_cvref_t<Argument>> const& other) {
    return {name, [=](T& object) { (object.*set)(other); },
            [=](T& a, T& b) { return (a.*get)() == (b.*get)(); }};
}

#define QZ_FIELD(Class, Name, other) MakeField<Class>(#Name, &Class::Get##Name, &Class::Set##Name, other)

/// Every setter changes its own field and no other, and so the object; copies and moves take it along. An
/// object made with all of its fields agrees with one that was set field by field.
template <class T>
void CheckFields(std::vector<Field<T>> const& fields, T full) {
    T all;
    for (Field<T> const& field : fields) {
        SCOPED_TRACE(field.name);
        T plain, changed;
        EXPECT_TRUE(plain == changed);
        field.change(changed);
        field.change(all);
        EXPECT_EQ(plain == changed, !field.compared);
        for (Field<T> const& other : fields)
            EXPECT_EQ(other.agree(plain, changed), &other != &field) << other.name;
        T copy(changed), assigned;
        assigned = copy;
        T moved(std::move(copy));
        EXPECT_TRUE(field.agree(assigned, changed) && field.agree(moved, changed));
    }
    for (Field<T> const& field : fields)
        EXPECT_TRUE(field.agree(full, all)) << field.name;
}

DefinitionContextMenu MakeContextMenu() {
    return DefinitionContextMenu({7, ContextMenuData(CONTEXT_MENU_EDIT, false)},
                                 {7, ContextMenuData(CONTEXT_MENU_CREATE, false)});
}

DefinitionUserParams MakeUserParams(unsigned int flags) {
    auto const flag = [flags](unsigned int i) { return (flags >> i & 1) != 0; };
    return DefinitionUserParams(-5, flag(0), flag(1), 6, "comment", "off", flag(2),
                                DefinitionUserParams::CONFIRM_QUESTION, "sure?", flag(3), flag(4), "image",
                                "title", flag(5), DS_OFF, MakeContextMenu());
}

TEST(DefinitionUserParams, HasIndependentFields) {
    using Params = DefinitionUserParams;
    std::vector<Field<Params>> const fields = {
        QZ_FIELD(Params, Flag, -5),
        QZ_FIELD(Params, CanBeParameterized, true),
        QZ_FIELD(Params, CommonToMultipleTypes, true),
        QZ_FIELD(Params, ForeignReference, 6),
        QZ_FIELD(Params, Comment, "comment"),
        QZ_FIELD(Params, StatusOffValue, "off"),
        QZ_FIELD(Params, IgnoreStatus, true),
        {"ConfirmMessageType",
         [](Params& a) { a.SetConfirmMessage(Params::CONFIRM_QUESTION, a.GetConfirmMessage()); },
         [](Params& a, Params& b) { return a.GetConfirmMessageType() == b.GetConfirmMessageType(); }},
        {"ConfirmMessage", [](Params& a) { a.SetConfirmMessage(a.GetConfirmMessageType(), "sure?"); },
         [](Params& a, Params& b) { return a.GetConfirmMessage() == b.GetConfirmMessage(); }},
        QZ_FIELD(Params, UnstructuredTable, true),
        QZ_FIELD(Params, UsedForTableColumnWithStatus, true),
        QZ_FIELD(Params, ImagePath, "image"),
        QZ_FIELD(Params, ImageTitle, "title"),
        QZ_FIELD(Params, PrivateVariable, true),
        QZ_FIELD(Params, DefaultDisplayStatus, DS_OFF),
        QZ_FIELD(Params, ContextMenuDefinition, MakeContextMenu()),
    };
    CheckFields(fields, MakeUserParams(0x3F));

    bool (Params::*const flags[])() const = {
        &Params::GetCanBeParameterized, &Params::GetCommonToMultipleTypes,
        &Params::GetIgnoreStatus,       &Params::GetUnstructuredTable,
        &Params::GetPrivateVariable,    &Params::GetUsedForTableColumnWithStatus,
    };
    unsigned int const places[] = {0, 1, 2, 3, 5, 4};
    for (unsigned int i = 0; i < std::size(flags); ++i) {
        for (unsigned int raised = 0; raised < std::size(flags); ++raised)
            EXPECT_EQ((MakeUserParams(1U << raised).*flags[i])(), raised == places[i]) << i << ' ' << raised;
    }
}

TEST(Definition, HasIndependentFields) {
    Allowables const allowables(2.5);
    UnitsDimensionality const units("LENGTH", "Length");
    auto const make = [&](bool editable, bool visible) {
        return Definition("T", BT_DOUBLE, CT_COUPLE, 2, allowables, Definition::SOURCE_COMPUTED,
                          Definition::ValueSpecification(9), editable, visible, "thickness", "help", units,
                          Definition::DIFFERENTIATOR_FILE, MakeUserParams(0));
    };
    std::vector<Field<Definition>> const fields = {
        QZ_FIELD(Definition, DisplayName, "T"),
        QZ_FIELD(Definition, ValueBasicType, BT_DOUBLE),
        QZ_FIELD(Definition, ValueCompoundType, CT_COUPLE),
        QZ_FIELD(Definition, ArrayDimension, 2),
        QZ_FIELD(Definition, Allowables, allowables),
        QZ_FIELD(Definition, ValueSource, Definition::SOURCE_COMPUTED),
        QZ_FIELD(Definition, ValueSpecification, Definition::ValueSpecification(9)),
        QZ_FIELD(Definition, Editable, true),
        QZ_FIELD(Definition, Visible, true),
        QZ_FIELD(Definition, Description, "thickness"),
        QZ_FIELD(Definition, HelpPath, "help"),
        QZ_FIELD(Definition, UnitsDimensionality, units),
        QZ_FIELD(Definition, ValueDifferentiator, Definition::DIFFERENTIATOR_FILE),
        QZ_FIELD(Definition, UserParams, MakeUserParams(0)),
    };
    CheckFields(fields, make(true, true));
    EXPECT_TRUE(make(true, false).GetEditable() && !make(true, false).GetVisible());

    Definition unspecified, specified = make(true, true);
    EXPECT_TRUE(unspecified.GetValueBasicType() == 1 && unspecified.GetValueCompoundType() == 1);
    for (Field<Definition> const& field : fields)
        field.change(unspecified);
    EXPECT_TRUE(specified.IsSpecified() && !unspecified.IsSpecified());
    EXPECT_NE(specified, unspecified);
    specified.SetAllowables(Allowables(3.5));
    EXPECT_NE(specified, make(true, true)) << "in the default of the allowed values alone";
}

TEST(CardPosition, HasIndependentFields) {
    using Card = CardPosition;
    Card const full(3, 10, 8, "comment", Card::DECORATOR_AROUND, "($)");
    CheckFields<Card>({QZ_FIELD(Card, CardRow, 3), QZ_FIELD(Card, RowPosition, 10), QZ_FIELD(Card, Length, 8),
                       QZ_FIELD(Card, Comment, "comment"), QZ_FIELD(Card, Decorator, "($)"),
                       QZ_FIELD(Card, ValueDecorator, Card::DECORATOR_AROUND)},
                      full);
    EXPECT_TRUE(full.IsValid() && !full.ForUnstructured());
    EXPECT_TRUE(!Card().IsValid() && Card().ForUnstructured() && Card().GetRowPosition() == 255);
    Card free = full;
    free.SetLength(0);
    EXPECT_EQ(Card(3, 10, "comment", Card::DECORATOR_AROUND, "($)"), free);
    EXPECT_TRUE(free.IsValid() && free.ForUnstructured());
}

TEST(UnitsDimensionality, HoldsTwoPairs) {
    UnitsDimensionality::Pair const length("LENGTH", "Length"), time("TIME", "Time");
    UnitsDimensionality const both(length, time), one(length);
    EXPECT_EQ(one, UnitsDimensionality("LENGTH", "Length"));
    EXPECT_NE(one, both);
    EXPECT_NE(both, UnitsDimensionality(time, length));
    for (unsigned int i : {0U, 1U, 2U, 3U, 7U, 0xFFFFFFFFU}) {
        EXPECT_EQ(both.GetDimensionality(i), i == 0 ? "LENGTH" : i == 1 ? "TIME" : "");
        EXPECT_EQ(both.GetDimensionalityDisplayName(i), i == 0 ? "Length" : i == 1 ? "Time" : "");
    }
    EXPECT_EQ(&both.GetDimensionality(2), &one.GetDimensionality(7)) << "one empty text";
    EXPECT_NE(&both.GetDimensionality(2), &both.GetDimensionalityDisplayName(2)) << "each its own";
}

TEST(ActionDefinition, HasIndependentFields) {
    using Action = ActionDefinition;
    CheckFields<Action>({QZ_FIELD(Action, DisplayName, "mesh"), QZ_FIELD(Action, Enabled, true),
                         QZ_FIELD(Action, Visible, true), QZ_FIELD(Action, Description, "about"),
                         QZ_FIELD(Action, HelpPath, "help")},
                        Action("mesh", "", "", "", "", true, true, "about", "help"));
    EXPECT_TRUE(Action("", "", "", "", "", true, false, "", "").GetEnabled());
    EXPECT_FALSE(Action("", "", "", "", "", true, false, "", "").GetVisible());

    qzString (Action::*const texts[])()
        const = {&Action::GetCallbackScriptFunction, &Action::GetCallbackScriptFunctionClass,
                 &Action::GetCallbackScriptFunctionModule, &Action::GetLanguage};
    for (int given = 0; given < 4; ++given) {
        auto const text = [given](int i) { return i == given ? "x" : ""; };
        Action const action("", text(0), text(1), text(2), text(3), false, false, "", "");
        EXPECT_NE(action, Action());
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ((action.*texts[i])(), text(i)) << i << ' ' << given;
    }
}

TEST(TabularDefinition, HasIndependentFieldsAndFlagsThatDoNotMatter) {
    using Table = TabularDefinition;
    std::vector<Field<Table>> fields = {
        QZ_FIELD(Table, Editable, true),       QZ_FIELD(Table, Visible, true),
        QZ_FIELD(Table, DisplayName, "loads"), QZ_FIELD(Table, Description, "about"),
        QZ_FIELD(Table, HelpPath, "help"),
    };
    fields[0].compared = fields[1].compared = false;
    qzStlVector<Definition> columns;
    CheckFields(fields, Table("loads", columns, true, true, "about", "help"));
    EXPECT_TRUE(Table("", columns, true, false, "", "").GetEditable());
    EXPECT_FALSE(Table("", columns, true, false, "", "").GetVisible());
}

} // namespace
} // namespace qzDescriptor::test
