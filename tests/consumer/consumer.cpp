#include "descriptor/qzdescriptor.h"
#include "qzdistribution/QZ_DT_Mgr.h"

#include <iostream>

int main() {
    qzDescriptor::Value value;
    value.SetValue(2.5);
    qzString text;
    value.GetValueAsString(text, "%.2f");
    std::cout << text << '\n';
    return text != "2.50" || QZ_DT_Mgr::GetInstance().GetTagForTableEntityType({1, 0, "", "", 0}) == 0;
}
