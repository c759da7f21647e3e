#include "dataobjects/AttributeValue.h"

#include "basis/Throw.h"

#include <locale>
#include <sstream>

namespace DataObjects {

namespace {

struct MetaTypeIds
{
    int string;
    int listUint16;
    int listInt;
    int listFloat;
    int listDouble;
};

template <class T>
int Register(char const * name)
{
    int const id = qRegisterMetaType<T>(name);
    QMetaType::registerEqualsComparator<T>();
    return id;
}

// Registered once, on first use; the function-local static makes concurrent first uses safe.
// Registering a std::vector also registers its conversion to QSequentialIterable, so a variant
// holding a list can be iterated generically.
MetaTypeIds const & MetaTypes()
{
    static MetaTypeIds const ids{
        Register<std::string>("std::string"),
        Register<std::vector<std::uint16_t>>("std::vector<uint16_t>"),
        Register<std::vector<int>>("std::vector<int>"),
        Register<std::vector<float>>("std::vector<float>"),
        Register<std::vector<double>>("std::vector<double>"),
    };
    return ids;
}

template <class T>
QVariant Registered(T const & value)
{
    MetaTypes();
    return QVariant::fromValue(value);
}

template <class E>
std::string JoinList(std::vector<E> const & list)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i > 0)
            text << ',';
        text << list[i];
    }
    return text.str();
}

// The last character decides; everything before it may only be zeros, after an optional plus
// sign, or a minus sign when the value is 0.
bool ParseStrictBool(std::string const & text)
{
    if (text.empty())
        return false;
    char const last = text.back();
    if (last != '0' && last != '1')
        return false;
    bool const result = last == '1';
    if (text.size() == 1)
        return result;
    std::size_t first = 0;
    if (text.front() == '+' || (text.front() == '-' && last == '0'))
        first = 1;
    for (std::size_t i = first; i + 1 < text.size(); ++i)
        if (text[i] != '0')
            return false;
    return result;
}

} // namespace

C_AttributeValue::C_AttributeValue() : m_type(T_NULL) {}
C_AttributeValue::C_AttributeValue(signed char const & value) : m_value(int(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(unsigned char const & value) : m_value(int(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(short const & value) : m_value(int(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(unsigned short const & value) : m_value(int(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(int const & value) : m_value(value), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(unsigned int const & value) : m_value(value), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(long const & value) : m_value(qlonglong(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(unsigned long const & value) : m_value(qulonglong(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(long long const & value) : m_value(qlonglong(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(unsigned long long const & value) : m_value(qulonglong(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(float const & value) : m_value(value), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(double const & value) : m_value(value), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(QString const & value) : m_value(value), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(std::string const & value) : m_value(Registered(value)), m_type(T_SCALAR) {}
C_AttributeValue::C_AttributeValue(char const * value)
    : C_AttributeValue(value ? std::string(value) : std::string())
{
}
C_AttributeValue::C_AttributeValue(std::vector<std::uint16_t> const & value)
    : m_value(Registered(value)), m_type(T_LIST_UINT16)
{
}
C_AttributeValue::C_AttributeValue(std::vector<int> const & value) : m_value(Registered(value)), m_type(T_LIST_INT) {}
C_AttributeValue::C_AttributeValue(std::vector<float> const & value)
    : m_value(Registered(value)), m_type(T_LIST_FLOAT)
{
}
C_AttributeValue::C_AttributeValue(std::vector<double> const & value)
    : m_value(Registered(value)), m_type(T_LIST_DOUBLE)
{
}

std::unique_ptr<C_AttributeValue> C_AttributeValue::Clone() const { return std::make_unique<C_AttributeValue>(*this); }

C_AttributeValue::~C_AttributeValue() = default;

template <class E>
std::vector<E> const & C_AttributeValue::ListRef() const
{
    return *static_cast<std::vector<E> const *>(m_value.constData());
}

std::uint64_t C_AttributeValue::Count() const
{
    switch (m_type) {
    case T_NULL: return 0;
    case T_SCALAR: return 1;
    case T_LIST_UINT16: return ListRef<std::uint16_t>().size();
    case T_LIST_INT: return ListRef<int>().size();
    case T_LIST_FLOAT: return ListRef<float>().size();
    case T_LIST_DOUBLE: return ListRef<double>().size();
    }
    return 0;
}

std::string C_AttributeValue::ToString() const
{
    switch (m_type) {
    case T_SCALAR: {
        if (m_value.canConvert(MetaTypes().string))
            return m_value.value<std::string>();
        QByteArray const latin1 = m_value.toString().toLatin1();
        return std::string(latin1.constData()); // up to the first zero byte
    }
    case T_LIST_UINT16: return JoinList(ListRef<std::uint16_t>());
    case T_LIST_INT: return JoinList(ListRef<int>());
    case T_LIST_FLOAT: return JoinList(ListRef<float>());
    case T_LIST_DOUBLE: return JoinList(ListRef<double>());
    case T_NULL: break;
    }
    return {};
}

template <>
std::string C_AttributeValue::GetValue<std::string>() const
{
    if (IsNull())
        BASIS_THROW(Basis::InvalidArgumentError, "Attribute value is null.");
    return ToString();
}

template <>
QString C_AttributeValue::GetValue<QString>() const
{
    std::string const text = GetValue<std::string>();
    return QString::fromLatin1(text.data(), int(text.size()));
}

template <>
bool C_AttributeValue::GetValue<bool>() const
{
    if (IsNull())
        BASIS_THROW(Basis::InvalidArgumentError, "Attribute value is null.");
    if (IsList())
        BASIS_THROW(Basis::VerificationFailed, "List is not convertible.");
    if (m_value.canConvert<bool>())
        return m_value.toBool();
    return ParseStrictBool(m_value.value<std::string>());
}

namespace {
template <class E>
std::vector<E> ListValue(C_AttributeValue const & value)
{
    if (value.GetType() != C_AttributeValue::ListType<E>())
        BASIS_THROW(Basis::VerificationFailed, "Not convertible");
    return value.GetVariant().value<std::vector<E>>();
}
} // namespace

template <>
std::vector<std::uint16_t> C_AttributeValue::GetValue<std::vector<std::uint16_t>>() const
{
    return ListValue<std::uint16_t>(*this);
}
template <>
std::vector<int> C_AttributeValue::GetValue<std::vector<int>>() const
{
    return ListValue<int>(*this);
}
template <>
std::vector<float> C_AttributeValue::GetValue<std::vector<float>>() const
{
    return ListValue<float>(*this);
}
template <>
std::vector<double> C_AttributeValue::GetValue<std::vector<double>>() const
{
    return ListValue<double>(*this);
}

bool operator==(C_AttributeValue const & a, C_AttributeValue const & b)
{
    return a.m_type == b.m_type && a.ToString() == b.ToString();
}

} // namespace DataObjects
