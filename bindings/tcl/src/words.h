#pragma once

/// The words of a command, and what they name.

#include "descriptor/Entity.h"
#include "descriptor/Identifier.h"
#include "descriptor/qzReturnStatus.h"

#include <span>
#include <stdexcept>
#include <tcl.h>
#include <utility>

namespace qzTcl {

using namespace qzDescriptor;

using Words = std::span<Tcl_Obj* const>;

/// What becomes an error of the script, with its message. It never leaves the package.
class Failure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};
/// Throws the failure that a status tells.
inline void Check(qzReturnStatus const& status) {
    if (status.status != 0)
        throw Failure(status.message);
}

/// Texts are UTF-8 outside of Tcl, which has a form of its own for zero bytes.
qzString ToText(Tcl_Obj* word);
Tcl_Obj* GiveText(qzString const& text);

/// A list of Tcl in the making, which goes unless it is given away.
class NewList {
public:
    NewList() : m_list(Tcl_NewListObj(0, nullptr)) { Tcl_IncrRefCount(m_list); }
    ~NewList() {
        if (m_list != nullptr)
            Tcl_DecrRefCount(m_list);
    }
    NewList(NewList const&) = delete;
    NewList& operator=(NewList const&) = delete;

    void Append(Tcl_Obj* element) { Tcl_ListObjAppendElement(nullptr, m_list, element); }
    /// As what a command gives: nobody's until somebody takes it.
    Tcl_Obj* Give() {
        --m_list->refCount;
        return std::exchange(m_list, nullptr);
    }

private:
    Tcl_Obj* m_list;
};

/// The elements of a list; throws for a word that is none.
Words ToList(Tcl_Obj* word);
/// A list of what is given for each item.
template <class Items, class Give>
Tcl_Obj* GiveList(Items const& items, Give&& give) {
    NewList list;
    for (auto const& item : items)
        list.Append(give(item));
    return list.Give();
}

/// An entity is a list of its type and its id. The empty list is none where there need not be one.
Entity ToEntity(Tcl_Obj* word);
Tcl_Obj* GiveEntity(Entity const& entity);
void AppendEntities(NewList& list, EntityList const& entities);
Tcl_Obj* GiveEntities(EntityListBag const& bag);

/// By its name, else by its number.
Tcl_Obj* GiveIdentifier(Identifier const& identifier);

} // namespace qzTcl
