#include "dataobjects/LinearScale.h"

#include "basis/Scale.h"
#include "basis/Settings.h"

namespace DataObjects {

namespace {
QString ToQString(std::string const & text) { return QString::fromLatin1(text.data(), int(text.size())); }
std::string ToStdString(QString const & text) { return text.toLatin1().toStdString(); }

QString const ClassName = QStringLiteral("LinearScale");
constexpr int Version = 1;
} // namespace

LinearScale::LinearScale()
    : LinearScale(1.0, 0.0, {}, {})
{
}

LinearScale::LinearScale(double factor, double offset, std::string unit, std::string description)
    : m_factor(factor)
    , m_offset(offset)
    , m_unit(std::move(unit))
    , m_description(std::move(description))
{
}

LinearScale::LinearScale(LinearScale const & other)
    : LinearScale(other.GetFactor(), other.GetOffset(), other.GetUnit(), other.GetDescription())
{
}

LinearScale::LinearScale(Basis::S_Scale const & scale)
    : LinearScale()
{
    Set(scale);
}

LinearScale::~LinearScale() = default;

double LinearScale::GetFactor() const { return m_factor; }
double LinearScale::GetOffset() const { return m_offset; }
std::string LinearScale::GetUnit() const { return m_unit; }
std::string LinearScale::GetDescription() const { return m_description; }
void LinearScale::SetFactor(double factor) { m_factor = factor; }
void LinearScale::SetOffset(double offset) { m_offset = offset; }
void LinearScale::SetUnit(std::string const & unit) { m_unit = unit; }
void LinearScale::SetDescription(std::string const & description) { m_description = description; }

LinearScale & LinearScale::operator=(LinearScale const & other)
{
    if (this != &other)
        Set(other);
    return *this;
}

LinearScale & LinearScale::operator=(Basis::S_Scale const & scale)
{
    Set(scale);
    return *this;
}

void LinearScale::Set(LinearScale const & other)
{
    SetFactor(other.GetFactor());
    SetOffset(other.GetOffset());
    SetUnit(other.GetUnit());
    SetDescription(other.GetDescription());
}

void LinearScale::Set(Basis::S_Scale const & scale)
{
    SetFactor(scale.factor);
    SetOffset(scale.offset);
    SetUnit(ToStdString(scale.unit));
    SetDescription(ToStdString(scale.description));
}

LinearScale::operator Basis::S_Scale() const
{
    return {GetFactor(), GetOffset(), ToQString(GetUnit()), ToQString(GetDescription())};
}

double LinearScale::GetScaled(double raw) const { return GetFactor() * raw + GetOffset(); }

double LinearScale::GetUnscaled(double scaled) const
{
    double const factor = GetFactor();
    return factor == 0.0 ? 0.0 : (scaled - GetOffset()) / factor;
}

LinearScale LinearScale::ApplyScaling(LinearScale const & other) const
{
    double const factor = GetFactor();
    return {factor * other.GetFactor(), factor * other.GetOffset() + factor * GetOffset(), other.GetUnit(),
            other.GetDescription()};
}

LinearScale LinearScale::ApplyScaling(Basis::S_Scale const & other) const { return ApplyScaling(LinearScale(other)); }

Storage::Settings & LinearScale::SerializeTo(Storage::Settings & settings) const
{
    settings.SetClass(ClassName);
    settings.SetVersion(Version);
    settings.Set(QStringLiteral("Offset"), GetOffset());
    settings.Set(QStringLiteral("Factor"), GetFactor());
    settings.Set(QStringLiteral("Unit"), ToQString(GetUnit()));
    settings.Set(QStringLiteral("Description"), ToQString(GetDescription()));
    return settings;
}

void LinearScale::DeserializeFrom(Storage::Settings const & settings)
{
    if (settings.IsClass(ClassName)) {
        if (settings.GetVersion() == Version) {
            auto const text = [&](QString const & key) {
                return settings.Contains(key) ? ToStdString(settings.Get<QString>(key)) : std::string();
            };
            QString const offset = QStringLiteral("Offset");
            QString const factor = QStringLiteral("Factor");
            m_offset = settings.Contains(offset) ? settings.Get<double>(offset) : 0.0;
            m_factor = settings.Contains(factor) ? settings.Get<double>(factor) : 1.0;
            m_unit = text(QStringLiteral("Unit"));
            m_description = text(QStringLiteral("Description"));
            return;
        }
        settings.ReportError(QStringLiteral("Not supported version (%0)").replace(QLatin1String("%0"),
                                                                                  QString::number(settings.GetVersion())));
    }
    m_factor = 1.0;
    m_offset = 0.0;
    m_unit.clear();
    m_description.clear();
}

bool operator==(LinearScale const & a, LinearScale const & b)
{
    return a.GetFactor() == b.GetFactor() && a.GetOffset() == b.GetOffset() && a.GetUnit() == b.GetUnit()
           && a.GetDescription() == b.GetDescription();
}

} // namespace DataObjects
