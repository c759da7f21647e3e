#pragma once

#include "basis/Exception.h"
#include "basis/MessageStream.h"

namespace Basis {

//! Builds a failure of kind E from a message, records where it arose, logs it and throws it
//! by value. Called only through BASIS_THROW.
template <class E>
[[noreturn]] void Raise(QString const & message, char const * file, int line);

extern template void Raise<Exception>(QString const &, char const *, int);
extern template void Raise<VerificationFailed>(QString const &, char const *, int);
extern template void Raise<InvalidArgumentError>(QString const &, char const *, int);
extern template void Raise<OutOfRangeError>(QString const &, char const *, int);
extern template void Raise<InvalidRequest>(QString const &, char const *, int);
extern template void Raise<FileError>(QString const &, char const *, int);

} // namespace Basis

//! The one way a failure is raised in this code base:
//!     BASIS_THROW(Basis::VerificationFailed, "Plane " << z << " of " << depth << " is missing");
//! The pieces are composed with a QTextStream; std::string pieces cross as Latin-1.
#define BASIS_THROW(Kind, pieces) \
    ::Basis::Raise<Kind>((::Basis::MessageStream() << pieces).Text(), __FILE__, __LINE__)
