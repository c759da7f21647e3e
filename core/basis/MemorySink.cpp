#include "basis/MemorySink.h"

#include <cstdio>

namespace Basis::Logging {

MemorySink::MemorySink(std::size_t capacity, bool echoToStderr)
    : m_capacity(capacity)
    , m_echo(echoToStderr)
{
}

void MemorySink::Write(Record const & record)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_capacity > 0) {
        if (m_records.size() == m_capacity)
            m_records.pop_front();
        m_records.push_back(record);
    }
    if (m_echo) {
        QByteArray const line = Format(record).toLocal8Bit();
        std::fprintf(stderr, "%s\n", line.constData());
    }
}

std::vector<Record> MemorySink::GetRecords() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return {m_records.begin(), m_records.end()};
}

void MemorySink::Clear()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_records.clear();
}

QString MemorySink::Format(Record const & record)
{
    QString text = record.time.toString(Qt::ISODateWithMs) + QLatin1Char(' ')
                   + QLatin1String(SeverityName(record.severity)) + QLatin1Char(' ') + record.category
                   + QLatin1String(": ") + record.message;
    if (!record.file.isEmpty())
        text += QStringLiteral(" (%1:%2)").arg(record.file).arg(record.line);
    return text;
}

} // namespace Basis::Logging
