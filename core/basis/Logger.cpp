#include "basis/Logger.h"

#include "basis/MemorySink.h"

namespace Basis::Logging {

char const * SeverityName(Severity severity) noexcept
{
    switch (severity) {
    case Severity::Debug: return "debug";
    case Severity::Info: return "info";
    case Severity::Warning: return "warning";
    case Severity::Error: return "error";
    }
    return "unknown";
}

I_Sink::~I_Sink() = default;

Logger & Logger::Instance()
{
    static Logger logger;
    return logger;
}

namespace {
bool EchoRequested()
{
    QByteArray const value = qgetenv("BASIS_LOG_STDERR");
    return !value.isEmpty() && value != "0";
}
} // namespace

Logger::Logger()
    : m_defaultSink(std::make_shared<MemorySink>(MemorySink::DefaultCapacity, EchoRequested()))
    , m_sink(m_defaultSink)
{
}

void Logger::Write(Record record)
{
    if (!record.time.isValid())
        record.time = QDateTime::currentDateTimeUtc();
    // Write outside the lock: a slow sink must not serialise unrelated writers, and a sink that
    // logs by itself must not deadlock. The copy keeps a sink alive while it is being replaced.
    std::shared_ptr<I_Sink> sink = GetSink();
    sink->Write(record);
}

std::shared_ptr<I_Sink> Logger::SetSink(std::shared_ptr<I_Sink> sink)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::shared_ptr<I_Sink> previous = std::move(m_sink);
    m_sink = sink ? std::move(sink) : m_defaultSink;
    return previous;
}

std::shared_ptr<I_Sink> Logger::GetSink() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_sink;
}

} // namespace Basis::Logging
