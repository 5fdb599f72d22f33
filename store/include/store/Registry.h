#pragma once

#include "descriptor/DataOperationList.h"
#include "descriptor/MetaclassMgr.h"
#include "store/Export.h"

#include <vector>

namespace qzDescriptor::store {

/// A registry whose sessions keep their objects in memory: what an application starts with, and the pattern
/// for a registry of its own.
///
///     store::Registry registry;
///     auto const usage = store::Registry::CONFIG_USAGE_NONE;
///     unsigned int const plate = registry.Insert("Plate", Version("1.0.0"), "", usage, "");
///     registry.InsertAttribute(plate, Identifier("T"), thickness, Identifier(), {});
///     ISession* const session = registry.GetSession("bridge");         // a store::Session
///
/// Not synchronised, as every registry.
class QZSTORE_API Registry : public MetaclassMgr {
public:
    Registry();
    ~Registry() override;

    ISession* CreateSession(qzString const& name) override;

    /// The menu of operations on objects of a metaclass and of its descendants that have none of their own.
    bool SetDataOperations(unsigned int metaclass, DataOperationList const& operations);
    /// False when neither the metaclass nor an ancestor has a menu.
    bool GetDataOperations(unsigned int metaclass, DataOperationList& operations) const;

private:
    struct Menu {
        unsigned int metaclass;
        DataOperationList operations;
    };

    DataOperationList const* P_FindMenu(unsigned int metaclass) const;

    std::vector<Menu> m_menus;
};

} // namespace qzDescriptor::store
