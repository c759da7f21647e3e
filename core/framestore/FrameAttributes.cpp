#include "framestore/FrameAttributes.h"

#include "framestore/Frame.h"

#include <charconv>

namespace FrameStore {

namespace {
// The shortest text that reads back as the same number, independent of the locale.
template <class T>
std::string ToText(T value)
{
    char text[32];
    auto const end = std::to_chars(text, text + sizeof text, value).ptr;
    return std::string(text, end);
}
} // namespace

C_FrameAttributes::C_FrameAttributes(I_Frame * frame)
    : m_frame(frame)
{
}

std::string C_FrameAttributes::GetString(std::string const & name) const
{
    I_AttributeBase const * node = m_frame ? m_frame->FindAttribute(name) : nullptr;
    if (!node)
        return {};
    switch (node->GetKind()) {
    case AT_STRING: return static_cast<I_Attribute<std::string> const *>(node)->GetValue();
    case AT_INT: return ToText(static_cast<I_Attribute<std::int64_t> const *>(node)->GetValue());
    case AT_UINT: return ToText(static_cast<I_Attribute<std::uint64_t> const *>(node)->GetValue());
    case AT_DOUBLE: return ToText(static_cast<I_Attribute<double> const *>(node)->GetValue());
    case AT_BOOL: return static_cast<I_Attribute<bool> const *>(node)->GetValue() ? "true" : "false";
    case AT_TIMESTAMP: return ToText(static_cast<I_Attribute<Basis::TimeStamp> const *>(node)->GetValue().ToSeconds());
    case AT_GROUP:
    case AT_PLANE:
    case AT_BINARY: break;
    }
    return {};
}

} // namespace FrameStore
