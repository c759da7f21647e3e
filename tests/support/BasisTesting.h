#pragma once

#include "basis/Exception.h"
#include "basis/Logger.h"

#include <gtest/gtest.h>

#include <QString>

#include <functional>
#include <mutex>
#include <typeinfo>
#include <vector>

namespace Testing {

//! A log sink that keeps every record, installed for the whole test program.
class CapturingSink : public Basis::Logging::I_Sink
{
public:
    void Write(Basis::Logging::Record const & record) override;
    std::vector<Basis::Logging::Record> GetRecords() const;
    std::size_t GetCount() const;

private:
    mutable std::mutex m_mutex;
    std::vector<Basis::Logging::Record> m_records;
};

CapturingSink & LogCapture();

//! Succeeds when statement throws exactly the Basis kind with exactly the message, carrying a
//! source location, and the failure was logged with the same kind, message and location.
::testing::AssertionResult BasisThrows(std::function<void()> const & statement, std::type_info const & kind,
                                       QString const & message);

} // namespace Testing

#define EXPECT_BASIS_THROW(statement, Kind, message) \
    EXPECT_TRUE(::Testing::BasisThrows([&] { statement; }, typeid(Kind), QString(message)))
#define ASSERT_BASIS_THROW(statement, Kind, message) \
    ASSERT_TRUE(::Testing::BasisThrows([&] { statement; }, typeid(Kind), QString(message)))
