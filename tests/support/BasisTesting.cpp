#include "BasisTesting.h"

#include <memory>

namespace Testing {

void CapturingSink::Write(Basis::Logging::Record const & record)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_records.push_back(record);
}

std::vector<Basis::Logging::Record> CapturingSink::GetRecords() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_records;
}

std::size_t CapturingSink::GetCount() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_records.size();
}

namespace {
std::shared_ptr<CapturingSink> const & SharedCapture()
{
    static auto const sink = std::make_shared<CapturingSink>();
    return sink;
}
} // namespace

CapturingSink & LogCapture() { return *SharedCapture(); }

::testing::AssertionResult BasisThrows(std::function<void()> const & statement, std::type_info const & kind,
                                       QString const & message)
{
    std::size_t const before = LogCapture().GetCount();
    try {
        statement();
    } catch (Basis::Exception const & e) {
        if (typeid(e) != kind)
            return ::testing::AssertionFailure() << "threw " << e.kindName() << " \"" << e.message().toStdString()
                                                 << "\" instead of " << kind.name();
        if (e.message() != message)
            return ::testing::AssertionFailure() << "message \"" << e.message().toStdString() << "\" instead of \""
                                                 << message.toStdString() << "\"";
        if (e.file().isEmpty() || e.line() <= 0)
            return ::testing::AssertionFailure() << "no source location recorded";
        auto const records = LogCapture().GetRecords();
        for (std::size_t i = before; i < records.size(); ++i) {
            auto const & r = records[i];
            if (r.category == QLatin1String(e.kindName()) && r.message == message && r.file == e.file()
                && r.line == e.line())
                return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << "the failure was not logged where it was thrown";
    } catch (std::exception const & e) {
        return ::testing::AssertionFailure() << "threw a non-Basis exception: " << e.what();
    } catch (...) {
        return ::testing::AssertionFailure() << "threw something that is not an exception";
    }
    return ::testing::AssertionFailure() << "did not throw";
}

} // namespace Testing

int main(int argc, char ** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    Basis::Logging::Logger::Instance().SetSink(Testing::SharedCapture());
    return RUN_ALL_TESTS();
}
