#include "framestore/TypedScalarFrame.h"

#include "basis/Throw.h"
#include "framestore/Frame.h"
#include "framestore/Scale.h"

namespace FrameStore {

I_Component * CreateTypedScalarInFrame(I_Frame * frame, std::string const & name, E_DataType type)
{
    if (!frame)
        BASIS_THROW(Basis::InvalidRequest, "No frame to add the typed scalar '" << name << "' to");
    return frame->AddTypedScalar(name, type);
}

C_TypedScalarFrame::C_TypedScalarFrame(I_Frame * frame, std::string name)
    : m_frame(frame)
    , m_name(std::move(name))
{
}

I_Component * C_TypedScalarFrame::Find() const
{
    I_Component * component = m_frame ? m_frame->GetComponent(m_name) : nullptr;
    return component && component->GetKind() == CK_TYPED_SCALAR ? component : nullptr;
}

bool C_TypedScalarFrame::IsExisting() const { return Find() != nullptr; }

I_Component * C_TypedScalarFrame::GetComponent(unsigned int z) const
{
    return m_frame && z < m_frame->GetDepth() ? Find() : nullptr;
}

void C_TypedScalarFrame::SetLinearScale(double factor, double offset, std::string const & unit,
                                        std::string const & description)
{
    if (I_Component * component = Find())
        component->SetScale(C_ScaleFactory::GetInstance().CreateLinearScale(factor, offset, unit, description));
}

} // namespace FrameStore
