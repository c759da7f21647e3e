#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <mutex>

namespace Basis::Logging {

enum class Severity { Debug, Info, Warning, Error };

//! Text of a severity as it appears in log lines ("debug", "info", "warning", "error").
char const * SeverityName(Severity severity) noexcept;

//! One log entry. The logger stamps the time when the writer left it unset.
struct Record
{
    Severity severity = Severity::Info;
    QString category; //!< who speaks: an exception kind, a library, a subsystem
    QString message;
    QString file;     //!< source file, relative to the source tree
    int line = 0;
    QDateTime time;
};

//! Where records go. A sink may be called from several threads at once and must be safe for it.
class I_Sink
{
public:
    virtual ~I_Sink();
    virtual void Write(Record const & record) = 0;
};

//! The process-wide logger.
//!
//! It forwards every record to one replaceable sink. The default sink is a MemorySink that
//! keeps the most recent records and echoes them to stderr when the environment variable
//! BASIS_LOG_STDERR is set to anything but 0.
class Logger
{
public:
    static Logger & Instance();

    void Write(Record record);

    //! Installs a sink and returns the one it replaces; a null sink restores the default.
    std::shared_ptr<I_Sink> SetSink(std::shared_ptr<I_Sink> sink);
    std::shared_ptr<I_Sink> GetSink() const;

    //! The sink the logger starts with.
    std::shared_ptr<I_Sink> const & GetDefaultSink() const { return m_defaultSink; }

private:
    Logger();

    std::shared_ptr<I_Sink> const m_defaultSink;
    mutable std::mutex m_mutex;
    std::shared_ptr<I_Sink> m_sink;
};

} // namespace Basis::Logging
