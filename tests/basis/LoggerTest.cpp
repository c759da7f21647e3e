#include "basis/DeveloperLogger.h"
#include "basis/Logger.h"
#include "basis/MemorySink.h"

#include "BasisTesting.h"

#include <string>
#include <thread>
#include <vector>

using namespace Basis::Logging;

namespace {

// Puts back the sink it replaced even when an assertion fails, since every other test relies
// on the program's capturing sink.
class SinkGuard
{
public:
    explicit SinkGuard(std::shared_ptr<I_Sink> sink) : m_previous(Logger::Instance().SetSink(std::move(sink))) {}
    ~SinkGuard() { Logger::Instance().SetSink(m_previous); }
    SinkGuard(SinkGuard const &) = delete;
    SinkGuard & operator=(SinkGuard const &) = delete;
    std::shared_ptr<I_Sink> const m_previous;
};

Record MakeRecord(QString message, int line = 0)
{
    Record r;
    r.category = QStringLiteral("Test");
    r.message = std::move(message);
    r.line = line;
    return r;
}

} // namespace

TEST(Logger, SetSinkReturnsPreviousAndNullRestoresDefault)
{
    Logger & logger = Logger::Instance();
    ASSERT_NE(logger.GetDefaultSink(), nullptr);
    std::size_t const captured = Testing::LogCapture().GetCount();
    auto const mine = std::make_shared<MemorySink>();
    {
        SinkGuard guard(mine);
        EXPECT_EQ(guard.m_previous.get(), &Testing::LogCapture());
        EXPECT_EQ(logger.GetSink(), mine);

        // The logger stamps records that come without a time.
        QDateTime const before = QDateTime::currentDateTimeUtc();
        logger.Write(MakeRecord(QStringLiteral("unstamped")));
        QDateTime const after = QDateTime::currentDateTimeUtc();
        ASSERT_EQ(mine->GetRecords().size(), 1u);
        QDateTime const stamped = mine->GetRecords()[0].time;
        EXPECT_TRUE(stamped.isValid() && before <= stamped && stamped <= after);
        EXPECT_EQ(Testing::LogCapture().GetCount(), captured);

        EXPECT_EQ(logger.SetSink(nullptr), mine);
        EXPECT_EQ(logger.GetSink(), logger.GetDefaultSink());
        EXPECT_EQ(logger.SetSink(mine), logger.GetDefaultSink());
    }
    EXPECT_EQ(logger.GetSink().get(), &Testing::LogCapture());
}

TEST(MemorySink, KeepsNewestRecordsInOrderAndFormats)
{
    EXPECT_EQ(MemorySink().GetCapacity(), MemorySink::DefaultCapacity);
    MemorySink sink(3);
    for (int i = 0; i < 5; ++i)
        sink.Write(MakeRecord(QString::number(i)));
    auto const records = sink.GetRecords();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].message, QStringLiteral("2"));
    EXPECT_EQ(records[1].message, QStringLiteral("3"));
    EXPECT_EQ(records[2].message, QStringLiteral("4"));
    sink.Clear();
    EXPECT_TRUE(sink.GetRecords().empty());

    Record r = MakeRecord(QStringLiteral("3 of 4 frames lost"), 12);
    r.severity = Severity::Warning;
    r.category = QStringLiteral("FrameStore");
    r.file = QStringLiteral("core/framestore/Import.cpp");
    r.time = QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26), Qt::UTC);
    QString const text = MemorySink::Format(r);
    QString const tail = QStringLiteral(" warning FrameStore: 3 of 4 frames lost (core/framestore/Import.cpp:12)");
    EXPECT_TRUE(text.endsWith(tail)) << text.toStdString();
    EXPECT_GT(text.size(), tail.size()) << "no time in " << text.toStdString();
    EXPECT_FALSE(text.contains(QLatin1Char('\n')));
    EXPECT_STREQ(SeverityName(Severity::Debug), "debug");
    EXPECT_STREQ(SeverityName(Severity::Error), "error");
}

TEST(DeveloperLogger, WritesOneDebugRecordWhenTheStatementEnds)
{
    std::size_t const before = Testing::LogCapture().GetCount();
    int const line = __LINE__ + 1;
    BASIS_DEV_LOG("FrameStore") << "imported " << 3 << " frames from " << std::string("a\xB5.tif");
    auto const records = Testing::LogCapture().GetRecords();
    ASSERT_EQ(records.size(), before + 1);
    Record const & r = records.back();
    EXPECT_EQ(r.severity, Severity::Debug);
    EXPECT_EQ(r.category, QStringLiteral("FrameStore"));
    EXPECT_EQ(r.message, QString::fromLatin1("imported 3 frames from a\xB5.tif"));
    EXPECT_EQ(r.file, QStringLiteral("tests/basis/LoggerTest.cpp"));
    EXPECT_EQ(r.line, line);

    {
        DeveloperLogger log(QStringLiteral("Scope"), __FILE__, __LINE__);
        log << "pending";
        EXPECT_EQ(Testing::LogCapture().GetCount(), before + 1);
    }
    EXPECT_EQ(Testing::LogCapture().GetCount(), before + 2);
}

TEST(MemorySink, ConcurrentWritesLoseNothing)
{
    constexpr int Threads = 6, PerThread = 2000;
    auto const sink = std::make_shared<MemorySink>(Threads * PerThread);
    SinkGuard guard(sink);
    std::vector<std::thread> threads;
    for (int t = 0; t < Threads; ++t)
        threads.emplace_back([&sink, t] {
            // Half straight into the sink, half through the logger.
            for (int i = 0; i < PerThread; ++i) {
                if (i % 2)
                    Logger::Instance().Write(MakeRecord(QString::number(t), i));
                else
                    sink->Write(MakeRecord(QString::number(t), i));
            }
        });
    for (auto & thread : threads)
        thread.join();

    auto const records = sink->GetRecords();
    ASSERT_EQ(records.size(), std::size_t(Threads * PerThread));
    // Each thread's records arrive complete and in its own order.
    std::vector<int> next(Threads, 0);
    for (auto const & r : records) {
        int const t = r.message.toInt();
        ASSERT_TRUE(t >= 0 && t < Threads);
        ASSERT_EQ(r.line, next[t]++);
    }
}
