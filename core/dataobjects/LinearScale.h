#pragma once

#include <string>

namespace Basis {
struct S_Scale;
}
namespace Storage {
class Settings;
}

namespace DataObjects {

//! Turns raw numbers into physical values: scaled = factor * raw + offset, with a unit and a
//! description (Latin-1 texts).
//!
//! Every operation goes through the eight virtual accessors, so a derived scale that stands for
//! another store (a frame's scale) changes every operation. A factor of 0 is accepted here;
//! unscaling with it gives 0.
class LinearScale
{
public:
    //! The identity scale: factor 1, offset 0, empty texts.
    LinearScale();
    LinearScale(double factor, double offset, std::string unit, std::string description);
    LinearScale(LinearScale const & other);
    explicit LinearScale(Basis::S_Scale const & scale);
    virtual ~LinearScale();

    virtual double GetFactor() const;
    virtual double GetOffset() const;
    virtual std::string GetUnit() const;
    virtual std::string GetDescription() const;
    virtual void SetFactor(double factor);
    virtual void SetOffset(double offset);
    virtual void SetUnit(std::string const & unit);
    virtual void SetDescription(std::string const & description);

    //! Takes all four fields through the setters, so a derived scale writes its store.
    LinearScale & operator=(LinearScale const & other);
    LinearScale & operator=(Basis::S_Scale const & scale);
    void Set(LinearScale const & other);
    void Set(Basis::S_Scale const & scale);
    operator Basis::S_Scale() const;

    double GetScaled(double raw) const;
    //! (scaled - offset) / factor; exactly 0 when the factor is exactly 0.
    double GetUnscaled(double scaled) const;
    //! A new scale with factor this * other and offset this factor * (other offset + this
    //! offset), unit and description of other. The offset is deliberately not the composition
    //! of the two maps.
    LinearScale ApplyScaling(LinearScale const & other) const;
    LinearScale ApplyScaling(Basis::S_Scale const & other) const;

    //! Writes class "LinearScale", version 1, "Offset", "Factor", "Unit" and "Description".
    Storage::Settings & SerializeTo(Storage::Settings & settings) const;
    //! Reads what SerializeTo wrote; missing keys take their defaults. Another class or version
    //! leaves the identity scale (a version is reported through the settings).
    void DeserializeFrom(Storage::Settings const & settings);

    friend bool operator==(LinearScale const & a, LinearScale const & b);
    friend bool operator!=(LinearScale const & a, LinearScale const & b) { return !(a == b); }

private:
    double m_factor;
    double m_offset;
    std::string m_unit;
    std::string m_description;
};

} // namespace DataObjects
