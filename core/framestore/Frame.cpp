#include "framestore/Frame.h"

#include "basis/Throw.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"

#include <algorithm>
#include <cstring>

namespace FrameStore {

std::string const I_Frame::COMPONENT_MASK = "Mask";
std::string const I_Frame::COMPONENT_ENABLED = "Enabled";
std::string const I_FrameImage::COMPONENT_PIXEL = "Pixel";
std::string const I_FrameVector::COMPONENT_U = "U";
std::string const I_FrameVector::COMPONENT_V = "V";
std::string const I_FrameVector::COMPONENT_W = "W";
std::string const I_FrameVector::COMPONENT_ACTIVE_CHOICE = "ActiveChoice";

I_Frame::~I_Frame() = default;

namespace {

using Planes = std::vector<std::unique_ptr<I_PlaneBase>>;

Planes NewPlanes(E_DataType type, unsigned int width, unsigned int height, unsigned int depth, std::uint8_t fill = 0)
{
    Planes planes;
    for (unsigned int z = 0; z < depth; ++z) {
        planes.emplace_back(CreatePlane(type, width, height));
        if (fill != 0)
            std::memset(planes.back()->GetData(), fill, planes.back()->GetByteCount());
    }
    return planes;
}

std::unique_ptr<I_Scale> IdentityScale()
{
    return std::unique_ptr<I_Scale>(C_ScaleFactory::GetInstance().CreateLinearScale(1.0, 0.0, {}, {}));
}

// Everything a frame of any kind has; the kinds add their interface and Clone.
class FrameBase : public virtual I_Frame
{
public:
    I_Component * CreateMaskComponent(std::vector<I_PlaneBase *> const & planes) override
    {
        if (I_Component * mask = GetComponent(COMPONENT_MASK))
            return mask;
        Planes maskPlanes;
        if (planes.empty()) {
            maskPlanes = NewPlanes(DT_BYTE, m_width, m_height, m_depth, 1);
        } else {
            bool const fit = planes.size() == m_depth && std::all_of(planes.begin(), planes.end(), [&](I_PlaneBase * p) {
                                 return p && p->GetDataType() == DT_BYTE && p->GetWidth() == m_width
                                        && p->GetHeight() == m_height;
                             });
            if (!fit)
                return nullptr;
            for (I_PlaneBase * plane : planes)
                maskPlanes.emplace_back(plane);
        }
        return AddComponent(CreateComponent(COMPONENT_MASK, CK_MASK, 0, DT_BYTE, std::move(maskPlanes)));
    }
    I_AttributeBase * FindAttribute(std::string const & name) const override { return m_attributes->Find(name); }
    I_AttributeBase * GetAttributeRoot() const override { return m_attributes.get(); }
    int GetComponentIndex(std::string const & name) const override
    {
        for (std::size_t i = 0; i < m_components.size(); ++i)
            if (m_components[i]->GetName() == name)
                return int(i);
        return -1;
    }
    I_Component * GetComponent(std::string const & name) const override
    {
        int const index = GetComponentIndex(name);
        return index < 0 ? nullptr : m_components[std::size_t(index)].get();
    }
    I_PlaneBase * GetPlane(int componentIndex, unsigned int z) const override
    {
        if (componentIndex < 0 || std::size_t(componentIndex) >= m_components.size())
            return nullptr;
        return m_components[std::size_t(componentIndex)]->GetPlane(z);
    }
    E_DataType GetDataType() const override { return m_type; }
    I_Scale * GetScaleI() const override { return m_scaleI.get(); }
    I_Scale * GetScaleX() const override { return m_scaleX.get(); }
    I_Scale * GetScaleY() const override { return m_scaleY.get(); }
    I_Scale * GetScaleZ() const override { return m_scaleZ.get(); }
    unsigned int GetWidth() const override { return m_width; }
    unsigned int GetHeight() const override { return m_height; }
    unsigned int GetDepth() const override { return m_depth; }
    bool HasMask() const override { return GetComponentIndex(COMPONENT_MASK) >= 0; }
    I_AttributeBase * CreateAttribute(std::string const & name, E_AttributeKind kind) override
    {
        return m_attributes->Create(name, kind);
    }
    void SetEnabled(unsigned int x, unsigned int y, unsigned int z, bool enabled) override
    {
        if (x >= m_width || y >= m_height || z >= m_depth)
            return;
        I_Component * flags = GetComponent(COMPONENT_ENABLED);
        if (!flags)
            flags = AddComponent(CreateComponent(COMPONENT_ENABLED, CK_ENABLED, 0, DT_BYTE,
                                                 NewPlanes(DT_BYTE, m_width, m_height, m_depth, 1)));
        static_cast<std::uint8_t *>(flags->GetPlane(z)->GetData())[std::size_t(y) * m_width + x] = enabled ? 1 : 0;
    }
    void SetScaleX(I_Scale * scale) override { Replace(m_scaleX, scale); }
    void SetScaleY(I_Scale * scale) override { Replace(m_scaleY, scale); }
    void SetScaleZ(I_Scale * scale) override { Replace(m_scaleZ, scale); }
    void SetScaleI(I_Scale * scale) override { Replace(m_scaleI, scale); }

