#include "dataobjects/TypeSwitch.h"

#include "basis/Throw.h"

namespace DataObjects::Private {

void ThrowUnsupportedPixelType(char const * kind, char const * function)
{
    BASIS_THROW(Basis::Exception, kind << " type not supported by macro. Function is '" << function << "'.");
}

} // namespace DataObjects::Private
