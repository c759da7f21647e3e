#include "dataobjects/SharedImageMemory.h"

#include <utility>

namespace DataObjects::Private {

SharedImageMemory::SharedImageMemory(std::shared_ptr<void> owner, void * address)
    : m_owner(std::move(owner))
    , m_address(address)
{
}

std::shared_ptr<I_ImageMemory> SharedImageMemory::Share(std::unique_ptr<I_ImageMemory> holder)
{
    return std::shared_ptr<I_ImageMemory>(holder.release(), [](I_ImageMemory * memory) {
        memory->Release();
        delete memory;
    });
}

} // namespace DataObjects::Private
