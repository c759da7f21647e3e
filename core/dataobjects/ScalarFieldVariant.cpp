#include "dataobjects/ScalarFieldVariant.h"

namespace DataObjects {

ScalarFieldVariant::~ScalarFieldVariant() = default;

} // namespace DataObjects
