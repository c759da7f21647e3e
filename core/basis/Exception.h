#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace Basis {

//! Base of every failure the suite raises.
//!
//! Carries a message, the source location of the throw site and a log() that writes it to the
//! process log. Failures are raised through BASIS_THROW (basis/Throw.h), which composes the
//! message, records the location and logs before it throws, so every failure is logged where it
//! arises. what() gives the message as UTF-8 for callers that know nothing of Basis.
class Exception : public std::exception
{
public:
    explicit Exception(QString message);
    ~Exception() override;

    QString const & message() const noexcept { return m_message; }
    void setLocation(QString file, int line);
    QString const & file() const noexcept { return m_file; }
    int line() const noexcept { return m_line; }

    //! Writes the failure to the process log with its kind, message and location.
    void log() const;

    char const * what() const noexcept override;

    //! The qualified class name, as it appears in the log ("Basis::VerificationFailed").
    virtual char const * kindName() const noexcept;

private:
    QString m_message;
    QByteArray m_what;
    QString m_file;
    int m_line = 0;
};

//! A violated precondition or invariant: sizes that differ, a null pointer, a wrong layout.
class VerificationFailed : public Exception
{
public:
    using Exception::Exception;
    char const * kindName() const noexcept override;
};

//! A bad argument value.
class InvalidArgumentError : public Exception
{
public:
    using Exception::Exception;
    char const * kindName() const noexcept override;
};

//! An index outside its range.
class OutOfRangeError : public Exception
{
public:
    using Exception::Exception;
    char const * kindName() const noexcept override;
};

//! A request the object cannot serve.
class InvalidRequest : public Exception
{
public:
    using Exception::Exception;
    char const * kindName() const noexcept override;
};

//! A file that cannot be read or written.
class FileError : public Exception
{
public:
    using Exception::Exception;
    char const * kindName() const noexcept override;
};

} // namespace Basis
