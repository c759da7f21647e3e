#include "framestore/Component.h"

#include "framestore/Attribute.h"
#include "framestore/Plane.h"
#include "framestore/Scale.h"

namespace FrameStore {

I_Component::~I_Component() = default;

namespace {

class Component final : public I_Component
{
public:
    Component(std::string name, E_ComponentKind kind, unsigned int choice, E_DataType type,
              std::vector<std::unique_ptr<I_PlaneBase>> planes)
        : m_name(std::move(name))
        , m_kind(kind)
        , m_choice(choice)
        , m_type(type)
        , m_settings(CreateAttribute(std::string(), AT_GROUP))
        , m_planes(std::move(planes))
    {
    }

    Component(Component const & other)
        : I_Component(other)
        , m_name(other.m_name)
        , m_kind(other.m_kind)
        , m_choice(other.m_choice)
        , m_type(other.m_type)
        , m_settings(other.m_settings->Clone())
        , m_scale(other.m_scale ? other.m_scale->Clone() : nullptr)
    {
        for (auto const & plane : other.m_planes)
            m_planes.push_back(plane->Clone());
    }

    std::string const & GetName() const override { return m_name; }
    E_ComponentKind GetKind() const override { return m_kind; }
    unsigned int GetChoice() const override { return m_choice; }
    E_DataType GetDataType() const override { return m_type; }
    I_AttributeBase * GetSettings() const override { return m_settings.get(); }
    unsigned int GetPlaneCount() const override { return unsigned(m_planes.size()); }
    I_PlaneBase * GetPlane(unsigned int z) const override { return z < m_planes.size() ? m_planes[z].get() : nullptr; }
    I_Scale * GetScale() const override { return m_scale.get(); }
    void SetScale(I_Scale * scale) override { m_scale.reset(scale); }
    std::unique_ptr<I_Component> Clone() const override { return std::make_unique<Component>(*this); }

private:
    std::string const m_name;
    E_ComponentKind const m_kind;
    unsigned int const m_choice;
    E_DataType const m_type;
    std::unique_ptr<I_AttributeBase> m_settings;
    std::unique_ptr<I_Scale> m_scale;
    std::vector<std::unique_ptr<I_PlaneBase>> m_planes;
};

} // namespace

std::unique_ptr<I_Component> CreateComponent(std::string const & name, E_ComponentKind kind, unsigned int choice,
                                             E_DataType type, std::vector<std::unique_ptr<I_PlaneBase>> planes)
{
    return std::make_unique<Component>(name, kind, choice, type, std::move(planes));
}

} // namespace FrameStore
