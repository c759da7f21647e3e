#pragma once

#include "dataobjects/ImageDataVariant.h"
#include "dataobjects/ImageMemory.h"
#include "dataobjects/PixelTypes.h"
#include "math/Point.h"
#include "math/Size.h"

#include <cstdint>
#include <memory>
#include <type_traits>

namespace DataObjects {

//! One plane of pixels, rows without gaps, pixel (x, y) at index y * width + x.
//!
//! A plane either owns its block (allocated by the shared aligned allocator and released at
//! destruction) or views memory that belongs to somebody else: a frame's plane, a block shared
//! by the planes of a volume. A view may hold an I_ImageMemory that keeps its memory alive.
//! Copying always makes an owning plane; assigning never reshapes a plane, except that moving
//! a plane of another size into a view turns the view into an owning plane. Writing through a
//! view on assignment is intended: a plane that views a frame's memory writes the frame.
//!
//! Element access is unchecked; whole-plane operations check sizes.
//!
//! Exists for the six pixel types and for bool, the plane type of masks.
template <class T>
class ImageData : public ImageDataVariant
{
public:
    using value_type = T;

    //! An owning plane, left uninitialised.
    explicit ImageData(Math::Size2T<unsigned int> const & size);
    ImageData(unsigned int width, unsigned int height);
    //! An owning plane with every pixel set to value.
    ImageData(Math::Size2T<unsigned int> const & size, T value);
    ImageData(unsigned int width, unsigned int height, T value);
    //! Adopts data without copying; with ownsData the plane releases it through the aligned
    //! allocator at destruction, so only blocks from that allocator may be handed over.
    ImageData(T * data, Math::Size2T<unsigned int> const & size, bool ownsData);
    ImageData(T * data, unsigned int width, unsigned int height, bool ownsData);
    //! A view on the holder's memory; the plane keeps the holder until it is destroyed.
    ImageData(std::unique_ptr<I_ImageMemory> memory, unsigned int width, unsigned int height);

    //! Always an owning copy of the pixels, without memory holder.
    ImageData(ImageData const & other);
    //! Takes owner flag, size and pointer; the source is left empty. The memory holder stays
    //! with the source on purpose.
    ImageData(ImageData && other) noexcept;
    ~ImageData() override;

    //! Copies pixels into the existing memory; the sizes must be equal.
    ImageData & operator=(ImageData const & other);
    //! Same as MoveFrom.
    ImageData & operator=(ImageData && other);
    //! An owning plane releases its block and takes the other's; a view of equal size receives
    //! a copy of the pixels and the other stays as it is; a view of another size becomes an
    //! owning copy of the other.
    void MoveFrom(ImageData && other);
    ImageData & operator=(T value);
    void Fill(T value);
    //! Converts a plane of any pixel type into this one, saturating and truncating.
    void Assign(ImageDataVariant const & source) override;

    Math::Size2T<unsigned int> const & GetSize() const override { return m_size; }
    unsigned int GetWidth() const override { return m_size.width; }
    unsigned int GetHeight() const override { return m_size.height; }
    bool HasOwnerShip() const override { return m_ownsData; }
    std::unique_ptr<ImageDataVariant> CreateCopy() const override;

    T GetPixel(unsigned int x, unsigned int y) const { return m_data[GetArrayOffset(x, y)]; }
    T & GetPixel(unsigned int x, unsigned int y) { return m_data[GetArrayOffset(x, y)]; }
    T GetPixel(Math::Point2T<unsigned int> const & p) const { return m_data[GetArrayOffset(p)]; }
    T & GetPixel(Math::Point2T<unsigned int> const & p) { return m_data[GetArrayOffset(p)]; }
    T operator()(unsigned int x, unsigned int y) const { return m_data[GetArrayOffset(x, y)]; }
    T & operator()(unsigned int x, unsigned int y) { return m_data[GetArrayOffset(x, y)]; }
    T operator[](Math::Point2T<unsigned int> const & p) const { return m_data[GetArrayOffset(p)]; }
    T & operator[](Math::Point2T<unsigned int> const & p) { return m_data[GetArrayOffset(p)]; }
    void SetPixel(unsigned int x, unsigned int y, T value) { m_data[GetArrayOffset(x, y)] = value; }
    void SetPixel(Math::Point2T<unsigned int> const & p, T value) { m_data[GetArrayOffset(p)] = value; }

