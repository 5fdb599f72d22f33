#include "static_values_library.h"

#include "descriptor/qzdescriptor.h"

using namespace qzDescriptor;

namespace {

// Made before main, released after it, in an order that the library of values knows nothing about.
Value s_number(1.5);
Value s_list(ValuePtr::Create(qzStlVector<qzString>{"a", "b"}, DS_DEFAULT));
Value s_bag(BT_UINT, CT_ENTITY, 3, 0, DS_DEFAULT, QZDT_DBHandle());

} // namespace

Value& LibraryValue() { return s_number; }
