#pragma once

#include "descriptor/DataOperationList.h"
#include "descriptor/DataTypes.h"
#include "descriptor/Definition.h"
#include "descriptor/TabularDefinition.h"
#include "descriptor/Value.h"

#include <map>
#include <memory>
#include <vector>

namespace qzDescriptor {

/// What few objects have beside their values, by attribute. Definitions do not change and are shared by
/// copies.
struct ContentExtras {
    struct OfAttribute {
        std::shared_ptr<Definition const> definition;               ///< null: the member set's holds
        Value defaultValue;                                         ///< that of the definition above
        std::shared_ptr<TabularDefinition const> tabularDefinition; ///< null: the member set's holds
        DataOperationList operations;
        DisplayStatus displayStatus = DS_DEFAULT;
    };

    OfAttribute const* Find(unsigned int index) const {
        auto const found = attributes.find(index);
        return found == attributes.end() ? nullptr : &found->second;
    }

    std::map<unsigned int, OfAttribute> attributes;
    std::vector<std::shared_ptr<TabularDefinition const>> managed; ///< registered for the content as a whole
};

} // namespace qzDescriptor
