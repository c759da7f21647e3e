#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

Q_DECLARE_METATYPE(std::string)

namespace DataObjects {

//! The value of an attribute: null, one scalar (a number or a text) or a list of numbers,
//! tagged with a type code. Every scalar kind shares the code T_SCALAR; the variant remembers
//! which number it is.
//!
//! Equality is textual on purpose: two values are equal when their codes and their texts
//! (ToString) are equal, so int 3 equals unsigned 3 and lists that differ beyond six
//! significant digits compare equal.
class C_AttributeValue
{
public:
    enum Type : std::uint32_t {
        T_NULL = 0,
        T_SCALAR = 1,
        T_LIST_UINT16 = 2,
        T_LIST_INT = 3,
        T_LIST_FLOAT = 4,
        T_LIST_DOUBLE = 5,
    };

    C_AttributeValue();
    C_AttributeValue(signed char const & value);
    C_AttributeValue(unsigned char const & value);
    C_AttributeValue(short const & value);
    C_AttributeValue(unsigned short const & value);
    C_AttributeValue(int const & value);
    C_AttributeValue(unsigned int const & value);
    // long is 64 bits here; it is stored as the 64-bit integer it is.
    C_AttributeValue(long const & value);
    C_AttributeValue(unsigned long const & value);
    C_AttributeValue(long long const & value);
    C_AttributeValue(unsigned long long const & value);
    C_AttributeValue(float const & value);
    C_AttributeValue(double const & value);
    C_AttributeValue(QString const & value);
    C_AttributeValue(std::string const & value);
    //! Copied into a std::string; null gives the empty text (a scalar, not null).
    C_AttributeValue(char const * value);
    C_AttributeValue(std::vector<std::uint16_t> const & value);
    C_AttributeValue(std::vector<int> const & value);
    C_AttributeValue(std::vector<float> const & value);
    C_AttributeValue(std::vector<double> const & value);

    //! A new copy of the same dynamic type, so that attribute sets can hold derived values.
    virtual std::unique_ptr<C_AttributeValue> Clone() const;
    virtual ~C_AttributeValue();
    C_AttributeValue(C_AttributeValue const &) = default;
    C_AttributeValue & operator=(C_AttributeValue const &) = default;

    Type GetType() const { return m_type; }
    bool IsNull() const { return m_type == T_NULL; }
    bool IsScalar() const { return m_type == T_SCALAR; }
    bool IsList() const { return m_type > T_SCALAR; }
    //! Whether this is exactly the list of E, for E in unsigned short, int, float, double.
    template <class E>
    bool IsList() const
    {
        return m_type == ListType<E>();
    }
    //! 1 for a scalar, the number of elements of a list, 0 for null.
    std::uint64_t Count() const;
    QVariant const & GetVariant() const { return m_value; }

    //! Scalars: their own text; lists: the elements with default stream formatting, separated
    //! by commas; null: the empty text.
    std::string ToString() const;

    //! T is std::string, QString, bool or one of the four list vectors; see the definitions
    //! for each reading rule. A failed read leaves the value as it was.
    template <class T>
    T GetValue() const;

    friend bool operator==(C_AttributeValue const & a, C_AttributeValue const & b);
    friend bool operator!=(C_AttributeValue const & a, C_AttributeValue const & b) { return !(a == b); }

    template <class E>
    static constexpr Type ListType()
    {
        if constexpr (std::is_same_v<E, std::uint16_t>)
            return T_LIST_UINT16;
        else if constexpr (std::is_same_v<E, int>)
            return T_LIST_INT;
        else if constexpr (std::is_same_v<E, float>)
            return T_LIST_FLOAT;
        else if constexpr (std::is_same_v<E, double>)
            return T_LIST_DOUBLE;
        else
            return T_NULL;
    }

private:
    template <class E>
    std::vector<E> const & ListRef() const;

    QVariant m_value;
    Type m_type;
};

//! Text without a null: the variant's text form. Null raises Basis::InvalidArgumentError
//! "Attribute value is null.".
template <>
std::string C_AttributeValue::GetValue<std::string>() const;
template <>
QString C_AttributeValue::GetValue<QString>() const;
//! Null raises "Attribute value is null."; a list raises Basis::VerificationFailed "List is not
//! convertible."; a number or QString converts by the variant's rule; a std::string text is
//! parsed strictly: 1, +1, 0001 and -0 are accepted, while -1, true and 2 read as false.
template <>
bool C_AttributeValue::GetValue<bool>() const;
//! Only the list of exactly that element type; anything else raises Basis::VerificationFailed
//! "Not convertible".
template <>
std::vector<std::uint16_t> C_AttributeValue::GetValue<std::vector<std::uint16_t>>() const;
template <>
std::vector<int> C_AttributeValue::GetValue<std::vector<int>>() const;
template <>
std::vector<float> C_AttributeValue::GetValue<std::vector<float>>() const;
template <>
std::vector<double> C_AttributeValue::GetValue<std::vector<double>>() const;

} // namespace DataObjects
