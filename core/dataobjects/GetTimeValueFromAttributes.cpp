#include "dataobjects/GetTimeValueFromAttributes.h"

#include "basis/Throw.h"
#include "basis/Units.h"
#include "dataobjects/Attributes.h"

#include <cctype>
#include <charconv>

namespace DataObjects {

namespace {
// What a "%lg" scan reads, but always with the C locale: the texts are written with a decimal
// point whatever locale the process runs in.
double ScanLeadingNumber(std::string const & text)
{
    char const * first = text.data();
    char const * const last = first + text.size();
    while (first != last && std::isspace(static_cast<unsigned char>(*first)))
        ++first;
    if (last - first > 1 && first[0] == '+' && first[1] != '-' && first[1] != '+')
        ++first; // from_chars takes no plus sign
    double value = 0.0;
    return std::from_chars(first, last, value).ec == std::errc() ? value : 0.0;
}
} // namespace

double GetTimeValue(C_Attributes const & attributes, std::string const & name)
{
    if (!attributes.Contains(name))
        BASIS_THROW(Basis::Exception, "Attribute with the name " << name << " does not exist in the attribute set.");
    return ScanLeadingNumber(attributes.GetAttributeValue(name).GetValue<std::string>());
}

double GetFrameDt(C_Attributes const & attributes) { return GetTimeValue(attributes, TimeAttributeNames::FrameDt); }

bool HasFrameDt(C_Attributes const & attributes) { return attributes.Contains(TimeAttributeNames::FrameDt); }

void SetFrameDt(C_Attributes & attributes, double dt)
{
    QString const text = QString::number(dt, 'g', 6) + QLatin1Char(' ') + Basis::TimeUnits::Microsecond;
    attributes.Set(TimeAttributeNames::FrameDt, text);
}

} // namespace DataObjects
