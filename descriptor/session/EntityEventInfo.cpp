#include "descriptor/EntityEventInfo.h"

#include <algorithm>
#include <string>

namespace qzDescriptor {

namespace {

struct Word {
    ENTITY_EVENT_TYPE type;
    char const* text;
};
constexpr Word s_words[] = {
    {ENTITY_EVENT_CREATED, "created"},
    {ENTITY_EVENT_CHANGED, "changed"},
    {ENTITY_EVENT_DELETED, "deleted"},
    {ENTITY_EVENT_OWNER_CHANGED, "owner_changed"},
};

qzString ToWord(ENTITY_EVENT_TYPE type) {
    auto const word = std::ranges::find(s_words, type, &Word::type);
    return word != std::end(s_words) ? word->text : std::to_string(static_cast<int>(type));
}

/// One element of a list, whatever characters a name has.
qzString ToElement(qzString const& name) {
    constexpr char const special[] = " \t\n\r\v\f;\"$[]{}\\#";
    if (!name.empty() && name.find_first_of(special) == qzString::npos)
        return name;
    if (name.find_first_of("{}\\") == qzString::npos)
        return "{" + name + "}";
    qzString escaped;
    for (char const c : name) {
        if (qzString(special).find(c) != qzString::npos)
            escaped += '\\';
        escaped += c == '\n' ? 'n' : c; // a backslash before a line end would be a blank
    }
    return escaped;
}

qzString ToKey(qzString const& name, int number) {
    return number != 0 && name.empty() ? std::to_string(number) : ToElement(name);
}

} // namespace

void EntityEventInfo::AddEntityIdList(qzStlVector<unsigned int> const& ids) {
    m_ids.insert(m_ids.end(), ids.begin(), ids.end());
}

qzVariant qzScriptArgument(EntityEventInfo const& event) {
    EntityFullType const& type = event.GetEntityType();
    Identifier const& attribute = event.GetIdentifier();
    qzString text = ToWord(event.GetEventType()) + " " +
                    ToKey(type.GetTypeNamed(), static_cast<int>(type.GetTypeNumeric())) + " " +
                    ToKey(attribute.GetNameKey(), attribute.GetNumericKey());
    qzStlVector<unsigned int> ids;
    event.GetEntityIdList(ids);
    for (unsigned int const id : ids)
        text += " " + std::to_string(id);
    qzVariant argument;
    argument.SetString(text);
    return argument;
}

} // namespace qzDescriptor
