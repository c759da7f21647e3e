#pragma once

#include "basis/Logger.h"

#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

namespace Basis::Logging {

//! Keeps the most recent records in memory, optionally echoing each to stderr as one line.
class MemorySink : public I_Sink
{
public:
    static constexpr std::size_t DefaultCapacity = 1000;

    explicit MemorySink(std::size_t capacity = DefaultCapacity, bool echoToStderr = false);

    void Write(Record const & record) override;

    //! A copy of the records kept, oldest first.
    std::vector<Record> GetRecords() const;
    std::size_t GetCapacity() const { return m_capacity; }
    void Clear();

    //! The one-line form used for stderr: "time severity category: message (file:line)".
    static QString Format(Record const & record);

private:
    std::size_t const m_capacity;
    bool const m_echo;
    mutable std::mutex m_mutex;
    std::deque<Record> m_records;
};

} // namespace Basis::Logging