    bool IsEnabled(unsigned int x, unsigned int y, unsigned int z) const override
    {
        I_Component const * flags = GetComponent(COMPONENT_ENABLED);
        if (!flags || x >= m_width || y >= m_height || z >= m_depth)
            return flags == nullptr;
        return static_cast<std::uint8_t const *>(flags->GetPlane(z)->GetData())[std::size_t(y) * m_width + x] != 0;
    }
    bool RemoveAttribute(std::string const & name) override { return m_attributes->Remove(name); }
    unsigned int GetComponentCount() const override { return unsigned(m_components.size()); }
    I_Component * GetComponentAt(unsigned int index) const override
    {
        return index < m_components.size() ? m_components[index].get() : nullptr;
    }
    I_Component * AddTypedScalar(std::string const & name, E_DataType type) override
    {
        if (I_Component * existing = GetComponent(name)) {
            if (existing->GetKind() == CK_TYPED_SCALAR && existing->GetDataType() == type)
                return existing;
            BASIS_THROW(Basis::InvalidRequest, "The frame already has a component '" << name << "' of another kind or type");
        }
        if (GetDataTypeSize(type) == 0)
            BASIS_THROW(Basis::InvalidRequest, "A typed scalar cannot be of data type " << GetDataTypeName(type));
        return AddComponent(CreateComponent(name, CK_TYPED_SCALAR, 0, type, NewPlanes(type, m_width, m_height, m_depth)));
    }
    std::vector<std::string> GetTypedScalarNames() const override
    {
        std::vector<std::string> names;
        for (auto const & component : m_components)
            if (component->GetKind() == CK_TYPED_SCALAR)
                names.push_back(component->GetName());
        return names;
    }
    bool RemoveComponent(std::string const & name) override
    {
        int const index = GetComponentIndex(name);
        if (index < 0)
            return false;
        E_ComponentKind const kind = m_components[std::size_t(index)]->GetKind();
        if (kind != CK_TYPED_SCALAR && kind != CK_MASK)
            BASIS_THROW(Basis::InvalidRequest, "The component '" << name << "' belongs to the frame's layout and cannot be removed");
        m_components.erase(m_components.begin() + index);
        return true;
    }

    I_Component * AddComponent(std::unique_ptr<I_Component> component)
    {
        m_components.push_back(std::move(component));
        return m_components.back().get();
    }

protected:
    FrameBase(unsigned int width, unsigned int height, unsigned int depth, E_DataType type)
        : m_width(width)
        , m_height(height)
        , m_depth(depth)
        , m_type(type)
        , m_scaleX(IdentityScale())
        , m_scaleY(IdentityScale())
        , m_scaleZ(IdentityScale())
        , m_scaleI(IdentityScale())
        , m_attributes(FrameStore::CreateAttribute(std::string(), AT_GROUP))
    {
    }

    FrameBase(FrameBase const & other)
        : I_Frame(other)
        , m_width(other.m_width)
        , m_height(other.m_height)
        , m_depth(other.m_depth)
        , m_type(other.m_type)
        , m_scaleX(other.m_scaleX->Clone())
        , m_scaleY(other.m_scaleY->Clone())
        , m_scaleZ(other.m_scaleZ->Clone())
        , m_scaleI(other.m_scaleI->Clone())
        , m_attributes(other.m_attributes->Clone())
    {
        for (auto const & component : other.m_components)
            m_components.push_back(component->Clone());
    }

private:
    static void Replace(std::unique_ptr<I_Scale> & held, I_Scale * scale)
    {
        if (scale)
            held.reset(scale);
    }

