#include "framestore/FrameAttributes.h"

#include "framestore/Frame.h"

#include <locale>
#include <sstream>

namespace FrameStore {

C_FrameAttributes::C_FrameAttributes(I_Frame * frame)
    : m_frame(frame)
{
}

std::string C_FrameAttributes::GetString(std::string const & name) const
{
    I_AttributeBase const * node = m_frame ? m_frame->FindAttribute(name) : nullptr;
    if (!node)
        return {};
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    switch (node->GetKind()) {
    case AT_STRING: return static_cast<I_Attribute<std::string> const *>(node)->GetValue();
    case AT_INT: text << static_cast<I_Attribute<std::int64_t> const *>(node)->GetValue(); break;
    case AT_UINT: text << static_cast<I_Attribute<std::uint64_t> const *>(node)->GetValue(); break;
    case AT_DOUBLE: text << static_cast<I_Attribute<double> const *>(node)->GetValue(); break;
    case AT_BOOL: text << (static_cast<I_Attribute<bool> const *>(node)->GetValue() ? "true" : "false"); break;
    case AT_TIMESTAMP: text << static_cast<I_Attribute<Basis::TimeStamp> const *>(node)->GetValue().ToSeconds(); break;
    case AT_GROUP:
    case AT_PLANE:
    case AT_BINARY: break;
    }
    return text.str();
}

} // namespace FrameStore
