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
using Components = std::vector<std::unique_ptr<I_Component>>;

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

// Names of the components that frames make themselves; typed scalars may not take them.
bool IsLayoutName(std::string const & name)
{
    for (std::string const * reserved : {&I_Frame::COMPONENT_MASK, &I_Frame::COMPONENT_ENABLED, &I_FrameImage::COMPONENT_PIXEL,
                                         &I_FrameVector::COMPONENT_U, &I_FrameVector::COMPONENT_V,
                                         &I_FrameVector::COMPONENT_W, &I_FrameVector::COMPONENT_ACTIVE_CHOICE})
        if (name == *reserved)
            return true;
    return false;
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
        if (x >= m_width || y >= m_height || z >= m_depth)
            return false;
        I_Component const * flags = GetComponent(COMPONENT_ENABLED);
        if (!flags)
            return true;
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
        if (IsLayoutName(name))
            BASIS_THROW(Basis::InvalidRequest, "The name '" << name << "' is reserved for the frame's own components");
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
    FrameBase(unsigned int width, unsigned int height, unsigned int depth, E_DataType type, Components components)
        : m_width(width)
        , m_height(height)
        , m_depth(depth)
        , m_type(type)
        , m_scaleX(IdentityScale())
        , m_scaleY(IdentityScale())
        , m_scaleZ(IdentityScale())
        , m_scaleI(IdentityScale())
        , m_attributes(FrameStore::CreateAttribute(std::string(), AT_GROUP))
        , m_components(std::move(components))
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
    FrameImage(E_DataType type, unsigned int width, unsigned int height, unsigned int depth, Components components)
        : FrameBase(width, height, depth, type, std::move(components))
    {
    }
    std::unique_ptr<I_Frame> Clone() const override { return std::unique_ptr<I_Frame>(new FrameImage(*this)); }

private:
    FrameImage(FrameImage const &) = default;
};

