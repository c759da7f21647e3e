#pragma once

#include <QString>

namespace Basis {

//! The suite's scale record: scaled = factor * raw + offset, with a unit and a description.
struct S_Scale
{
    double factor = 1.0;
    double offset = 0.0;
    QString unit;
    QString description;

    S_Scale() = default;
    S_Scale(double f, double o, QString u = {}, QString d = {})
        : factor(f), offset(o), unit(std::move(u)), description(std::move(d))
    {
    }

    friend bool operator==(S_Scale const & a, S_Scale const & b)
    {
        return a.factor == b.factor && a.offset == b.offset && a.unit == b.unit && a.description == b.description;
    }
    friend bool operator!=(S_Scale const & a, S_Scale const & b) { return !(a == b); }
};

} // namespace Basis
