#pragma once

#include "dataobjects/AttributeValue.h"

#include <string>

namespace DataObjects {

//! One named attribute value. A dot in a name marks a member of a group ("Camera.Gain").
class C_Attribute
{
public:
    C_Attribute() = default;
    C_Attribute(std::string name, C_AttributeValue value) : m_name(std::move(name)), m_value(std::move(value)) {}

    std::string const & GetName() const { return m_name; }
    C_AttributeValue const & GetValue() const { return m_value; }
    void SetName(std::string name) { m_name = std::move(name); }
    void SetValue(C_AttributeValue value) { m_value = std::move(value); }

    friend bool operator==(C_Attribute const & a, C_Attribute const & b) { return a.m_name == b.m_name && a.m_value == b.m_value; }
    friend bool operator!=(C_Attribute const & a, C_Attribute const & b) { return !(a == b); }

private:
    std::string m_name;
    C_AttributeValue m_value;
};

} // namespace DataObjects
