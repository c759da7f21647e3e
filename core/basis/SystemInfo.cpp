#include "basis/SystemInfo.h"

#include <QByteArray>
#include <QFile>

#include <thread>
#include <unistd.h>

namespace Basis {

namespace {

// A "Key:   12345 kB" line of /proc/meminfo in bytes, or 0 when it cannot be read.
std::uint64_t ReadMemInfo(QByteArray const & key)
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        if (!line.startsWith(key + ':'))
            continue;
        QList<QByteArray> const parts = line.mid(key.size() + 1).simplified().split(' ');
        bool ok = false;
        std::uint64_t const value = parts.value(0).toULongLong(&ok);
        if (!ok)
            return 0;
        return parts.value(1) == "kB" ? value * 1024 : value;
    }
    return 0;
}

std::uint64_t SysconfPages(int name)
{
    long const pages = sysconf(name);
    long const pageSize = sysconf(_SC_PAGESIZE);
    return pages > 0 && pageSize > 0 ? std::uint64_t(pages) * std::uint64_t(pageSize) : 0;
}

} // namespace

std::uint64_t C_SystemInfo::GetTotalPhysicalMemory()
{
    std::uint64_t const bytes = SysconfPages(_SC_PHYS_PAGES);
    return bytes ? bytes : ReadMemInfo("MemTotal");
}

std::uint64_t C_SystemInfo::GetAvailablePhysicalMemory()
{
    // MemAvailable counts reclaimable caches, which free pages alone do not.
    std::uint64_t const bytes = ReadMemInfo("MemAvailable");
    return bytes ? bytes : SysconfPages(_SC_AVPHYS_PAGES);
}

unsigned int C_SystemInfo::GetProcessorCount()
{
    unsigned int const count = std::thread::hardware_concurrency();
    return count ? count : 1;
}

} // namespace Basis
