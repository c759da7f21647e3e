#include "dataobjects/ScalarFields.h"

#include "dataobjects/TypeSwitch.h"

#include <utility>

namespace DataObjects {

ScalarFields::ScalarFields(Math::Size2T<unsigned int> const & size)
    : m_size(size)
{
}

ScalarFields::ScalarFields(unsigned int width, unsigned int height)
    : ScalarFields(Math::Size2T<unsigned int>(width, height))
{
}

ScalarFields::ScalarFields(ScalarFields const & other) = default;
ScalarFields::ScalarFields(ScalarFields && other) noexcept = default;
ScalarFields & ScalarFields::operator=(ScalarFields const & other) = default;
ScalarFields & ScalarFields::operator=(ScalarFields && other) noexcept = default;
ScalarFields::~ScalarFields() = default;

void ScalarFields::DeepCopyFrom(ScalarFields const & other)
{
    if (this == &other)
        return;
    // Through the virtual operations, so that a collection kept elsewhere (a frame) is written.
    Mapping const source = other.GetMapping();
    m_size = other.GetSizeOfScalarFields();
    for (QString const & name : GetNames())
        if (source.count(name) == 0)
            Remove(name);
    for (auto const & [name, field] : source)
        Add(name, *field);
}

void ScalarFields::MoveFrom(ScalarFields && other) noexcept
{
    *this = std::move(other);
}

std::shared_ptr<ScalarField<float>> ScalarFields::Add(QString const & name)
{
    return std::static_pointer_cast<ScalarField<float>>(Add(FrameStore::DT_FLOAT, name));
}

std::shared_ptr<ScalarFieldVariant> ScalarFields::Add(FrameStore::E_DataType type, QString const & name)
{
    std::unique_ptr<ScalarFieldVariant> field;
    Private::SwitchDataType(type, [&](auto tag) { field = std::make_unique<ScalarField<decltype(tag)>>(m_size); });
    if (!field)
        BASIS_THROW(Basis::Exception, "Unsupported scalar data type");
    return Add(name, std::move(field));
}

std::shared_ptr<ScalarFieldVariant> ScalarFields::Add(QString const & name, ScalarFieldVariant const & field)
{
    CheckFieldSize(field);
    return Add(name, field.CreateCopy());
}

std::shared_ptr<ScalarFieldVariant> ScalarFields::Add(QString const & name, ScalarFieldVariant && field)
{
    CheckFieldSize(field);
    return Add(name, field.MoveToNew());
}

std::shared_ptr<ScalarFieldVariant> ScalarFields::Add(QString const & name, std::unique_ptr<ScalarFieldVariant> field)
{
    CheckFieldSize(*field);
    std::shared_ptr<ScalarFieldVariant> shared(std::move(field));
    m_fields.insert_or_assign(name, shared);
    return shared;
}

std::shared_ptr<ScalarFieldVariant> ScalarFields::Get(QString const & name)
{
    auto const found = m_fields.find(name);
    if (found == m_fields.end())
        ThrowNotExisting(name);
    return found->second;
}

std::shared_ptr<ScalarFieldVariant const> ScalarFields::Get(QString const & name) const
{
    return const_cast<ScalarFields &>(*this).Get(name);
}

void ScalarFields::Set(QString const & name, ScalarFieldVariant const & field)
{
    Get(name)->Assign(field);
}

void ScalarFields::Remove(QString const & name)
{
    m_fields.erase(name);
}

bool ScalarFields::Contains(QString const & name) const
{
    return m_fields.count(name) != 0;
}

std::uint64_t ScalarFields::GetCount() const
{
    return m_fields.size();
}

QStringList ScalarFields::GetNames() const
{
    QStringList names;
    for (auto const & entry : m_fields)
        names.append(entry.first);
    return names;
}

Math::Size2T<unsigned int> ScalarFields::GetSizeOfScalarFields() const
{
    return m_size;
}

void ScalarFields::Clear()
{
    m_fields.clear();
}

ScalarFields::Mapping ScalarFields::GetMapping() const
{
    return m_fields;
}

void ScalarFields::CheckFieldSize(ScalarFieldVariant const & field) const
{
    if (field.GetSize() != GetSizeOfScalarFields())
        BASIS_THROW(Basis::VerificationFailed, "Source scalar field has wrong size.");
}

void ScalarFields::ThrowNotExisting(QString const & name)
{
    BASIS_THROW(Basis::VerificationFailed, "Scalar field '" << name << "' is not existing.");
}

} // namespace DataObjects
