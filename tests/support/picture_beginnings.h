// Picture files as far as their sizes are concerned.
#pragma once

#include <string>

#include "support/png_bytes.h"

namespace tradebill {

/// RGB pixels; the image data stops at once.
inline std::string BeginningOfPng(unsigned width, unsigned height) {
    return PngOf({.width = width, .height = height, .depth = 8, .kind = 2}, "\x78\x9C");
}

/// Grey, as far as the start of its pixels.
inline std::string BeginningOfJpeg(unsigned width, unsigned height) {
    using namespace std::string_literals;
    return "\xFF\xD8"
           "\xFF\xC0\x00\x0B\x08"s +
           BigEndian(height, 2) + BigEndian(width, 2) + "\x01\x01\x11\x00"s +
           "\xFF\xDA\x00\x08\x01\x01\x00\x00\x3F\x00"s;
}

}  // namespace tradebill
