#pragma once

/// What can be done with the objects of a deck, and the menus that offer it.

#include "descriptor/Metaobject.h"
#include "descriptor/qzReturnStatus.h"

#include <string>
#include <vector>

namespace qzDeck {

class DeckRegistry;

/// Declares the actions on the metaclasses that have them.
void InsertActions(DeckRegistry& registry);
/// Gives each metaclass with actions of its own a menu of these and of what can be done with any object.
void InsertMenus(DeckRegistry& registry);

/// Lets the actions that are written in Python be found, and gives them the arguments of the command.
bool PrepareScripts(std::vector<std::string> const& arguments, std::string& failure);

// The actions. What comes of them is the message; a status other than 0 says why nothing does. Tests say why
// an action cannot be started.

/// What the fields of a card are.
qzDescriptor::qzReturnStatus DescribeCard(qzDescriptor::Metaobject const* object);
qzDescriptor::qzReturnStatus CanDescribeCard(qzDescriptor::Metaobject const* object);

/// The mass of a shell element; of a shell property, that of all its elements.
qzDescriptor::qzReturnStatus WeighElement(qzDescriptor::Metaobject const* object);
qzDescriptor::qzReturnStatus CanWeighElement(qzDescriptor::Metaobject const* object);
qzDescriptor::qzReturnStatus WeighProperty(qzDescriptor::Metaobject const* object);

/// Gives a property or material the number in the first argument of the session, else the next that is free.
qzDescriptor::qzReturnStatus RenumberCard(qzDescriptor::Metaobject const* object);

} // namespace qzDeck
