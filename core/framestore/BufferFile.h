#pragma once

#include "basis/ParameterTree.h"

#include <QString>

namespace FrameStore {

class I_Buffer;

//! Reads a buffer written by ExportBuffer; the new buffer belongs to the caller. A missing,
//! truncated, damaged or foreign file raises Basis::FileError saying what is wrong and where.
//! No option is read yet; the tree may be null.
I_Buffer * ImportBuffer(QString const & path, Basis::Parameter::C_Tree::Ptr const & options);

//! Writes the whole buffer into one HDF5 file (layout in docs/buffer-file-format.md). The file
//! is written next to its final name and renamed into place only when complete, so a failed
//! export never destroys an existing file. Options (the tree may be null):
//!   "Compression.Deflate"  int 0..9, gzip level of every plane dataset; 0 (default) stores
//!                          the planes contiguously and uncompressed.
//! Failures raise Basis::FileError.
void ExportBuffer(I_Buffer const * buffer, QString const & path, Basis::Parameter::C_Tree::Ptr const & options);

} // namespace FrameStore
