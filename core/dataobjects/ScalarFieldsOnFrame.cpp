#include "dataobjects/ScalarFieldsOnFrame.h"

#include "dataobjects/ScalarFieldFromFrame.h"
#include "dataobjects/TypeSwitch.h"
#include "framestore/Frame.h"
#include "framestore/TypedScalarFrame.h"

#include <algorithm>

namespace DataObjects::Private {

namespace {

std::string Latin1(QString const & name)
{
    return name.toLatin1().toStdString();
}

} // namespace

ScalarFieldsOnFrame::ScalarFieldsOnFrame(FrameStore::I_Frame & frame, unsigned int z)
    : ScalarFields(frame.GetWidth(), frame.GetHeight())
    , m_frame(&frame)
    , m_z(z)
{
}

void ScalarFieldsOnFrame::CheckPlaneIndex() const
{
    if (m_z >= m_frame->GetDepth())
        BASIS_THROW(Basis::VerificationFailed, "Invalid plane index");
}

std::shared_ptr<ScalarField<float>> ScalarFieldsOnFrame::Add(QString const & name)
{
    return std::static_pointer_cast<ScalarField<float>>(Add(FrameStore::DT_FLOAT, name));
}

std::shared_ptr<ScalarFieldVariant> ScalarFieldsOnFrame::Add(FrameStore::E_DataType type, QString const & name)
{
    if (!SwitchDataType(type, [](auto) {}))
        BASIS_THROW(Basis::Exception, "Unsupported scalar data type");
    CheckPlaneIndex();
    FrameStore::CreateTypedScalarInFrame(m_frame, Latin1(name), type);
    return Get(name);
}

std::shared_ptr<ScalarFieldVariant> ScalarFieldsOnFrame::Add(QString const & name, ScalarFieldVariant const & field)
{
    CheckFieldSize(field);
    CheckPlaneIndex();
    if (!Contains(name))
        FrameStore::CreateTypedScalarInFrame(m_frame, Latin1(name), field.GetDataType());
    std::shared_ptr<ScalarFieldVariant> stored = Get(name);
    stored->Assign(field);
    return stored;
}

std::shared_ptr<ScalarFieldVariant> ScalarFieldsOnFrame::Add(QString const & name, ScalarFieldVariant && field)
{
    return Add(name, static_cast<ScalarFieldVariant const &>(field));
}

std::shared_ptr<ScalarFieldVariant> ScalarFieldsOnFrame::Add(QString const & name,
                                                             std::unique_ptr<ScalarFieldVariant> field)
{
    return Add(name, static_cast<ScalarFieldVariant const &>(*field));
}

std::shared_ptr<ScalarFieldVariant> ScalarFieldsOnFrame::Get(QString const & name)
{
    if (!Contains(name))
        ThrowNotExisting(name);
    return GetScalarField(*m_frame, Latin1(name), m_z);
}

std::shared_ptr<ScalarFieldVariant const> ScalarFieldsOnFrame::Get(QString const & name) const
{
    return const_cast<ScalarFieldsOnFrame &>(*this).Get(name);
}

void ScalarFieldsOnFrame::Set(QString const & name, ScalarFieldVariant const & field)
{
    Add(name, field);
}

void ScalarFieldsOnFrame::Remove(QString const & name)
{
    if (!m_frame->GetComponent(Latin1(name)))
        return;
    if (m_frame->GetDepth() != 1)
        BASIS_THROW(Basis::VerificationFailed, "Removing scalar fields of multi-plane-frames is not supported.");
    try {
        m_frame->RemoveComponent(Latin1(name));
    } catch (Basis::Exception const & failure) {
        BASIS_THROW(Basis::Exception,
                    "Removing scalar field '" << name << "' from frame failed: " << failure.message());
    }
}

bool ScalarFieldsOnFrame::Contains(QString const & name) const
{
    return FrameStore::C_TypedScalarFrame(m_frame, Latin1(name)).IsExisting();
}

std::uint64_t ScalarFieldsOnFrame::GetCount() const
{
    return m_frame->GetTypedScalarNames().size();
}

QStringList ScalarFieldsOnFrame::GetNames() const
{
    QStringList names;
    for (std::string const & name : m_frame->GetTypedScalarNames())
        names.append(QString::fromLatin1(name.c_str(), int(name.size())));
    std::sort(names.begin(), names.end());
    return names;
}

Math::Size2T<unsigned int> ScalarFieldsOnFrame::GetSizeOfScalarFields() const
{
    return {m_frame->GetWidth(), m_frame->GetHeight()};
}

void ScalarFieldsOnFrame::Clear()
{
    if (m_frame->GetDepth() != 1)
        BASIS_THROW(Basis::VerificationFailed, "Clearing scalar fields of multi-plane-frames is not supported.");
    for (std::string const & name : m_frame->GetTypedScalarNames())
        m_frame->RemoveComponent(name);
}

ScalarFields::Mapping ScalarFieldsOnFrame::GetMapping() const
{
    Mapping mapping;
    for (QString const & name : GetNames())
        mapping.emplace(name, const_cast<ScalarFieldsOnFrame &>(*this).Get(name));
    return mapping;
}

} // namespace DataObjects::Private