template <class Interface>
class FrameVector final : public FrameBase, public Interface
{
public:
    FrameVector(unsigned int width, unsigned int height, unsigned int depth, unsigned int choices, Components components)
        : FrameBase(width, height, depth, DT_FLOAT, std::move(components))
        , m_choices(choices)
    {
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

// The components every frame of a kind has, in their order.
struct LayoutEntry
{
    std::string const * name;
    E_ComponentKind kind;
    unsigned int choice;
    E_DataType type;
};

std::vector<LayoutEntry> Layout(E_FrameKind kind, E_DataType type, unsigned int choices)
{
    if (kind == FK_IMAGE || kind == FK_RGB)
        return {{&I_FrameImage::COMPONENT_PIXEL, CK_PIXEL, 0, type}};
    std::vector<LayoutEntry> layout;
    for (unsigned int choice = 0; choice < choices; ++choice) {
        layout.push_back({&I_FrameVector::COMPONENT_U, CK_VECTOR, choice, DT_FLOAT});
        layout.push_back({&I_FrameVector::COMPONENT_V, CK_VECTOR, choice, DT_FLOAT});
        if (kind == FK_VECTOR3C)
            layout.push_back({&I_FrameVector::COMPONENT_W, CK_VECTOR, choice, DT_FLOAT});
    }
    layout.push_back({&I_Frame::COMPONENT_ENABLED, CK_ENABLED, 0, DT_BYTE});
    layout.push_back({&I_FrameVector::COMPONENT_ACTIVE_CHOICE, CK_ACTIVE_CHOICE, 0, DT_INT});
    return layout;
}

I_Frame * MakeFrame(E_FrameKind kind, unsigned int width, unsigned int height, unsigned int depth, E_DataType type,
                    unsigned int choices, Components components)
{
    switch (kind) {
    case FK_IMAGE: return new FrameImage<I_FrameImage>(type, width, height, depth, std::move(components));
    case FK_RGB: return new FrameImage<I_FrameRGB>(type, width, height, depth, std::move(components));
    case FK_VECTOR2C: return new FrameVector<I_FrameVector2C>(width, height, depth, choices, std::move(components));
    case FK_VECTOR3C: return new FrameVector<I_FrameVector3C>(width, height, depth, choices, std::move(components));
    }
    return nullptr;
}

// A frame of the kind with every layout component made of zeroed planes, or of the given pixel planes.
I_Frame * MakeZeroedFrame(E_FrameKind kind, unsigned int width, unsigned int height, unsigned int depth,
                          E_DataType type, unsigned int choices, Planes pixels = {})
{
    Components components;
    for (LayoutEntry const & entry : Layout(kind, type, choices)) {
        Planes planes = entry.kind == CK_PIXEL && !pixels.empty() ? std::move(pixels)
                                                                  : NewPlanes(entry.type, width, height, depth);
        components.push_back(CreateComponent(*entry.name, entry.kind, entry.choice, entry.type, std::move(planes)));
    }
    return MakeFrame(kind, width, height, depth, type, choices, std::move(components));
}

} // namespace

E_FrameKind GetFrameKind(I_Frame const & frame)
{
    if (dynamic_cast<I_FrameRGB const *>(&frame))
        return FK_RGB;
    if (dynamic_cast<I_FrameVector3C const *>(&frame))
        return FK_VECTOR3C;
    if (dynamic_cast<I_FrameVector2C const *>(&frame))
        return FK_VECTOR2C;
    return FK_IMAGE;
}

std::unique_ptr<I_Frame> CreateFrameFromComponents(E_FrameKind kind, unsigned int width, unsigned int height,
                                                   unsigned int depth, E_DataType type, unsigned int choices,
                                                   Components components)
{
    auto const fail = [](std::string const & what) {
        BASIS_THROW(Basis::InvalidArgumentError, "Cannot assemble the frame: " << what);
    };
    if (kind > FK_VECTOR3C)
        fail("unknown frame kind " + std::to_string(kind));
    if ((kind == FK_RGB) != (type == DT_RGB) || GetDataTypeSize(type) == 0
        || ((kind == FK_VECTOR2C || kind == FK_VECTOR3C) && (type != DT_FLOAT || choices == 0)))
        fail(std::string("a frame of this kind cannot hold ") + GetDataTypeName(type) + " with "
             + std::to_string(choices) + " choices");
    std::vector<LayoutEntry> const layout = Layout(kind, type, choices);
    // The place of a component in the layout, or the layout's size when it is not part of it.
    auto const layoutIndex = [&](I_Component const & component) {
        auto const entry = std::find_if(layout.begin(), layout.end(), [&](LayoutEntry const & e) {
            return *e.name == component.GetName() && e.kind == component.GetKind() && e.choice == component.GetChoice()
                   && e.type == component.GetDataType();
        });
        return std::size_t(entry - layout.begin());
    };
    std::vector<int> found(layout.size(), 0);
    std::vector<std::string> names;
    for (auto const & component : components) {
        std::string const & name = component->GetName();
        if (component->GetPlaneCount() != depth)
            fail("the component '" + name + "' has " + std::to_string(component->GetPlaneCount()) + " planes");
        for (unsigned int z = 0; z < depth; ++z) {
            I_PlaneBase const * plane = component->GetPlane(z);
            if (plane->GetWidth() != width || plane->GetHeight() != height || plane->GetDataType() != component->GetDataType())
                fail("a plane of the component '" + name + "' does not fit the frame");
        }
        std::size_t const entry = layoutIndex(*component);
        if (entry < layout.size()) {
            ++found[entry];
            continue;
        }
        // Besides its layout a frame may have a mask, enable flags made on demand, and typed scalars.
        auto const isOptional = [&](E_ComponentKind kind, std::string const & optionalName) {
            return component->GetKind() == kind && name == optionalName && component->GetDataType() == DT_BYTE;
        };
        bool const extra = isOptional(CK_MASK, I_Frame::COMPONENT_MASK) || isOptional(CK_ENABLED, I_Frame::COMPONENT_ENABLED)
                           || (component->GetKind() == CK_TYPED_SCALAR && !IsLayoutName(name));
        if (!extra || std::find(names.begin(), names.end(), name) != names.end())
            fail("the component '" + name + "' does not belong to a frame of this kind or is repeated");
        names.push_back(name);
    }
    for (std::size_t i = 0; i < layout.size(); ++i)
        if (found[i] != 1)
            fail("the component '" + *layout[i].name + "' of choice " + std::to_string(layout[i].choice)
                 + (found[i] ? " is repeated" : " is missing"));
    // Layout components first, in layout order, then the others as they came.
    Components ordered(layout.size());
    Components others;
    for (auto & component : components) {
        std::size_t const entry = layoutIndex(*component);
        if (entry < layout.size())
            ordered[entry] = std::move(component);
        else
            others.push_back(std::move(component));
    }
    for (auto & component : others)
        ordered.push_back(std::move(component));
    return std::unique_ptr<I_Frame>(MakeFrame(kind, width, height, depth, type, choices, std::move(ordered)));
}

I_FrameImage * CreateImageFrame(E_DataType type, unsigned int width, unsigned int height, unsigned int depth)
{
    if (GetDataTypeSize(type) == 0)
        return nullptr;
    return dynamic_cast<I_FrameImage *>(MakeZeroedFrame(type == DT_RGB ? FK_RGB : FK_IMAGE, width, height, depth, type, 0));
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
    unsigned int const depth = unsigned(planes.size());
    return dynamic_cast<I_FrameImage *>(
        MakeZeroedFrame(type == DT_RGB ? FK_RGB : FK_IMAGE, width, height, depth, type, 0, std::move(planes)));
}

I_FrameVector2C * CreateVectorFrame2C(unsigned int width, unsigned int height, unsigned int depth, unsigned int choices)
{
    return choices == 0 ? nullptr
                        : dynamic_cast<I_FrameVector2C *>(MakeZeroedFrame(FK_VECTOR2C, width, height, depth, DT_FLOAT, choices));
}

I_FrameVector3C * CreateVectorFrame3C(unsigned int width, unsigned int height, unsigned int depth, unsigned int choices)
{
    return choices == 0 ? nullptr
                        : dynamic_cast<I_FrameVector3C *>(MakeZeroedFrame(FK_VECTOR3C, width, height, depth, DT_FLOAT, choices));
}

} // namespace FrameStore
