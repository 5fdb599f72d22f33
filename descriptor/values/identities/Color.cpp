#include "descriptor/Color.h"

namespace qzDescriptor {

bool Color::GetIndex(unsigned int& index) const {
    if (m_index == s_rgbIndex)
        return false;
    index = m_index;
    return true;
}

bool Color::GetRGB(unsigned char& red, unsigned char& green, unsigned char& blue) const {
    if (m_index != s_rgbIndex)
        return false;
    red = m_red;
    green = m_green;
    blue = m_blue;
    return true;
}

} // namespace qzDescriptor
