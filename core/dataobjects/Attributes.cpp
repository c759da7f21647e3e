#include "dataobjects/Attributes.h"

namespace DataObjects {

C_Attributes::~C_Attributes() = default;

void MergeAttributes(C_Attributes & target, C_Attributes const & source, bool overwrite)
{
    for (C_Attribute const & attribute : source.GetAttributes()) {
        bool const present = target.Contains(attribute.GetName());
        if (present && overwrite)
            target.Remove(attribute.GetName());
        if (!present || overwrite)
            target.Set(attribute);
    }
}

} // namespace DataObjects
