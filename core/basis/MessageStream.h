#pragma once

#include <QString>
#include <QTextStream>

#include <string>

namespace Basis {

//! Composes a message from text pieces, numbers and strings, the way every failure and
//! log line of the suite is composed. std::string crosses as Latin-1.
class MessageStream
{
public:
    MessageStream() : m_stream(&m_text) {}
    MessageStream(MessageStream const &) = delete;
    MessageStream & operator=(MessageStream const &) = delete;

    template <class T>
    MessageStream & operator<<(T const & value)
    {
        m_stream << value;
        return *this;
    }
    MessageStream & operator<<(std::string const & value)
    {
        m_stream << QString::fromLatin1(value.data(), int(value.size()));
        return *this;
    }

    //! The text composed so far.
    QString Text()
    {
        m_stream.flush();
        return m_text;
    }

private:
    QString m_text;
    QTextStream m_stream;
};

} // namespace Basis
