#pragma once

#include <memory>
#include <string>

namespace FrameStore {
class I_Buffer;
}

namespace Dobj {

class ProgressBar;

//! Writes every plane of every image frame as one page of a greyscale TIFF, in the pixel type of
//! the frame (8, 16, 32-bit unsigned, 32-bit signed, 32 or 64-bit float samples), uncompressed,
//! one strip per page. Each page's description names its frame and plane, so ReadTiff restores
//! the frames; x and y scales in a length unit become the resolution tags. Vector and colour
//! frames are refused.
void WriteTiff(FrameStore::I_Buffer const & buffer, std::string const & path, ProgressBar * progress = nullptr);

//! Reads a greyscale TIFF: pages written by WriteTiff back into their frames, any other page as
//! a frame of depth 1. Samples keep their type; a resolution in centimetres or inches becomes an
//! x or y scale in mm.
std::unique_ptr<FrameStore::I_Buffer> ReadTiff(std::string const & path, ProgressBar * progress = nullptr);

//! The number of pages, for progress reports.
unsigned int CountTiffPages(std::string const & path);

} // namespace Dobj
