#include "basis/Throw.h"

#include "BasisTesting.h"

#include <exception>
#include <string>
#include <typeinfo>

namespace {

template <class Kind>
void ExpectCatchableAsBases(char const * kindName)
{
    SCOPED_TRACE(kindName);
    EXPECT_BASIS_THROW(BASIS_THROW(Kind, "x" << 1), Kind, "x1");
    int caught = 0;
    try {
        BASIS_THROW(Kind, kindName);
    } catch (Basis::Exception const & e) {
        ++caught;
        EXPECT_EQ(typeid(e), typeid(Kind));
        EXPECT_STREQ(e.kindName(), kindName);
    }
    try {
        BASIS_THROW(Kind, kindName);
    } catch (std::exception const & e) {
        ++caught;
        EXPECT_STREQ(e.what(), kindName);
    }
    EXPECT_EQ(caught, 2);
}

} // namespace

TEST(Throw, ComposesMessageRecordsLocationAndLogs)
{
    std::size_t const before = Testing::LogCapture().GetCount();
    QString const file = QStringLiteral("tests/basis/ExceptionTest.cpp");
    int line = 0;
    bool caught = false;
    try {
        line = __LINE__ + 1;
        BASIS_THROW(Basis::OutOfRangeError, "Plane " << 7 << " of " << -2 << ", " << 2.5 << ' ' << QString("q\u00e9") << " " << std::string("\xB5m"));
    } catch (Basis::OutOfRangeError const & e) {
        caught = true;
        // std::string crosses as Latin-1, so 0xB5 is U+00B5 and two UTF-8 bytes in what().
        QString const expected = QString::fromUtf8("Plane 7 of -2, 2.5 q\xC3\xA9 \xC2\xB5m");
        EXPECT_EQ(e.message(), expected);
        EXPECT_STREQ(e.what(), "Plane 7 of -2, 2.5 q\xC3\xA9 \xC2\xB5m");
        EXPECT_EQ(e.file(), file);
        EXPECT_EQ(e.line(), line);

        auto const records = Testing::LogCapture().GetRecords();
        ASSERT_EQ(records.size(), before + 1);
        EXPECT_EQ(records.back().category, QStringLiteral("Basis::OutOfRangeError"));
        EXPECT_EQ(records.back().message, expected);
        EXPECT_EQ(records.back().file, file);
        EXPECT_EQ(records.back().line, line);
    }
    EXPECT_TRUE(caught);
}

TEST(Throw, EveryKindIsCatchableAsItsBases)
{
    ExpectCatchableAsBases<Basis::Exception>("Basis::Exception");
    ExpectCatchableAsBases<Basis::VerificationFailed>("Basis::VerificationFailed");
    ExpectCatchableAsBases<Basis::InvalidArgumentError>("Basis::InvalidArgumentError");
    ExpectCatchableAsBases<Basis::OutOfRangeError>("Basis::OutOfRangeError");
    ExpectCatchableAsBases<Basis::InvalidRequest>("Basis::InvalidRequest");
    ExpectCatchableAsBases<Basis::FileError>("Basis::FileError");
}
