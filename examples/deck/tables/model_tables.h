#pragma once

#include "model/Model.h"
#include "tables/typed_table.h"

#include <string>
#include <vector>

namespace qzDeck {

/// A table of all cards of one name, with a row for each.
struct ModelTable {
    std::string name; ///< of the cards
    std::vector<Field> columns;
    qzDescriptor::Tabular data;
};

/// The grid points with all their fields, and the elements of each card by number, property and points, in
/// the order in which a deck first has them. Blanks are what a card of defaults says, and a blank property
/// is the element's own number. Elements with lists of points (RBE2, RBE3) have no table here.
std::vector<ModelTable> MakeModelTables(Model const& model);

} // namespace qzDeck
