#include "static_values_library.h"

#include "descriptor/qzdescriptor.h"

#include <cstdio>
#include <memory>
#include <vector>

using namespace qzDescriptor;

namespace {

/// Look-ups that find nothing hand out defaults; what is written into them takes memory.
void WriteIntoDefaults() {
    EntityFullType const type(qzString(100, 'x'));
    EntityListBag lists;
    lists.GetList(type).SetEntity(Entity(type, 5), 100);
    FormulaBag formulas;
    formulas.GetFormula(type) = Formula(type);
    EntityListBagList bags;
    bags.Modify(0).SetList(EntityList(type, {1, 2}, {}));
}

/// Makes, copies and writes values while the program ends, after other statics and the pools are done.
struct LastWords {
    Value value;
    std::unique_ptr<Definition> definition;

    ~LastWords() {
        definition = std::make_unique<Definition>(*definition);
        Value last(value);
        qzString text;
        last.GetValueAsString(text);
        Value color;
        color.SetValue(Color(1));
        color.SetValueFromString("#0A14FF");
        Value entity;
        entity.SetValue(Entity());
        entity.SetValueFromString("GRID 5");
        WriteIntoDefaults();
        std::printf("last value: %s\n", text.c_str());
    }
};

LastWords s_lastWords;
Value s_values[600];
std::vector<Value> s_more;

} // namespace

int main() {
    // Never destroyed before the end: released after everything in this file.
    static std::unique_ptr<Value> const late = std::make_unique<Value>(qzString(100, 'x'));
    s_lastWords.value.SetValue(2.5);
    s_lastWords.definition = std::make_unique<Definition>();
    WriteIntoDefaults();
    for (Value& value : s_values)
        value = LibraryValue();
    s_more.assign(s_values, s_values + 100);
    LibraryValue().SetValue(qzString("moved to another type"));
    return late->GetValuePointerString() == nullptr;
}