    unsigned int const m_width;
    unsigned int const m_height;
    unsigned int const m_depth;
    E_DataType const m_type;
    std::unique_ptr<I_Scale> m_scaleX;
    std::unique_ptr<I_Scale> m_scaleY;
    std::unique_ptr<I_Scale> m_scaleZ;
    std::unique_ptr<I_Scale> m_scaleI;
    std::unique_ptr<I_AttributeBase> m_attributes;
    std::vector<std::unique_ptr<I_Component>> m_components;
};

template <class Interface>
class FrameImage final : public FrameBase, public Interface
{
public:
    FrameImage(E_DataType type, unsigned int width, unsigned int height, Planes planes)
        : FrameBase(width, height, unsigned(planes.size()), type)
    {
        AddComponent(CreateComponent(I_FrameImage::COMPONENT_PIXEL, CK_PIXEL, 0, type, std::move(planes)));
    }
    std::unique_ptr<I_Frame> Clone() const override { return std::unique_ptr<I_Frame>(new FrameImage(*this)); }

private:
    FrameImage(FrameImage const &) = default;
};

template <class Interface>
class FrameVector final : public FrameBase, public Interface
{
public:
    FrameVector(unsigned int width, unsigned int height, unsigned int depth, unsigned int choices, bool hasW)
        : FrameBase(width, height, depth, DT_FLOAT)
        , m_choices(choices)
    {
        for (unsigned int choice = 0; choice < choices; ++choice) {
            for (std::string const * name : {&I_FrameVector::COMPONENT_U, &I_FrameVector::COMPONENT_V, &I_FrameVector::COMPONENT_W}) {
                if (name != &I_FrameVector::COMPONENT_W || hasW)
                    AddComponent(CreateComponent(*name, CK_VECTOR, choice, DT_FLOAT, NewPlanes(DT_FLOAT, width, height, depth)));
            }
        }
        AddComponent(CreateComponent(I_Frame::COMPONENT_ENABLED, CK_ENABLED, 0, DT_BYTE,
                                     NewPlanes(DT_BYTE, width, height, depth)));
        AddComponent(CreateComponent(I_FrameVector::COMPONENT_ACTIVE_CHOICE, CK_ACTIVE_CHOICE, 0, DT_INT,
                                     NewPlanes(DT_INT, width, height, depth)));
    }

    using FrameBase::GetComponent;
    unsigned int GetChoiceCount() const override { return m_choices; }
    I_Component * GetComponent(std::string const & name, unsigned int choice) const override
    {
        for (unsigned int i = 0; i < GetComponentCount(); ++i) {
            I_Component * component = GetComponentAt(i);
            if (component->GetName() == name && component->GetChoice() == choice)
                return component;
        }
        return nullptr;
    }
    unsigned int GetGridX() const override { return m_gridX; }
    unsigned int GetGridY() const override { return m_gridY; }
    unsigned int GetGridZ() const override { return m_gridZ; }
    void SetGridX(unsigned int grid) override { m_gridX = grid; }
    void SetGridY(unsigned int grid) override { m_gridY = grid; }
    void SetGridZ(unsigned int grid) override { m_gridZ = grid; }
    std::unique_ptr<I_Frame> Clone() const override { return std::unique_ptr<I_Frame>(new FrameVector(*this)); }

private:
    FrameVector(FrameVector const &) = default;

    unsigned int const m_choices;
    unsigned int m_gridX = 1;
    unsigned int m_gridY = 1;
    unsigned int m_gridZ = 1;
};

I_FrameImage * MakeImageFrame(E_DataType type, unsigned int width, unsigned int height, Planes planes)
{
    if (type == DT_RGB)
        return new FrameImage<I_FrameRGB>(type, width, height, std::move(planes));
    return new FrameImage<I_FrameImage>(type, width, height, std::move(planes));
}

} // namespace

I_FrameImage * CreateImageFrame(E_DataType type, unsigned int width, unsigned int height, unsigned int depth)
{
    if (GetDataTypeSize(type) == 0)
        return nullptr;
    return MakeImageFrame(type, width, height, NewPlanes(type, width, height, depth));
}

I_FrameImage * CreateImageFrameWithPlaneMemory(E_DataType type, unsigned int width, unsigned int height,
                                               void * memory)
{
    return CreateImageFrameWithPlaneMemory(type, width, height, std::vector<void *>{memory});
}

I_FrameImage * CreateImageFrameWithPlaneMemory(E_DataType type, unsigned int width, unsigned int height,
                                               std::vector<void *> const & memory)
{
    if (GetDataTypeSize(type) == 0 || memory.empty()
        || std::any_of(memory.begin(), memory.end(), [](void * block) { return block == nullptr; }))
        return nullptr;
    Planes planes;
    for (void * block : memory)
        planes.emplace_back(CreatePlaneOnMemory(type, width, height, block));
    return MakeImageFrame(type, width, height, std::move(planes));
}

I_FrameVector2C * CreateVectorFrame2C(unsigned int width, unsigned int height, unsigned int depth, unsigned int choices)
{
    return choices == 0 ? nullptr : new FrameVector<I_FrameVector2C>(width, height, depth, choices, false);
}

I_FrameVector3C * CreateVectorFrame3C(unsigned int width, unsigned int height, unsigned int depth, unsigned int choices)
{
    return choices == 0 ? nullptr : new FrameVector<I_FrameVector3C>(width, height, depth, choices, true);
}

} // namespace FrameStore
