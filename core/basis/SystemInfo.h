#pragma once

#include <cstdint>

namespace Basis {

//! Facts about the machine, read from the operating system on every call.
class C_SystemInfo
{
public:
    //! Installed physical memory in bytes.
    static std::uint64_t GetTotalPhysicalMemory();
    //! Physical memory in bytes that can be had without swapping, as the kernel estimates it.
    static std::uint64_t GetAvailablePhysicalMemory();
    //! Number of processors that can run threads of this process.
    static unsigned int GetProcessorCount();
};

} // namespace Basis
