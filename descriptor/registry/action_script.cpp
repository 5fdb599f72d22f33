#include "registry/action_script.h"

#include "descriptor/ActionDefinition.h"
#include "descriptor/EntityFullType.h"

#include <charconv>

namespace qzDescriptor {

namespace {

qzString InLiteral(qzString const& text) {
    qzString escaped;
    for (char const c : text) {
        switch (c) {
        case '\\':
        case '\'':
            escaped += {'\\', c};
            break;
        case '\n':
            escaped += "\\n";
            break;
        case '\r':
            escaped += "\\r";
            break;
        case '\0':
            escaped += "\\x00";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

qzString InDecimal(unsigned int number) {
    char digits[16];
    return qzString(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

/// A function of a class is reached through the class, which is then what has to be imported.
qzString ImportLine(ActionDefinition const& definition) {
    qzString const module = definition.GetCallbackScriptFunctionModule();
    if (module.empty())
        return qzString();
    qzString const ofClass = definition.GetCallbackScriptFunctionClass();
    return "from " + module + " import " +
           (ofClass.empty() ? definition.GetCallbackScriptFunction() : ofClass) + "; ";
}

} // namespace

qzString MakeActionScript(ActionDefinition const& definition, EntityFullType const& type, unsigned int id) {
    return "from qz.mdi.isession import Session; from qzdescriptor import Entity, EntityFullType; " +
           ImportLine(definition) + "controller = Session().get(Entity(EntityFullType('" +
           InLiteral(type.GetTypeNamed()) + "'), " + InDecimal(id) + ")); " +
           definition.GetCallbackScriptFunction() + "(controller)";
}

} // namespace qzDescriptor
