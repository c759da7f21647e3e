#pragma once

#include "framestore/DataType.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

namespace FrameStore {
class I_Buffer;
class I_Frame;
class I_FrameImage;
class I_Scale;
} // namespace FrameStore

namespace Dobj {

//! A failure the tool reports in one line, "dobj: <what>", with exit status 1.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

//! The buffer file at path; a missing, damaged or foreign file raises the reader's failure.
std::unique_ptr<FrameStore::I_Buffer> LoadBuffer(std::string const & path);
void SaveBuffer(FrameStore::I_Buffer const & buffer, std::string const & path);

//! Frame index of the buffer, which must exist and be an image frame.
FrameStore::I_FrameImage & ImageFrameAt(FrameStore::I_Buffer const & buffer, unsigned int index);
//! "image", "colour image", "vector 2C, 3 choices", ...
std::string DescribeFrameKind(FrameStore::I_Frame const & frame);
//! "0.05 * raw - 12.8 mm (x position)": a scale as a person reads it.
std::string DescribeScale(FrameStore::I_Scale const & scale);
//! "uint16", "float", ...
char const * DescribeDataType(FrameStore::E_DataType type);
//! 1536 -> "1.5 KiB".
std::string DescribeBytes(std::uint64_t bytes);
//! Whether the path names a TIFF file (by its extension).
bool IsTiffPath(std::string const & path);

QString ToQString(std::string const & text);

} // namespace Dobj
