#pragma once

#include "dataobjects/Attribute.h"

#include <memory>
#include <string>
#include <vector>

namespace DataObjects {

//! A set of named attributes, held in memory (C_AttributesContainer) or laid over the
//! attribute tree of a buffer or frame. A null value is never stored: setting one removes the
//! name.
class C_Attributes
{
public:
    virtual ~C_Attributes();
    virtual void Set(C_Attribute const & attribute) = 0;
    virtual void Set(std::string const & name, C_AttributeValue const & value) = 0;
    //! A null value for an absent name; an empty name raises Basis::InvalidArgumentError.
    virtual C_AttributeValue GetAttributeValue(std::string const & name) const = 0;
    virtual C_Attribute GetAttribute(std::string const & name) const = 0;
    //! Removes the name and its dotted members ("a" removes "a.x" but not "ab"); a name with an
    //! asterisk removes every name that begins with the part before it.
    virtual void Remove(std::string const & name) = 0;
    virtual bool Contains(std::string const & name) const = 0;
    virtual void Clear() = 0;
    virtual std::unique_ptr<C_Attributes> Clone() const = 0;
    virtual bool IsEmpty() const = 0;
    //! Copies of every attribute: in ascending byte order of their names in memory, in tree
    //! order on a buffer or frame.
    virtual std::vector<C_Attribute> GetAttributes() const = 0;

protected:
    C_Attributes() = default;
    C_Attributes(C_Attributes const &) = default;
    C_Attributes & operator=(C_Attributes const &) = default;
};

//! Copies every attribute of source into target through the interface, so that either side
//! may be in memory or on a buffer. A name present in both keeps the target's value unless
//! overwrite is set, in which case it is removed first, so even its type code may change.
void MergeAttributes(C_Attributes & target, C_Attributes const & source, bool overwrite);

} // namespace DataObjects
