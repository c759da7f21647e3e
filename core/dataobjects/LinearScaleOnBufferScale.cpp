#include "dataobjects/LinearScaleOnBufferScale.h"

#include "basis/Throw.h"
#include "framestore/Scale.h"

namespace DataObjects::Private {

LinearScaleOnBufferScale::LinearScaleOnBufferScale(FrameStore::I_Scale * scale)
    : m_scale(scale)
{
    if (!scale)
        BASIS_THROW(Basis::VerificationFailed, "Scale does not exist");
    if (scale->GetKind() != FrameStore::SK_LINEAR)
        BASIS_THROW(Basis::VerificationFailed, "Scale is not linear.");
}

// The base is left at the identity: LinearScale's copy constructor would copy values.
LinearScaleOnBufferScale::LinearScaleOnBufferScale(LinearScaleOnBufferScale const & other)
    : LinearScale()
    , m_scale(other.m_scale)
{
}

LinearScaleOnBufferScale & LinearScaleOnBufferScale::operator=(LinearScaleOnBufferScale const & other)
{
    // The factor goes first, so a refused factor leaves the frame scale untouched.
    LinearScale::operator=(other);
    return *this;
}

LinearScaleOnBufferScale::~LinearScaleOnBufferScale() = default;

// A linear scale has the same factor and offset everywhere; ask at 0.
double LinearScaleOnBufferScale::GetFactor() const { return m_scale->GetFactor(0.0); }
double LinearScaleOnBufferScale::GetOffset() const { return m_scale->GetOffset(0.0); }
std::string LinearScaleOnBufferScale::GetUnit() const { return m_scale->GetUnit(); }
std::string LinearScaleOnBufferScale::GetDescription() const { return m_scale->GetDescription(); }

void LinearScaleOnBufferScale::SetFactor(double factor)
{
    if (factor == 0.0)
        BASIS_THROW(Basis::VerificationFailed, "Factor of linear scale must not be 0.");
    m_scale->SetFactor(factor);
}

void LinearScaleOnBufferScale::SetOffset(double offset) { m_scale->SetOffset(offset); }
void LinearScaleOnBufferScale::SetUnit(std::string const & unit) { m_scale->SetUnit(unit); }
void LinearScaleOnBufferScale::SetDescription(std::string const & description)
{
    m_scale->SetDescription(description);
}

} // namespace DataObjects::Private
