#include "dataobjects/ImageData.h"

#include "basis/AlignedMemory.h"
#include "basis/Throw.h"
#include "dataobjects/PixelConversion.h"
#include "dataobjects/TypeSwitch.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <limits>
#include <utility>

namespace DataObjects {

namespace {

template <class T>
T * CheckedData(T * data)
{
    if (!data)
        BASIS_THROW(Basis::VerificationFailed, "data-pointer is null");
    return data;
}

template <class T>
T * AllocatePlane(Math::Size2T<unsigned int> const & size)
{
    return Basis::AllocateElements<T>(Math::ElementCount(size));
}

} // namespace

template <class T>
ImageData<T>::ImageData(Math::Size2T<unsigned int> const & size)
    : m_ownsData(true)
    , m_size(size)
    , m_data(AllocatePlane<T>(size))
{
}

template <class T>
ImageData<T>::ImageData(unsigned int width, unsigned int height)
    : ImageData(Math::Size2T<unsigned int>(width, height))
{
}

template <class T>
ImageData<T>::ImageData(Math::Size2T<unsigned int> const & size, T value)
    : ImageData(size)
{
    Fill(value);
}

template <class T>
ImageData<T>::ImageData(unsigned int width, unsigned int height, T value)
    : ImageData(Math::Size2T<unsigned int>(width, height), value)
{
}

template <class T>
ImageData<T>::ImageData(T * data, Math::Size2T<unsigned int> const & size, bool ownsData)
    : m_ownsData(ownsData)
    , m_size(size)
    , m_data(CheckedData(data))
{
}

template <class T>
ImageData<T>::ImageData(T * data, unsigned int width, unsigned int height, bool ownsData)
    : ImageData(data, Math::Size2T<unsigned int>(width, height), ownsData)
{
}

template <class T>
ImageData<T>::ImageData(std::unique_ptr<I_ImageMemory> memory, unsigned int width, unsigned int height)
    : m_ownsData(false)
    , m_size(width, height)
    , m_data(CheckedData(memory ? static_cast<T *>(memory->GetAddress()) : nullptr))
    , m_memory(std::move(memory))
{
}

template <class T>
ImageData<T>::ImageData(ImageData const & other)
    : ImageDataVariant(other)
    , m_ownsData(true)
    , m_size(other.m_size)
    , m_data(AllocatePlane<T>(other.m_size))
{
    CopyPixelsFrom(other);
}

template <class T>
ImageData<T>::ImageData(ImageData && other) noexcept
    : ImageDataVariant(other)
    , m_ownsData(other.m_ownsData)
    , m_size(other.m_size)
    , m_data(other.m_data)
{
    other.m_ownsData = false;
    other.m_size = {};
    other.m_data = nullptr;
}

template <class T>
ImageData<T>::~ImageData()
{
    if (m_ownsData)
        Basis::FreeAligned(m_data);
    if (m_memory) {
        m_memory->Release();
        m_memory.reset();
    }
}

template <class T>
ImageData<T> & ImageData<T>::operator=(ImageData const & other)
{
    if (this != &other) {
        CheckSameSize(other.m_size);
        CopyPixelsFrom(other);
    }
    return *this;
}

template <class T>
ImageData<T> & ImageData<T>::operator=(ImageData && other)
{
    MoveFrom(std::move(other));
    return *this;
}

template <class T>
void ImageData<T>::MoveFrom(ImageData && other)
{
    if (this == &other)
        return;
    if (m_ownsData) {
        Basis::FreeAligned(m_data);
        m_ownsData = other.m_ownsData;
        m_size = other.m_size;
        m_data = other.m_data;
        other.m_ownsData = false;
        other.m_size = {};
        other.m_data = nullptr;
    } else if (m_size == other.m_size) {
        CopyPixelsFrom(other);
    } else {
        // Allocate before touching anything, so a failed allocation leaves the view intact.
        T * const block = AllocatePlane<T>(other.m_size);
        m_ownsData = true;
        m_size = other.m_size;
        m_data = block;
        CopyPixelsFrom(other);
    }
}

template <class T>
ImageData<T> & ImageData<T>::operator=(T value)
{
    Fill(value);
    return *this;
}

template <class T>
void ImageData<T>::Fill(T value)
{
    std::fill_n(m_data, Math::ElementCount(m_size), value);
}

template <class T>
void ImageData<T>::Assign(ImageDataVariant const & source)
{
    auto const convert = [this](auto const & typed) {
        CheckSameSize(typed.GetSize());
        if (static_cast<void const *>(&typed) != this)
            ConvertPixels(m_data, typed.GetRawPointer(), Math::ElementCount(m_size));
    };
    if constexpr (std::is_same_v<T, bool>) {
        // A mask copies masks and reads any pixel type as valid where it is not 0.
        if (auto const * mask = dynamic_cast<ImageData<bool> const *>(&source))
            return convert(*mask);
        Private::SwitchPixelType(source, "AssignT(...)", convert);
    } else {
        Private::SwitchPixelType(source, "AssignTU(...)", convert);
    }
}

template <class T>
std::unique_ptr<ImageDataVariant> ImageData<T>::CreateCopy() const
{
    return std::make_unique<ImageData>(*this);
}

template <class T>
T * ImageData<T>::ReleaseRawPointer()
{
    if (!m_ownsData)
        return nullptr;
    return std::exchange(m_data, nullptr);
}

template <class T>
void ImageData<T>::CheckSameSize(Math::Size2T<unsigned int> const & other) const
{
    if (m_size != other)
        BASIS_THROW(Basis::VerificationFailed, "Source and destination have different sizes.");
}

template <class T>
void ImageData<T>::CopyPixelsFrom(ImageData const & other)
{
    ConvertPixels(m_data, other.m_data, Math::ElementCount(m_size));
}

namespace {

// Below this many pixels, waking the thread team costs more than the loop.
constexpr int ParallelThreshold = 1 << 15;

// How the result of p op d, computed in double, is stored.
template <class T>
inline T StoreArithmeticResult(double value)
{
    if constexpr (std::is_same_v<T, std::uint16_t>) {
        // Round half to even by adding and removing 1.5 * 2^52, the same result as taking the low
        // word of the shifted double, in a form that vectorises. Saturating first keeps results
        // beyond 32 bits from wrapping; NaN saturates to 0.
        constexpr double shift = 6755399441055744.0;
        double v = value > 0.0 ? value : 0.0;
        v = v < 65535.0 ? v : 65535.0;
        double const rounded = (v + shift) - shift;
        return static_cast<std::uint16_t>(static_cast<std::int32_t>(rounded));
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(value);
    } else {
        return ConvertPixel<T>(value);
    }
}

template <class T, class Operation>
void ForEachPixel(ImageData<T> & plane, bool parallel, Operation operation)
{
    // The loop index is a 32-bit signed count; a plane beyond it is left unchanged rather than
    // processed in part.
    std::uint64_t const count = Math::ElementCount(plane.GetSize());
    if (count < 1 || count > std::uint64_t(INT_MAX))
        return;
    int const n = int(count);
    T * const p = plane.GetRawPointer();
#pragma omp parallel for schedule(static) if (parallel && n >= ParallelThreshold)
    for (int i = 0; i < n; ++i)
        p[i] = operation(p[i]);
}

} // namespace

template <class T>
EnableIfPixel<T> & operator+=(ImageData<T> & plane, double d)
{
    if constexpr (std::is_same_v<T, float>) {
        float const f = float(d);
        ForEachPixel(plane, true, [f](float p) { return p + f; });
    } else {
        ForEachPixel(plane, true, [d](T p) { return StoreArithmeticResult<T>(double(p) + d); });
    }
    return plane;
}

template <class T>
EnableIfPixel<T> & operator-=(ImageData<T> & plane, double d)
{
    if constexpr (std::is_same_v<T, float>) {
        float const f = float(d);
        ForEachPixel(plane, true, [f](float p) { return p - f; });
    } else {
        ForEachPixel(plane, true, [d](T p) { return StoreArithmeticResult<T>(double(p) - d); });
    }
    return plane;
}

template <class T>
EnableIfPixel<T> & operator*=(ImageData<T> & plane, double d)
{
    constexpr bool serial = std::is_same_v<T, std::uint8_t> || std::is_same_v<T, std::int32_t>
                            || std::is_same_v<T, std::uint32_t>;
    ForEachPixel(plane, !serial, [d](T p) { return StoreArithmeticResult<T>(double(p) * d); });
    return plane;
}

template <class T>
EnableIfPixel<T> & operator/=(ImageData<T> & plane, double d)
{
    if (d == 0.0) {
        T const largest = std::numeric_limits<T>::max();
        ForEachPixel(plane, true, [largest](T p) { return p != T(0) ? largest : T(0); });
    } else {
        ForEachPixel(plane, true, [d](T p) { return StoreArithmeticResult<T>(double(p) / d); });
    }
    return plane;
}

namespace {

template <class T, class Operation>
void ForEachPixelPair(ImageData<T> & plane, ImageData<T> const & other, Operation operation)
{
    if (plane.GetSize() != other.GetSize())
        BASIS_THROW(Basis::VerificationFailed, "Source and destination have different sizes.");
    std::uint64_t const count = Math::ElementCount(plane.GetSize());
    if (count < 1 || count > std::uint64_t(INT_MAX))
        return;
    int const n = int(count);
    T * const p = plane.GetRawPointer();
    T const * const q = other.GetRawPointer();
#pragma omp parallel for schedule(static) if (n >= ParallelThreshold)
    for (int i = 0; i < n; ++i)
        p[i] = operation(p[i], q[i]);
}

} // namespace

template <class T>
EnableIfPixel<T> & operator+=(ImageData<T> & plane, ImageData<T> const & other)
{
    if constexpr (std::is_same_v<T, float>)
        ForEachPixelPair(plane, other, [](float p, float q) { return p + q; });
    else
        ForEachPixelPair(plane, other, [](T p, T q) { return StoreArithmeticResult<T>(double(p) + double(q)); });
    return plane;
}

template <class T>
EnableIfPixel<T> & operator/=(ImageData<T> & plane, ImageData<T> const & other)
{
    T const largest = std::numeric_limits<T>::max();
    ForEachPixelPair(plane, other, [largest](T p, T q) {
        if (q == T(0))
            return p != T(0) ? largest : T(0);
        return StoreArithmeticResult<T>(double(p) / double(q));
    });
    return plane;
}

template <class T>
EnableIfPixel<T> operator+(ImageData<T> const & plane, double d)
{
    ImageData<T> result(plane);
    result += d;
    return result;
}

template <class T>
EnableIfPixel<T> operator-(ImageData<T> const & plane, double d)
{
    ImageData<T> result(plane);
    result -= d;
    return result;
}

template <class T>
EnableIfPixel<T> operator*(ImageData<T> const & plane, double d)
{
    ImageData<T> result(plane);
    result *= d;
    return result;
}

template <class T>
EnableIfPixel<T> operator/(ImageData<T> const & plane, double d)
{
    ImageData<T> result(plane);
    result /= d;
    return result;
}

#define DATAOBJECTS_INSTANTIATE_IMAGE_DATA(T)                      \
    template class ImageData<T>;                                   \
    template ImageData<T> & operator+=(ImageData<T> &, ImageData<T> const &); \
    template ImageData<T> & operator/=(ImageData<T> &, ImageData<T> const &); \
    template ImageData<T> & operator+=(ImageData<T> &, double);    \
    template ImageData<T> & operator-=(ImageData<T> &, double);    \
    template ImageData<T> & operator*=(ImageData<T> &, double);    \
    template ImageData<T> & operator/=(ImageData<T> &, double);    \
    template ImageData<T> operator+(ImageData<T> const &, double); \
    template ImageData<T> operator-(ImageData<T> const &, double); \
    template ImageData<T> operator*(ImageData<T> const &, double); \
    template ImageData<T> operator/(ImageData<T> const &, double);
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_IMAGE_DATA)
template class ImageData<bool>;

} // namespace DataObjects
