#pragma once

#include "dataobjects/AttributeValue.h"
#include "dataobjects/ConsecutiveMemory.h"

#include <memory>

namespace DataObjects {

//! An attribute that keeps a consecutive block of volume planes alive: every clone held by an
//! attribute set shares the block. Its value, as any attribute set shows it, is the block's
//! element count.
template <class T>
class ConsecutiveMemoryAttribute final : public C_AttributeValue
{
public:
    explicit ConsecutiveMemoryAttribute(std::shared_ptr<ConsecutiveMemory<T>> memory);

    std::unique_ptr<C_AttributeValue> Clone() const override;
    std::shared_ptr<ConsecutiveMemory<T>> const & GetMemory() const { return m_memory; }

private:
    std::shared_ptr<ConsecutiveMemory<T>> m_memory;
};

#define DATAOBJECTS_DECLARE_CONSECUTIVE_MEMORY_ATTRIBUTE(T) extern template class ConsecutiveMemoryAttribute<T>;
DATAOBJECTS_FOR_EACH_PIXEL_TYPE(DATAOBJECTS_DECLARE_CONSECUTIVE_MEMORY_ATTRIBUTE)
#undef DATAOBJECTS_DECLARE_CONSECUTIVE_MEMORY_ATTRIBUTE

} // namespace DataObjects
