#pragma once

#include "framestore/Attribute.h"
#include "framestore/DataType.h"

#include <memory>
#include <string>

namespace FrameStore {

class I_Frame;
class I_FrameImage;

//! An ordered list of frames, which it owns, and a buffer-wide attribute tree.
class I_Buffer
{
public:
    virtual ~I_Buffer();
    //! Adds a frame at the end and takes ownership; null is ignored.
    virtual void AppendFrame(I_Frame * frame) = 0;
    //! Removes and destroys all frames; the buffer's attributes stay.
    virtual void Clear() = 0;
    //! Replaces frames and attributes by deep copies of the other buffer's.
    virtual void CopyFrom(I_Buffer const & other) = 0;
    //! Appends a new zeroed image frame and returns it; null for an unusable type.
    virtual I_FrameImage * CreateFrame(unsigned int width, unsigned int height, unsigned int depth, E_DataType type) = 0;
    virtual I_AttributeBase * FindAttribute(std::string const & name) const = 0;
    virtual I_AttributeBase * GetAttributeRoot() const = 0;
    //! The frame at index, owned by the buffer, or null.
    virtual I_Frame * GetFrame(unsigned int index) const = 0;
    virtual unsigned int GetFrameCount() const = 0;
    virtual I_AttributeBase * CreateAttribute(std::string const & name, E_AttributeKind kind) = 0;
    virtual bool RemoveAttribute(std::string const & name) = 0;

protected:
    I_Buffer() = default;
    I_Buffer(I_Buffer const &) = delete;
    I_Buffer & operator=(I_Buffer const &) = delete;
};

//! A new empty buffer, owned by the caller.
I_Buffer * CreateBuffer();

} // namespace FrameStore
