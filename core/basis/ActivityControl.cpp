#include "basis/ActivityControl.h"

namespace Basis {

I_ActivityControl::~I_ActivityControl() = default;

C_ActivityControl::C_ActivityControl(ProgressFunction progress)
    : m_progress(std::move(progress))
{
}

void C_ActivityControl::ReportProgress(std::uint64_t done, std::uint64_t total) const
{
    if (m_progress)
        m_progress(done, total);
}

bool C_ActivityControl::IsCancelRequested() const { return m_cancel.load(std::memory_order_relaxed); }

void C_ActivityControl::RequestCancel() { m_cancel.store(true, std::memory_order_relaxed); }

} // namespace Basis
