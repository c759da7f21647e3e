#include "basis/DeveloperLogger.h"

namespace Basis::Logging {

DeveloperLogger::DeveloperLogger(QString category, char const * file, int line)
    : m_category(std::move(category))
    , m_file(file)
    , m_line(line)
{
}

DeveloperLogger::~DeveloperLogger()
{
    // A log line must never take the process down, not even when memory runs out.
    try {
        Logger::Instance().Write({Severity::Debug, m_category, m_stream.Text(),
                                  m_file ? QString::fromLatin1(m_file) : QString(), m_line, {}});
    } catch (...) {
    }
}

} // namespace Basis::Logging
