#include "commands.h"

#include "attribute_values.h"

#include "descriptor/ActionDefinition.h"
#include "descriptor/EntityList.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/ISession.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/Metaobject.h"
#include "descriptor/QueryCheck.h"
#include "descriptor/ScriptSession.h"

#include <algorithm>
#include <limits>

namespace qzTcl {

// --- what words name ---------------------------------------------------------------------------------------

qzString Call::GetText(std::size_t place) const { return Has(place) ? ToText(m_words[place]) : qzString(); }

ISession& Call::GetSession() const {
    ISession* const session = GetScriptSession();
    if (session == nullptr)
        throw Failure("there is no session for scripts");
    return *session;
}

MetaclassMgr& Call::GetRegistry() const {
    MetaclassMgr* const registry = GetSession().GetMetaclassMgr();
    if (registry == nullptr)
        throw Failure("the session has no registry");
    return *registry;
}

unsigned int Call::GetMetaclass(std::size_t place) const {
    unsigned int const metaclass = GetRegistry().FindHandle(GetText(place));
    if (metaclass == 0)
        throw Failure("there is no type " + GetText(place));
    return metaclass;
}

EntityFullType Call::GetType(std::size_t place) const {
    EntityFullType type;
    GetRegistry().GetEntityFullTypeFromMetaclass(GetMetaclass(place), type);
    return type;
}

Metaobject const& Call::GetObject(std::size_t place) const {
    Metaobject const* const object = GetSession().Get(ToEntity(m_words[place]));
    if (object == nullptr)
        throw Failure("there is no " + GetText(place));
    return *object;
}

Identifier Call::GetAttribute(Metaobject const& object, std::size_t place) const {
    Identifier const named(GetText(place));
    if (object.GetDefinition(named) != nullptr)
        return named;
    int number = 0;
    if (Tcl_GetIntFromObj(nullptr, m_words[place], &number) == TCL_OK &&
        object.GetDefinition(Identifier(number)) != nullptr)
        return Identifier(number);
    throw Failure(object.GetEntityFullType().GetTypeNamed() + " has no attribute " + GetText(place));
}

Identifier Call::GetAction(Metaobject const& object, std::size_t place) const {
    qzStlVector<Identifier> actions;
    object.GetActionIdentifiers(actions);
    auto const isThere = [&](Identifier const& action) {
        return std::ranges::find(actions, action) != actions.end();
    };
    Identifier const named(GetText(place));
    int number = 0;
    bool const isNumber = Tcl_GetIntFromObj(nullptr, m_words[place], &number) == TCL_OK;
    return isNumber && !isThere(named) && isThere(Identifier(number)) ? Identifier(number) : named;
}

namespace {

// --- sessions and types ------------------------------------------------------------------------------------

Tcl_Obj* Session(Call const& call) {
    MetaclassMgr* const registry = GetScriptRegistry();
    if (call.Has(0) && (registry == nullptr || !registry->SetCurrentSession(call.GetText(0))))
        throw Failure("there is no session " + call.GetText(0));
    return GiveText(call.GetSession().GetName());
}

Tcl_Obj* Types(Call const& call) {
    MetaclassMgr const& registry = call.GetRegistry();
    auto const give = [&](unsigned int metaclass) {
        qzString name, parent;
        registry.GetNameAndOfParent(metaclass, name, parent);
        return GiveText(name);
    };
    qzStlVector<unsigned int> metaclasses;
    if (call.Has(0)) {
        registry.FindChildrenHandles(call.GetMetaclass(0), metaclasses, true, true);
    } else {
        for (unsigned int metaclass = 1; metaclass <= registry.GetHandlesCount(); ++metaclass)
            metaclasses.push_back(metaclass);
    }
    return GiveList(metaclasses, give);
}

Tcl_Obj* Attributes(Call const& call) {
    unsigned int const metaclass = call.GetMetaclass(0);
    qzStlVector<unsigned int> attributes;
    call.GetRegistry().GetAttributeHandles(metaclass, attributes, 0);
    return GiveList(attributes, [&](unsigned int attribute) {
        return GiveIdentifier(call.GetRegistry().GetIdentifier(metaclass, attribute, 0, false));
    });
}

Tcl_Obj* Actions(Call const& call) {
    unsigned int const metaclass = call.GetMetaclass(0);
    qzStlVector<unsigned int> actions;
    call.GetRegistry().GetActionHandles(metaclass, actions, 0);
    return GiveList(actions, [&](unsigned int action) {
        Identifier identifier;
        call.GetRegistry().GetActionDefinition(metaclass, action, identifier, 0);
        return GiveIdentifier(identifier);
    });
}

// --- entities ----------------------------------------------------------------------------------------------

EntityList Collect(Call const& call) {
    EntityFullType const type = call.GetType(0);
    Check(CheckQuery(call.GetSession(), type, call.GetText(1)));
    EntityList found;
    call.GetSession().Collect(found, type, call.GetText(1));
    return found;
}

Tcl_Obj* Find(Call const& call) {
    EntityList const found = Collect(call);
    NewList list;
    AppendEntities(list, found);
    return list.Give();
}

Tcl_Obj* Count(Call const& call) { return Tcl_NewWideIntObj(Collect(call).GetIdListCount()); }

Tcl_Obj* Exists(Call const& call) {
    return Tcl_NewBooleanObj(call.GetSession().Get(ToEntity(call.GetWord(0))) != nullptr ? 1 : 0);
}

Tcl_Obj* Name(Call const& call) { return GiveText(call.GetObject(0).GetName()); }

Tcl_Obj* Explain(Call const& call) {
    return GiveText(ExplainQuery(call.GetSession(), call.GetObject(0), call.GetText(1)));
}

Tcl_Obj* Owner(Call const& call) {
    Entity owner;
    Identifier attribute;
    if (!call.GetObject(0).GetOwner(owner, attribute))
        return Tcl_NewObj();
    NewList parts;
    parts.Append(GiveEntity(owner));
    parts.Append(GiveIdentifier(attribute));
    return parts.Give();
}

Tcl_Obj* Owned(Call const& call) {
    Metaobject const& owner = call.GetObject(0);
    EntityListBag owned;
    call.GetSession().GetOwnedEntities(owned, owner.GetEntity(), call.GetAttribute(owner, 1));
    return GiveEntities(owned);
}

Tcl_Obj* Create(Call const& call) {
    Entity created;
    Entity const owner = call.Has(1) ? ToEntity(call.GetWord(1)) : Entity();
    Identifier const attribute = call.Has(2) ? call.GetAttribute(call.GetObject(1), 2) : Identifier();
    Check(call.GetSession().Create(call.GetType(0), created, owner, attribute));
    return GiveEntity(created);
}

Tcl_Obj* Delete(Call const& call) {
    Check(call.GetSession().Delete(ToEntity(call.GetWord(0))));
    return Tcl_NewObj();
}

// --- objects -----------------------------------------------------------------------------------------------

Tcl_Obj* Get(Call const& call) {
    Metaobject const& object = call.GetObject(0);
    ValuePtr const* value = nullptr;
    Tcl_WideInt place = 0;
    bool const isThere = object.GetValue(call.GetAttribute(object, 1), value) && value != nullptr;
    if (!call.Has(2))
        return isThere ? GiveValue(*value) : Tcl_NewObj();
    if (Tcl_GetWideIntFromObj(nullptr, call.GetWord(2), &place) != TCL_OK || place < 0 ||
        place > std::numeric_limits<unsigned int>::max() || !isThere)
        throw Failure("there is no element " + call.GetText(2));
    return GiveElement(*value, static_cast<unsigned int>(place));
}

Tcl_Obj* Set(Call const& call) {
    Metaobject const& object = call.GetObject(0);
    SetAttribute(object, call.GetAttribute(object, 1), call.GetWord(2));
    return Tcl_NewObj();
}

Tcl_Obj* Run(Call const& call) {
    Metaobject const& object = call.GetObject(0);
    qzReturnStatus const status = object.InvokeAction(call.GetAction(object, 1));
    Check(status);
    return GiveText(status.message);
}

constexpr Command s_commands[] = {
    {"actions", 1, 1, "TYPE", Actions},
    {"attributes", 1, 1, "TYPE", Attributes},
    {"count", 1, 2, "TYPE ?QUERY?", Count},
    {"create", 1, 3, "TYPE ?OWNER? ?ATTRIBUTE?", Create},
    {"delete", 1, 1, "ENTITY", Delete},
    {"exists", 1, 1, "ENTITY", Exists},
    {"explain", 2, 2, "ENTITY QUERY", Explain},
    {"find", 1, 2, "TYPE ?QUERY?", Find},
    {"get", 2, 3, "ENTITY ATTRIBUTE ?INDEX?", Get},
    {"name", 1, 1, "ENTITY", Name},
    {"owned", 2, 2, "ENTITY ATTRIBUTE", Owned},
    {"owner", 1, 1, "ENTITY", Owner},
    {"run", 2, 2, "ENTITY ACTION", Run},
    {"session", 0, 1, "?NAME?", Session},
    {"set", 3, 3, "ENTITY ATTRIBUTE VALUE", Set},
    {"types", 0, 1, "?TYPE?", Types},
    {nullptr, 0, 0, nullptr, nullptr},
};

} // namespace

Command const* AllCommands() { return s_commands; }

} // namespace qzTcl
