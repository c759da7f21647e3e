#include "framestore/Plane.h"

#include "basis/AlignedMemory.h"
#include "math/Size.h"

#include <cstring>
#include <utility>

namespace FrameStore {

I_PlaneBase::~I_PlaneBase() = default;

namespace {

template <class Interface>
class Plane final : public Interface
{
public:
    Plane(E_DataType type, unsigned int width, unsigned int height, void * memory)
        : m_type(type)
        , m_width(width)
        , m_height(height)
        , m_data(static_cast<unsigned char *>(memory))
    {
    }

    E_DataType GetDataType() const override { return m_type; }
    void * GetData() override { return m_data.get(); }
    void const * GetData() const override { return m_data.get(); }
    unsigned int GetWidth() const override { return m_width; }
    unsigned int GetHeight() const override { return m_height; }
    std::uint64_t GetByteCount() const override
    {
        return Math::ElementCount(Math::Size2T<unsigned int>(m_width, m_height)) * GetDataTypeSize(m_type);
    }
    void * ReleaseMemory() override
    {
        m_width = m_height = 0;
        return m_data.release();
    }
    void Resize(unsigned int width, unsigned int height) override
    {
        Basis::AlignedArray<unsigned char> data = Allocate(m_type, width, height);
        m_data = std::move(data);
        m_width = width;
        m_height = height;
    }
    std::unique_ptr<I_PlaneBase> Clone() const override
    {
        auto copy = std::make_unique<Plane>(m_type, m_width, m_height, Allocate(m_type, m_width, m_height).release());
        if (GetByteCount() > 0)
            std::memcpy(copy->GetData(), GetData(), GetByteCount());
        return copy;
    }

    static Basis::AlignedArray<unsigned char> Allocate(E_DataType type, unsigned int width, unsigned int height)
    {
        std::uint64_t const bytes = Basis::ByteCount(Math::ElementCount(Math::Size2T<unsigned int>(width, height)),
                                                     GetDataTypeSize(type));
        auto data = Basis::MakeAlignedArray<unsigned char>(bytes);
        std::memset(data.get(), 0, bytes);
        return data;
    }

private:
    E_DataType const m_type;
    unsigned int m_width;
    unsigned int m_height;
    Basis::AlignedArray<unsigned char> m_data;
};

template <class Interface>
I_PlaneBase * MakePlane(E_DataType type, unsigned int width, unsigned int height, void * memory)
{
    // The plane adopts the memory at once, so that it is released even if creation fails.
    Basis::AlignedArray<unsigned char> owned(static_cast<unsigned char *>(memory));
    if (!owned)
        owned = Plane<Interface>::Allocate(type, width, height);
    auto plane = std::make_unique<Plane<Interface>>(type, width, height, owned.get());
    owned.release();
    return plane.release();
}

I_PlaneBase * Make(E_DataType type, unsigned int width, unsigned int height, void * memory)
{
    switch (type) {
    case DT_BYTE: return MakePlane<I_Plane<std::uint8_t>>(type, width, height, memory);
    case DT_RGB: return MakePlane<I_PlaneRGB>(type, width, height, memory);
    case DT_DOUBLE: return MakePlane<I_Plane<double>>(type, width, height, memory);
    case DT_FLOAT: return MakePlane<I_Plane<float>>(type, width, height, memory);
    case DT_INT: return MakePlane<I_Plane<std::int32_t>>(type, width, height, memory);
    case DT_UINT: return MakePlane<I_Plane<std::uint32_t>>(type, width, height, memory);
    case DT_WORD: return MakePlane<I_Plane<std::uint16_t>>(type, width, height, memory);
    case DT_UNKNOWN: break;
    }
    return nullptr;
}

} // namespace

I_PlaneBase * CreatePlane(E_DataType type, unsigned int width, unsigned int height)
{
    return Make(type, width, height, nullptr);
}

I_PlaneBase * CreatePlaneOnMemory(E_DataType type, unsigned int width, unsigned int height, void * memory)
{
    if (!memory)
        return nullptr;
    return Make(type, width, height, memory);
}

} // namespace FrameStore
