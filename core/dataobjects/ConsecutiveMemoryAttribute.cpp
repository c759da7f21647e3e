#include "dataobjects/ConsecutiveMemoryAttribute.h"

#include <utility>

namespace DataObjects {

template <class T>
ConsecutiveMemoryAttribute<T>::ConsecutiveMemoryAttribute(std::shared_ptr<ConsecutiveMemory<T>> memory)
    : C_AttributeValue(static_cast<unsigned long long>(memory ? memory->GetElementCount() : 0))
    , m_memory(std::move(memory))
{
}

template <class T>
std::unique_ptr<C_AttributeValue> ConsecutiveMemoryAttribute<T>::Clone() const
{
    return std::make_unique<ConsecutiveMemoryAttribute>(*this);
}

#define DATAOBJECTS_INSTANTIATE_CONSECUTIVE_MEMORY_ATTRIBUTE(T) template class ConsecutiveMemoryAttribute<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_INSTANTIATE_CONSECUTIVE_MEMORY_ATTRIBUTE)

} // namespace DataObjects
