#include "words.h"

#include "descriptor/EntityList.h"
#include "descriptor/EntityListBag.h"

#include <limits>

namespace qzTcl {

namespace {

Tcl_Encoding Utf8() {
    static Tcl_Encoding const encoding = Tcl_GetEncoding(nullptr, "utf-8");
    return encoding;
}

/// Text in the making, as long as somebody needs it.
class Buffer {
public:
    Buffer() { Tcl_DStringInit(&string); }
    ~Buffer() { Tcl_DStringFree(&string); }
    Buffer(Buffer const&) = delete;
    Buffer& operator=(Buffer const&) = delete;

    Tcl_DString string;
};

} // namespace

qzString ToText(Tcl_Obj* word) {
    int length = 0;
    char const* const text = Tcl_GetStringFromObj(word, &length);
    Buffer converted;
    Tcl_UtfToExternalDString(Utf8(), text, length, &converted.string);
    return {Tcl_DStringValue(&converted.string),
            static_cast<std::size_t>(Tcl_DStringLength(&converted.string))};
}

Tcl_Obj* GiveText(qzString const& text) {
    if (text.size() > std::numeric_limits<int>::max() / 2)
        throw Failure("the text is too long for Tcl");
    Buffer converted;
    Tcl_ExternalToUtfDString(Utf8(), text.data(), static_cast<int>(text.size()), &converted.string);
    return Tcl_NewStringObj(Tcl_DStringValue(&converted.string), Tcl_DStringLength(&converted.string));
}

Words ToList(Tcl_Obj* word) {
    int count = 0;
    Tcl_Obj** elements = nullptr;
    if (Tcl_ListObjGetElements(nullptr, word, &count, &elements) != TCL_OK)
        throw Failure("'" + ToText(word) + "' is no list");
    return {elements, static_cast<std::size_t>(count)};
}

Entity ToEntity(Tcl_Obj* word) {
    Words const parts = ToList(word);
    Tcl_WideInt id = -1;
    if (parts.empty())
        return Entity();
    if (parts.size() != 2 || Tcl_GetWideIntFromObj(nullptr, parts[1], &id) != TCL_OK || id < 0 ||
        id > std::numeric_limits<unsigned int>::max())
        throw Failure("'" + ToText(word) + "' is no entity: a list of a type and an id is expected");
    return Entity(EntityFullType(ToText(parts[0])), static_cast<unsigned int>(id));
}

Tcl_Obj* GiveEntity(Entity const& entity) {
    NewList parts;
    parts.Append(GiveText(entity.GetEntityFullType().GetTypeNamed()));
    parts.Append(Tcl_NewWideIntObj(entity.GetId()));
    return parts.Give();
}

void AppendEntities(NewList& list, EntityList const& entities) {
    Entity entity;
    for (unsigned int i = 0; entities.GetEntity(entity, i); ++i)
        list.Append(GiveEntity(entity));
}

Tcl_Obj* GiveEntities(EntityListBag const& bag) {
    NewList list;
    for (EntityList const& entities : bag)
        AppendEntities(list, entities);
    return list.Give();
}

Tcl_Obj* GiveIdentifier(Identifier const& identifier) {
    return identifier.UsesNameKey() ? GiveText(identifier.GetNameKey())
                                    : Tcl_NewIntObj(identifier.GetNumericKey());
}

} // namespace qzTcl
