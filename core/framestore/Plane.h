#pragma once

#include "framestore/DataType.h"

#include <cstdint>
#include <memory>

namespace FrameStore {

//! A two-dimensional array of elements of one data type, rows one after another, x fastest.
//! Its memory comes from the shared aligned allocator, so it can be handed to a new owner
//! (ReleaseMemory) who releases it with Basis::FreeAligned, and memory from that allocator can
//! be handed to a plane.
class I_PlaneBase
{
public:
    virtual ~I_PlaneBase();
    virtual E_DataType GetDataType() const = 0;
    virtual void * GetData() = 0;
    virtual void const * GetData() const = 0;
    virtual unsigned int GetWidth() const = 0;
    virtual unsigned int GetHeight() const = 0;
    //! Width * height * element size.
    virtual std::uint64_t GetByteCount() const = 0;
    //! Gives the memory away; the plane is left without memory and of size 0 by 0.
    virtual void * ReleaseMemory() = 0;
    //! New zeroed memory of the new size; the contents are not kept.
    virtual void Resize(unsigned int width, unsigned int height) = 0;
    virtual std::unique_ptr<I_PlaneBase> Clone() const = 0;

protected:
    I_PlaneBase() = default;
    I_PlaneBase(I_PlaneBase const &) = default;
    I_PlaneBase & operator=(I_PlaneBase const &) = default;
};

//! A plane of one of the six pixel types.
template <class T>
class I_Plane : public I_PlaneBase
{
public:
    T * GetTypedData() { return static_cast<T *>(GetData()); }
    T const * GetTypedData() const { return static_cast<T const *>(GetData()); }
};

//! A plane of colour pixels, each packed as 0x00RRGGBB.
class I_PlaneRGB : public I_PlaneBase
{
public:
    std::uint32_t * GetPixels() { return static_cast<std::uint32_t *>(GetData()); }
    std::uint32_t const * GetPixels() const { return static_cast<std::uint32_t const *>(GetData()); }
};

template <class T>
bool IsOfType(I_PlaneBase const & plane)
{
    return plane.GetDataType() == GetDataType<T>();
}

//! A new zeroed plane, owned by the caller; DT_UNKNOWN and unknown codes give null.
I_PlaneBase * CreatePlane(E_DataType type, unsigned int width, unsigned int height);
//! A new plane that takes over memory from Basis::AllocateAligned; null for an unknown type.
I_PlaneBase * CreatePlaneOnMemory(E_DataType type, unsigned int width, unsigned int height, void * memory);

} // namespace FrameStore
