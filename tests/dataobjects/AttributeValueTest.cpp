#include "dataobjects/AttributeValue.h"

#include "BasisTesting.h"

#include <atomic>
#include <cstdint>
#include <limits>
#include <thread>
#include <typeinfo>

using namespace DataObjects;
using V = C_AttributeValue;

namespace {

using U16List = std::vector<std::uint16_t>;
using IntList = std::vector<int>;
using FloatList = std::vector<float>;
using DoubleList = std::vector<double>;

int Stored(V const & value) { return value.GetVariant().userType(); }

// Type code, the answers of IsNull/IsScalar/IsList and of the typed IsList<E>, and Count.
std::string Kind(V const & v)
{
    return std::to_string(v.GetType()) + (v.IsNull() ? "n" : "") + (v.IsScalar() ? "s" : "") + (v.IsList() ? "l" : "") +
           (v.IsList<std::uint16_t>() ? 'u' : '-') + (v.IsList<int>() ? 'i' : '-') + (v.IsList<float>() ? 'f' : '-') +
           (v.IsList<double>() ? 'd' : '-') + "/" + std::to_string(v.Count());
}

// Text and stored type of a value of every registered type.
std::string Fingerprint()
{
    std::string out;
    for (V const & v : {V(std::string("s")), V(U16List{1, 65535}), V(IntList{-3}), V(FloatList{0.5f}), V(DoubleList{0.25, 2})})
        out += v.ToString() + "#" + std::to_string(Stored(v)) + "|";
    return out;
}

} // namespace

// First in the file, so that the threads are the first users of the one-time registrations.
TEST(AttributeValue, ConcurrentFirstUseIsSafe)
{
    std::atomic<bool> go{false};
    std::vector<std::string> results(8);
    std::vector<std::thread> pool;
    for (std::string & result : results)
        pool.emplace_back([&go, &result] {
            while (!go.load())
                std::this_thread::yield();
            for (int i = 0; i < 20; ++i)
                result = Fingerprint();
        });
    go = true;
    for (std::thread & thread : pool)
        thread.join();

    auto id = [](int type) { return "#" + std::to_string(type) + "|"; };
    std::string const expected = "s" + id(qMetaTypeId<std::string>()) + "1,65535" + id(qMetaTypeId<U16List>()) + "-3" +
                                 id(qMetaTypeId<IntList>()) + "0.5" + id(qMetaTypeId<FloatList>()) + "0.25,2" +
                                 id(qMetaTypeId<DoubleList>());
    for (std::string const & result : results)
        EXPECT_EQ(result, expected);
}

TEST(AttributeValue, ConstructionSetsTypeCodeAndStoredType)
{
    V const null;
    EXPECT_EQ(Kind(null), "0n----/0");
    EXPECT_FALSE(null.GetVariant().isValid());
    EXPECT_EQ(null.ToString(), "");

    struct Scalar { V value; int stored; char const * text; };
    Scalar const scalars[] = {
        {V(static_cast<signed char>(-5)), QMetaType::Int, "-5"},
        {V(static_cast<unsigned char>(250)), QMetaType::Int, "250"},
        {V(static_cast<short>(-300)), QMetaType::Int, "-300"},
        {V(static_cast<unsigned short>(65535)), QMetaType::Int, "65535"},
        {V(-7), QMetaType::Int, "-7"},
        {V(4000000000u), QMetaType::UInt, "4000000000"},
        {V(std::numeric_limits<long long>::min()), QMetaType::LongLong, "-9223372036854775808"},
        {V(std::numeric_limits<unsigned long long>::max()), QMetaType::ULongLong, "18446744073709551615"},
        {V(0.5f), QMetaType::Float, "0.5"},
        {V(2.5), QMetaType::Double, "2.5"},
        {V(QString("Gain")), QMetaType::QString, "Gain"},
        {V(std::string("a b")), qMetaTypeId<std::string>(), "a b"},
        {V("text"), qMetaTypeId<std::string>(), "text"},
        // A null pointer is the empty text, still a scalar.
        {V(static_cast<char const *>(nullptr)), qMetaTypeId<std::string>(), ""},
    };
    for (Scalar const & s : scalars) {
        EXPECT_EQ(Kind(s.value), "1s----/1") << s.text;
        EXPECT_EQ(Stored(s.value), s.stored) << s.text;
        EXPECT_EQ(s.value.ToString(), s.text);
    }

    // long keeps all 64 bits, whichever 64-bit variant type holds it.
    EXPECT_EQ(V(-(1L << 40)).ToString(), "-1099511627776");
    EXPECT_EQ(V(std::numeric_limits<unsigned long>::max()).ToString(), "18446744073709551615");

    EXPECT_EQ(Kind(V(U16List{1, 2, 3})), "2lu---/3");
    EXPECT_EQ(Kind(V(IntList{4})), "3l-i--/1");
    EXPECT_EQ(Kind(V(FloatList{1, 2})), "4l--f-/2");
    EXPECT_EQ(Kind(V(DoubleList{})), "5l---d/0"); // empty, yet not null
    EXPECT_EQ(Stored(V(U16List{})), qMetaTypeId<U16List>());
    EXPECT_EQ(Stored(V(IntList{})), qMetaTypeId<IntList>());
    EXPECT_EQ(Stored(V(FloatList{})), qMetaTypeId<FloatList>());
    EXPECT_EQ(Stored(V(DoubleList{})), qMetaTypeId<DoubleList>());
}