    T * GetRawPointer() { return m_data; }
    T const * GetRawPointer() const { return m_data; }
    T * begin() { return m_data; }
    T const * begin() const { return m_data; }
    T * end() { return m_data + Math::ElementCount(m_size); }
    T const * end() const { return m_data + Math::ElementCount(m_size); }

    //! Hands an owned block to the caller, who must release it with Basis::FreeAligned. The
    //! plane keeps its size and owner flag but no longer has pixels. A view returns null.
    T * ReleaseRawPointer();

protected:
    std::uint64_t GetArrayOffset(unsigned int x, unsigned int y) const { return std::uint64_t(y) * m_size.width + x; }
    std::uint64_t GetArrayOffset(Math::Point2T<unsigned int> const & p) const { return GetArrayOffset(p.x, p.y); }

private:
    void CheckSameSize(Math::Size2T<unsigned int> const & other) const;
    void CopyPixelsFrom(ImageData const & other);

    bool m_ownsData;
    Math::Size2T<unsigned int> m_size;
    T * m_data;
    std::unique_ptr<I_ImageMemory> m_memory;
};

// Scalar arithmetic on every pixel, in place or on a copy. Each pixel p becomes p op d computed
// in double and stored by pixel type: uint16 rounds to nearest (ties to even) and saturates;
// uint8, int32 and uint32 saturate and truncate; float adds and subtracts in float. Dividing by
// exactly 0 sets every non-zero pixel (NaN included) to the largest finite value of the type.
template <class T>
using EnableIfPixel = std::enable_if_t<IsPixelType<T>, ImageData<T>>;

template <class T>
EnableIfPixel<T> & operator+=(ImageData<T> & plane, double d);
template <class T>
EnableIfPixel<T> & operator-=(ImageData<T> & plane, double d);
template <class T>
EnableIfPixel<T> & operator*=(ImageData<T> & plane, double d);
template <class T>
EnableIfPixel<T> & operator/=(ImageData<T> & plane, double d);
template <class T>
EnableIfPixel<T> operator+(ImageData<T> const & plane, double d);
template <class T>
EnableIfPixel<T> operator-(ImageData<T> const & plane, double d);
template <class T>
EnableIfPixel<T> operator*(ImageData<T> const & plane, double d);
template <class T>
EnableIfPixel<T> operator/(ImageData<T> const & plane, double d);

// Pixel by pixel with a plane of the same size, by the same store rules. A pixel divided by a
// zero pixel follows the division by zero above: the largest finite value, or 0 for 0.
template <class T>
EnableIfPixel<T> & operator+=(ImageData<T> & plane, ImageData<T> const & other);
template <class T>
EnableIfPixel<T> & operator/=(ImageData<T> & plane, ImageData<T> const & other);

#define DATAOBJECTS_DECLARE_IMAGE_DATA(T)                                   \
    extern template class ImageData<T>;                                     \
    extern template ImageData<T> & operator+=(ImageData<T> &, ImageData<T> const &); \
    extern template ImageData<T> & operator/=(ImageData<T> &, ImageData<T> const &); \
    extern template ImageData<T> & operator+=(ImageData<T> &, double);      \
    extern template ImageData<T> & operator-=(ImageData<T> &, double);      \
    extern template ImageData<T> & operator*=(ImageData<T> &, double);      \
    extern template ImageData<T> & operator/=(ImageData<T> &, double);      \
    extern template ImageData<T> operator+(ImageData<T> const &, double);   \
    extern template ImageData<T> operator-(ImageData<T> const &, double);   \
    extern template ImageData<T> operator*(ImageData<T> const &, double);   \
    extern template ImageData<T> operator/(ImageData<T> const &, double);
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_IMAGE_DATA)
#undef DATAOBJECTS_DECLARE_IMAGE_DATA
extern template class ImageData<bool>;

} // namespace DataObjects
