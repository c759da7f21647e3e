#pragma once

#include "dataobjects/ImageMemory.h"

#include <memory>

namespace DataObjects::Private {

//! A plane's share of a block that several planes view: keeps the block's owner alive and points
//! at the plane's first pixel. The owner goes when its last plane goes.
class SharedImageMemory final : public I_ImageMemory
{
public:
    SharedImageMemory(std::shared_ptr<void> owner, void * address);
    void * GetAddress() const override { return m_address; }
    //! Nothing to hand back: the shared owner releases the block.
    void Release() override {}

    //! Shares a holder between planes: the holder's own Release is called once, when the last
    //! share goes, and the holder is destroyed right after.
    static std::shared_ptr<I_ImageMemory> Share(std::unique_ptr<I_ImageMemory> holder);

private:
    std::shared_ptr<void> m_owner;
    void * m_address;
};

} // namespace DataObjects::Private
