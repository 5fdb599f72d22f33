#include "descriptor/qzdescriptor.h"

#include <iostream>

int main() {
    qzDescriptor::Value value;
    value.SetValue(2.5);
    qzString text;
    value.GetValueAsString(text, "%.2f");
    std::cout << text << '\n';
    return text != "2.50";
}
