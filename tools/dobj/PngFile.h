#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Dobj {

//! Writes an 8-bit greyscale PNG of width by height pixels, rows one after another.
void WriteGreyPng(std::string const & path, unsigned int width, unsigned int height,
                  std::vector<std::uint8_t> const & pixels);

} // namespace Dobj