TEST(AttributeValue, TextOfListsAndOfNonAsciiScalars)
{
    EXPECT_EQ(V(DoubleList{1.5, 2, 0.125}).ToString(), "1.5,2,0.125");
    EXPECT_EQ(V(DoubleList{}).ToString(), "");
    EXPECT_EQ(V(IntList{-3, 0, 12}).ToString(), "-3,0,12");
    EXPECT_EQ(V(U16List{0, 65535, 7}).ToString(), "0,65535,7");
    EXPECT_EQ(V(FloatList{1.2345678f, 100000.f, 1e7f, -0.25f}).ToString(), "1.23457,100000,1e+07,-0.25");
    EXPECT_EQ(V(DoubleList{1.0 / 3, 1e-5}).ToString(), "0.333333,1e-05");

    // A QString turns into Latin-1 bytes, up to the first zero character.
    EXPECT_EQ(V(QString::fromUtf8("Gr\xC3\xBC\xC3\x9F")).ToString(), "Gr\xFC\xDF");
    EXPECT_EQ(V(QString("ab") + QChar(0) + QString("cd")).ToString(), "ab");
}

TEST(AttributeValue, TextAndListReads)
{
    EXPECT_EQ(V(5).GetValue<std::string>(), "5");
    EXPECT_EQ(V(IntList{1, 2, 3}).GetValue<std::string>(), "1,2,3");
    EXPECT_EQ(V(std::string("\xE9t\xE9")).GetValue<QString>(), QString::fromUtf8("\xC3\xA9t\xC3\xA9"));

    EXPECT_EQ(V(U16List{1, 65535}).GetValue<U16List>(), (U16List{1, 65535}));
    EXPECT_EQ(V(IntList{-1, 2}).GetValue<IntList>(), (IntList{-1, 2}));
    EXPECT_EQ(V(FloatList{0.5f}).GetValue<FloatList>(), FloatList{0.5f});
    EXPECT_EQ(V(DoubleList{}).GetValue<DoubleList>(), DoubleList{});

    V const null;
    EXPECT_BASIS_THROW(null.GetValue<std::string>(), Basis::InvalidArgumentError, "Attribute value is null.");
    EXPECT_BASIS_THROW(null.GetValue<QString>(), Basis::InvalidArgumentError, "Attribute value is null.");
    EXPECT_BASIS_THROW(null.GetValue<U16List>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(null.GetValue<IntList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(null.GetValue<FloatList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(null.GetValue<DoubleList>(), Basis::VerificationFailed, "Not convertible");

    // No conversion between element types, nor from a scalar.
    V const ints(IntList{1, 2});
    EXPECT_BASIS_THROW(ints.GetValue<FloatList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(ints.GetValue<DoubleList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(V(U16List{1}).GetValue<IntList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(V(DoubleList{}).GetValue<FloatList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_BASIS_THROW(V(3).GetValue<IntList>(), Basis::VerificationFailed, "Not convertible");
    EXPECT_EQ(ints.GetValue<IntList>(), (IntList{1, 2})); // the failed reads left it alone
}

TEST(AttributeValue, BoolReads)
{
    EXPECT_BASIS_THROW(V().GetValue<bool>(), Basis::InvalidArgumentError, "Attribute value is null.");
    EXPECT_BASIS_THROW(V(IntList{1}).GetValue<bool>(), Basis::VerificationFailed, "List is not convertible.");
    EXPECT_BASIS_THROW(V(U16List{}).GetValue<bool>(), Basis::VerificationFailed, "List is not convertible.");

    // Numbers and QString follow Qt: a floating-point number is rounded first, and a QString is
    // false only when empty, "0" or "false" in any case.
    for (V const & v : {V(-7), V(std::numeric_limits<unsigned long long>::max()), V(2.5f), V(QString("true")),
                        V(QString("-1")), V(QString("2"))})
        EXPECT_TRUE(v.GetValue<bool>()) << v.ToString();
    for (V const & v : {V(0), V(0.0), V(0.25), V(-0.25f), V(QString("FALSE")), V(QString("0")), V(QString())})
        EXPECT_FALSE(v.GetValue<bool>()) << v.ToString();

    // std::string is parsed strictly; only a final 1 with nothing but zeros (and one plus) before it is true.
    for (char const * text : {"1", "+1", "0001", "001", "+01", "+001"})
        EXPECT_TRUE(V(std::string(text)).GetValue<bool>()) << text;
    for (char const * text : {"0", "-0", "+0", "0000", "-1", "-01", "true", "2", "", "+", "-", "10", "11", "21",
                              "++1", "+-1", "-+1", " 1", "1 ", "x1", "01a"})
        EXPECT_FALSE(V(std::string(text)).GetValue<bool>()) << '"' << text << '"';
}

TEST(AttributeValue, EqualityIsTextualWithinTheSameTypeCode)
{
    auto equal = [](V const & a, V const & b) { return a == b && b == a && !(a != b); };
    auto unequal = [](V const & a, V const & b) { return a != b && b != a && !(a == b); };
    EXPECT_TRUE(equal(V(5), V(std::string("5"))));
    EXPECT_TRUE(equal(V(5), V(QString("5"))));
    EXPECT_TRUE(equal(V(3), V(3u)));
    EXPECT_TRUE(equal(V(), V()));
    EXPECT_TRUE(equal(V(DoubleList{1.0000001, 2}), V(DoubleList{1.0000002, 2})));
    EXPECT_TRUE(unequal(V(DoubleList{1.00001}), V(DoubleList{1.00002})));
    EXPECT_TRUE(unequal(V(5), V(6)));
    // Same text, different codes.
    EXPECT_TRUE(unequal(V(5), V(IntList{5})));
    EXPECT_TRUE(unequal(V(IntList{5}), V(DoubleList{5})));
    EXPECT_TRUE(unequal(V(U16List{}), V(IntList{})));
    EXPECT_TRUE(unequal(V(), V(std::string())));
    EXPECT_TRUE(unequal(V(), V(FloatList{})));
}

TEST(AttributeValue, CopiesAndClonesAreEqualAndIndependent)
{
    V const original(DoubleList{1.5, 2});
    std::unique_ptr<V> clone = original.Clone();
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(typeid(*clone), typeid(V));
    EXPECT_TRUE(*clone == original);
    *clone = V(7);
    EXPECT_EQ(original.GetValue<DoubleList>(), (DoubleList{1.5, 2}));

    V copy(original);
    EXPECT_EQ(copy.GetValue<DoubleList>(), (DoubleList{1.5, 2}));
    copy = V(std::string("x"));
    EXPECT_EQ(Kind(copy), "1s----/1");
    EXPECT_EQ(Stored(copy), qMetaTypeId<std::string>());
    EXPECT_EQ(Kind(original), "5l---d/2");
}

TEST(AttributeValue, RegisteredTypesAreNamedComparableAndIterable)
{
    Fingerprint(); // registration happens on first use
    EXPECT_EQ(QMetaType::type("std::string"), qMetaTypeId<std::string>());
    EXPECT_EQ(QMetaType::type("std::vector<uint16_t>"), qMetaTypeId<U16List>());
    EXPECT_EQ(QMetaType::type("std::vector<int>"), qMetaTypeId<IntList>());
    EXPECT_EQ(QMetaType::type("std::vector<float>"), qMetaTypeId<FloatList>());
    EXPECT_EQ(QMetaType::type("std::vector<double>"), qMetaTypeId<DoubleList>());

    // Variants compare by content, not by their bytes.
    EXPECT_TRUE(V(std::string("abc")).GetVariant() == V(std::string("abc")).GetVariant());
    EXPECT_FALSE(V(std::string("abc")).GetVariant() == V(std::string("abd")).GetVariant());
    EXPECT_TRUE(V(U16List{1, 2}).GetVariant() == V(U16List{1, 2}).GetVariant());
    EXPECT_TRUE(V(IntList{1, 2}).GetVariant() == V(IntList{1, 2}).GetVariant());
    EXPECT_FALSE(V(IntList{1, 2}).GetVariant() == V(IntList{1, 3}).GetVariant());

    std::pair<V, DoubleList> const lists[] = {{V(U16List{7, 65535}), {7, 65535}}, {V(IntList{-3, 7}), {-3, 7}},
                                              {V(FloatList{0.5f, 7}), {0.5, 7}}, {V(DoubleList{0.25, 7}), {0.25, 7}}};
    for (auto const & [list, expected] : lists) {
        SCOPED_TRACE(list.ToString());
        ASSERT_TRUE(list.GetVariant().canConvert<QVariantList>()); // Qt's test for a sequential view
        DoubleList elements;
        for (QVariant const & element : list.GetVariant().value<QSequentialIterable>())
            elements.push_back(element.toDouble());
        EXPECT_EQ(elements, expected);
    }
}
