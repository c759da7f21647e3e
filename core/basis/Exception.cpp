#include "basis/Throw.h"

#include "basis/Logger.h"

namespace Basis {

Exception::Exception(QString message)
    : m_message(std::move(message))
    , m_what(m_message.toUtf8())
{
}

Exception::~Exception() = default;

void Exception::setLocation(QString file, int line)
{
    m_file = std::move(file);
    m_line = line;
}

void Exception::log() const
{
    Logging::Logger::Instance().Write(
        {Logging::Severity::Error, QString::fromLatin1(kindName()), m_message, m_file, m_line, {}});
}

char const * Exception::what() const noexcept { return m_what.constData(); }

char const * Exception::kindName() const noexcept { return "Basis::Exception"; }
char const * VerificationFailed::kindName() const noexcept { return "Basis::VerificationFailed"; }
char const * InvalidArgumentError::kindName() const noexcept { return "Basis::InvalidArgumentError"; }
char const * OutOfRangeError::kindName() const noexcept { return "Basis::OutOfRangeError"; }
char const * InvalidRequest::kindName() const noexcept { return "Basis::InvalidRequest"; }
char const * FileError::kindName() const noexcept { return "Basis::FileError"; }

template <class E>
void Raise(QString const & message, char const * file, int line)
{
    E failure(message);
    failure.setLocation(QString::fromLatin1(file), line);
    failure.log();
    throw failure;
}

template void Raise<Exception>(QString const &, char const *, int);
template void Raise<VerificationFailed>(QString const &, char const *, int);
template void Raise<InvalidArgumentError>(QString const &, char const *, int);
template void Raise<OutOfRangeError>(QString const &, char const *, int);
template void Raise<InvalidRequest>(QString const &, char const *, int);
template void Raise<FileError>(QString const &, char const *, int);

} // namespace Basis
