#include "framestore/Attribute.h"

#include "framestore/Plane.h"

#include <algorithm>

namespace FrameStore {

namespace {

// A dotted path without empty segments.
bool IsValidPath(std::string const & path)
{
    return !path.empty() && path.front() != '.' && path.back() != '.' && path.find("..") == std::string::npos;
}

template <class T, E_AttributeKind Kind>
class Attribute final : public I_Attribute<T>
{
public:
    explicit Attribute(std::string name) : I_Attribute<T>(std::move(name)), m_value() {}
    E_AttributeKind GetKind() const override { return Kind; }
    std::unique_ptr<I_AttributeBase> Clone() const override { return std::make_unique<Attribute>(*this); }
    T const & GetValue() const override { return m_value; }
    void SetValue(T const & value) override { m_value = value; }

private:
    T m_value;
};

class GroupAttribute final : public I_AttributeBase
{
public:
    explicit GroupAttribute(std::string name) : I_AttributeBase(std::move(name)) {}
    E_AttributeKind GetKind() const override { return AT_GROUP; }
    std::unique_ptr<I_AttributeBase> Clone() const override { return std::make_unique<GroupAttribute>(*this); }
};

class PlaneAttribute final : public I_AttributePlane
{
public:
    explicit PlaneAttribute(std::string name) : I_AttributePlane(std::move(name)) {}
    PlaneAttribute(PlaneAttribute const & other)
        : I_AttributePlane(other)
        , m_plane(other.m_plane ? other.m_plane->Clone() : nullptr)
    {
    }
    E_AttributeKind GetKind() const override { return AT_PLANE; }
    std::unique_ptr<I_AttributeBase> Clone() const override { return std::make_unique<PlaneAttribute>(*this); }
    I_PlaneBase * GetPlane() const override { return m_plane.get(); }
    void SetPlane(I_PlaneBase * plane) override { m_plane.reset(plane); }

private:
    std::unique_ptr<I_PlaneBase> m_plane;
};

} // namespace

I_AttributeBase::~I_AttributeBase() = default;

I_AttributeBase::I_AttributeBase(I_AttributeBase const & other)
    : m_name(other.m_name)
{
    m_children.reserve(other.m_children.size());
    for (auto const & child : other.m_children)
        m_children.push_back(child->Clone());
}

I_AttributeBase * I_AttributeBase::FindChild(std::string const & name) const
{
    auto const it = std::find_if(m_children.begin(), m_children.end(),
                                 [&](auto const & child) { return child->GetName() == name; });
    return it == m_children.end() ? nullptr : it->get();
}

I_AttributeBase * I_AttributeBase::Find(std::string const & path) const
{
    std::size_t const dot = path.find('.');
    I_AttributeBase * child = FindChild(path.substr(0, dot));
    if (dot == std::string::npos || !child)
        return child;
    return child->Find(path.substr(dot + 1));
}

I_AttributeBase * I_AttributeBase::AdoptChild(std::unique_ptr<I_AttributeBase> child)
{
    auto const it = std::find_if(m_children.begin(), m_children.end(),
                                 [&](auto const & c) { return c->GetName() == child->GetName(); });
    if (it != m_children.end()) {
        *it = std::move(child);
        return it->get();
    }
    m_children.push_back(std::move(child));
    return m_children.back().get();
}

I_AttributeBase * I_AttributeBase::Create(std::string const & path, E_AttributeKind kind)
{
    if (!IsValidPath(path) || kind >= AttributeKindCount)
        return nullptr;
    std::size_t const dot = path.find('.');
    std::string const first = path.substr(0, dot);
    I_AttributeBase * child = FindChild(first);
    if (dot != std::string::npos) {
        if (!child)
            child = AdoptChild(CreateAttribute(first, AT_GROUP));
        return child->Create(path.substr(dot + 1), kind);
    }
    if (child && child->GetKind() == kind)
        return child;
    // A node of another kind gives way, but its sub-attributes stay.
    std::unique_ptr<I_AttributeBase> node = CreateAttribute(first, kind);
    if (child)
        node->m_children = std::move(child->m_children);
    return AdoptChild(std::move(node));
}

bool I_AttributeBase::Remove(std::string const & path)
{
    std::size_t const dot = path.find('.');
    if (dot != std::string::npos) {
        I_AttributeBase * child = FindChild(path.substr(0, dot));
        return child && child->Remove(path.substr(dot + 1));
    }
    auto const it = std::find_if(m_children.begin(), m_children.end(),
                                 [&](auto const & c) { return c->GetName() == path; });
    if (it == m_children.end())
        return false;
    m_children.erase(it);
    return true;
}

std::unique_ptr<I_AttributeBase> CreateAttribute(std::string const & name, E_AttributeKind kind)
{
    switch (kind) {
    case AT_GROUP: return std::make_unique<GroupAttribute>(name);
    case AT_INT: return std::make_unique<Attribute<std::int64_t, AT_INT>>(name);
    case AT_UINT: return std::make_unique<Attribute<std::uint64_t, AT_UINT>>(name);
    case AT_DOUBLE: return std::make_unique<Attribute<double, AT_DOUBLE>>(name);
    case AT_STRING: return std::make_unique<Attribute<std::string, AT_STRING>>(name);
    case AT_BOOL: return std::make_unique<Attribute<bool, AT_BOOL>>(name);
    case AT_TIMESTAMP: return std::make_unique<Attribute<Basis::TimeStamp, AT_TIMESTAMP>>(name);
    case AT_PLANE: return std::make_unique<PlaneAttribute>(name);
    case AT_BINARY: return std::make_unique<Attribute<std::vector<std::uint8_t>, AT_BINARY>>(name);
    }
    return nullptr;
}

namespace Attributes {

void GetList(I_AttributeBase const * node, bool recursive, std::string const & prefix,
             std::vector<std::string> & names, std::vector<I_AttributeBase *> & nodes)
{
    if (!node)
        return;
    for (std::size_t i = 0; i < node->GetChildCount(); ++i) {
        I_AttributeBase * child = node->GetChild(i);
        std::string const name = prefix.empty() ? child->GetName() : prefix + '.' + child->GetName();
        if (child->GetKind() != AT_GROUP) {
            names.push_back(name);
            nodes.push_back(child);
        }
        if (recursive)
            GetList(child, true, name, names, nodes);
    }
}

} // namespace Attributes

} // namespace FrameStore
