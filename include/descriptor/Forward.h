#pragma once

/// Forward declarations of everything that signatures mention, so that no exported header includes more than
/// it holds by value.

#include "qzutl/qzString.h"

#include <cstdint>

template <class T>
class qzStlVector;
template <class T>
struct qzTCouple;
template <class T>
struct qzTTriple;
template <class T>
struct qzTMatrix33;
template <class T>
struct qzTMatrix44;
class qzVariant;
class qzSigSlotHandler;

class QZDT_DBHandle;
class QZDT_DTSHandle;
class QZDT_TableHandle;

namespace qzDescriptor {

// values
enum BasicType : std::int32_t;
enum CompoundType : std::int32_t;
enum DATA_TYPE : std::int32_t;
enum DisplayStatus : std::int32_t;
struct qzReturnStatus;
class DataTypeUtils;
class Identifier;
class IdentifierPair;
class EntityFullType;
class Entity;
class Qualifier;
class Color;
class Version;
class EntityList;
class EntityList2;
class EntityListBag;
class EntityListBagList;
class Clause;
class Formula;
class FormulaBag;
class Function;
class ValuePtr;
class Value;

// definitions
template <class T>
class BoundT;
class Allowables;
class CardPosition;
class UnitsDimensionality;
class DefinitionUserParams;
class Definition;
class ActionDefinition;
class ContextMenuData;
class DefinitionContextMenu;
class TabularDefinition;

// registry and objects
class MetaclassMgr;
class Members;
class Content;
class Attribute;
class CategoryAttribute;
class TabularAttribute;
class AttributeHelper;
class Metaobject;
class ICollection;
class ICollectionIterator;
class MetaobjectCollection;
class MetaobjectCollectionIterator;

// sessions and events
class ISession;
class EntityEventInfo;
class ISerializer;
class MemoryBuffer;

// tables, menus and queries
class Tabular;
class DataOperation;
class DataOperationList;
class DataOperationListBuilder;
class DataInterface;
class QueryParser;

} // namespace qzDescriptor
