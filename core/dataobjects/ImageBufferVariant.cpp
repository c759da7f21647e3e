#include "dataobjects/ImageBufferVariant.h"

namespace DataObjects {

ImageBufferVariant::~ImageBufferVariant() = default;

} // namespace DataObjects
