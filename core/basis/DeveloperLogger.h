#pragma once

#include "basis/Logger.h"
#include "basis/MessageStream.h"

namespace Basis::Logging {

//! A developer log line: composed like a stream, written at debug severity when it goes out of
//! scope. Use through BASIS_DEV_LOG so that the source location is recorded:
//!     BASIS_DEV_LOG("FrameStore") << "imported " << count << " frames from " << path;
class DeveloperLogger
{
public:
    explicit DeveloperLogger(QString category, char const * file = nullptr, int line = 0);
    ~DeveloperLogger();
    DeveloperLogger(DeveloperLogger const &) = delete;
    DeveloperLogger & operator=(DeveloperLogger const &) = delete;

    template <class T>
    DeveloperLogger & operator<<(T const & value)
    {
        m_stream << value;
        return *this;
    }

private:
    QString m_category;
    char const * m_file;
    int m_line;
    MessageStream m_stream;
};

} // namespace Basis::Logging

#define BASIS_DEV_LOG(category) ::Basis::Logging::DeveloperLogger(QStringLiteral(category), __FILE__, __LINE__)
