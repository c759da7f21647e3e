#include "dataobjects/AttributesContainer.h"

#include "basis/Throw.h"

namespace DataObjects {

namespace {
bool StartsWith(std::string const & text, std::string const & prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}
} // namespace

C_AttributesContainer::C_AttributesContainer() = default;

C_AttributesContainer::C_AttributesContainer(C_AttributesContainer const & other)
    : C_Attributes(other)
{
    for (auto const & [name, value] : other.m_attributes)
        m_attributes.emplace(name, value->Clone());
}

C_AttributesContainer & C_AttributesContainer::operator=(C_AttributesContainer const & other)
{
    if (this != &other) {
        Clear();
        for (auto const & [name, value] : other.m_attributes)
            m_attributes.emplace(name, value->Clone());
    }
    return *this;
}

C_AttributesContainer::C_AttributesContainer(C_AttributesContainer && other) noexcept
    : C_Attributes(other)
    , m_attributes(std::move(other.m_attributes))
{
}

C_AttributesContainer & C_AttributesContainer::operator=(C_AttributesContainer && other) noexcept
{
    m_attributes = std::move(other.m_attributes);
    return *this;
}

C_AttributesContainer::C_AttributesContainer(C_Attributes const & source)
{
    MergeAttributes(*this, source, true);
}

C_AttributesContainer::~C_AttributesContainer() = default;

void C_AttributesContainer::Set(C_Attribute const & attribute)
{
    Set(attribute.GetName(), attribute.GetValue());
}

void C_AttributesContainer::Set(std::string const & name, C_AttributeValue const & value)
{
    if (value.IsNull()) {
        Remove(name); // before the lock: the mutex is not recursive
        return;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    auto const it = m_attributes.find(name);
    if (it == m_attributes.end()) {
        m_attributes.emplace(name, value.Clone());
        return;
    }
    if (it->second->GetType() != value.GetType())
        BASIS_THROW(Basis::Exception, "Unknown C_AttributeValue::type");
    it->second = value.Clone();
}

C_AttributeValue C_AttributesContainer::GetAttributeValue(std::string const & name) const
{
    if (name.empty())
        BASIS_THROW(Basis::InvalidArgumentError, "Empty name.");
    auto const it = m_attributes.find(name);
    return it == m_attributes.end() ? C_AttributeValue() : *it->second;
}

C_Attribute C_AttributesContainer::GetAttribute(std::string const & name) const
{
    return {name, GetAttributeValue(name)};
}

void C_AttributesContainer::Remove(std::string const & name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::size_t const asterisk = name.find('*');
    if (asterisk != std::string::npos) {
        std::string const prefix = name.substr(0, asterisk);
        auto it = m_attributes.lower_bound(prefix);
        while (it != m_attributes.end() && StartsWith(it->first, prefix))
            it = m_attributes.erase(it);
        return;
    }
    m_attributes.erase(name);
    // Members sort right after their group, so they form one run.
    std::string const group = name + '.';
    auto it = m_attributes.lower_bound(group);
    while (it != m_attributes.end() && StartsWith(it->first, group))
        it = m_attributes.erase(it);
}

bool C_AttributesContainer::Contains(std::string const & name) const { return m_attributes.count(name) != 0; }

void C_AttributesContainer::Clear() { m_attributes.clear(); }

std::unique_ptr<C_Attributes> C_AttributesContainer::Clone() const
{
    return std::make_unique<C_AttributesContainer>(*this);
}

bool C_AttributesContainer::IsEmpty() const { return m_attributes.empty(); }

std::vector<C_Attribute> C_AttributesContainer::GetAttributes() const
{
    std::vector<C_Attribute> attributes;
    attributes.reserve(m_attributes.size());
    for (auto const & [name, value] : m_attributes)
        attributes.emplace_back(name, *value);
    return attributes;
}

} // namespace DataObjects
