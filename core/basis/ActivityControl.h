#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

namespace Basis {

//! What long work reports to and asks of its caller: progress, and whether to stop early.
//!
//! Operations take it by const reference and may call it from the thread that does the work;
//! an implementation decides itself how to hand progress to a user interface.
class I_ActivityControl
{
public:
    virtual ~I_ActivityControl();

    //! done of total steps are finished; total may be 0 when it is unknown.
    virtual void ReportProgress(std::uint64_t done, std::uint64_t total) const = 0;
    //! True once the caller wants the work abandoned; the work stops at its next safe point.
    virtual bool IsCancelRequested() const = 0;
};

//! An activity control over a progress callback and a cancel flag that any thread may set.
//! Default-constructed it reports nowhere and never cancels.
class C_ActivityControl : public I_ActivityControl
{
public:
    using ProgressFunction = std::function<void(std::uint64_t done, std::uint64_t total)>;

    C_ActivityControl() = default;
    explicit C_ActivityControl(ProgressFunction progress);

    void ReportProgress(std::uint64_t done, std::uint64_t total) const override;
    bool IsCancelRequested() const override;

    void RequestCancel();

private:
    ProgressFunction m_progress;
    std::atomic<bool> m_cancel{false};
};

} // namespace Basis
