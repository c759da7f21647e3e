#include "dataobjects/ImageMemory.h"

namespace DataObjects {

I_ImageMemory::~I_ImageMemory() = default;

} // namespace DataObjects
