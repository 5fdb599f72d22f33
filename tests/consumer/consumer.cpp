#include "descriptor/qzdescriptor.h"
#include "qzdistribution/QZ_DT_Mgr.h"
#include "store/Registry.h"

#include <iostream>

int main() {
    qzDescriptor::Value value;
    value.SetValue(2.5);
    qzString text;
    value.GetValueAsString(text, "%.2f");
    std::cout << text << '\n';
    qzDescriptor::store::Registry registry;
    return text != "2.50" || registry.GetSession("session") == nullptr ||
           QZ_DT_Mgr::GetInstance().GetTagForTableEntityType({1, 0, "", "", 0}) == 0;
}
