#pragma once

#include "descriptor/Export.h"

namespace qzDescriptor {

/// A color: an index into the application's palette, or red, green and blue. The default is index 0.
class QZDESCRIPTOR_API Color {
public:
    static constexpr unsigned int s_rgbIndex = 0xFFFFFFFF; ///< the index of a color that has components

    Color() = default;
    explicit Color(unsigned int index) : m_index(index) {}
    Color(unsigned char red, unsigned char green, unsigned char blue)
        : m_index(s_rgbIndex), m_red(red), m_green(green), m_blue(blue) {}

    void SetIndex(unsigned int index) { *this = Color(index); }
    void SetRGB(unsigned char red, unsigned char green, unsigned char blue) {
        *this = Color(red, green, blue);
    }

    /// False, leaving the argument as it was, for an RGB color.
    bool GetIndex(unsigned int& index) const;
    /// False, leaving the arguments as they were, for a palette index.
    bool GetRGB(unsigned char& red, unsigned char& green, unsigned char& blue) const;

    friend bool operator==(Color const&, Color const&) = default;

private:
    unsigned int m_index = 0;
    unsigned char m_red = 0;
    unsigned char m_green = 0;
    unsigned char m_blue = 0;
};

} // namespace qzDescriptor
