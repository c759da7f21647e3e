#pragma once

#include <memory>
#include <string>
#include <vector>

namespace FrameStore {

enum E_ScaleKind : std::uint32_t {
    SK_LINEAR = 0,     //!< scaled = factor * raw + offset
    SK_POLYNOMIAL = 1, //!< scaled = c0 + c1 * raw + c2 * raw^2 + ...
};

//! A frame scale: turns raw positions or intensities into physical values. Factor and offset
//! are those of the tangent at a raw position, so a linear scale answers the same everywhere.
class I_Scale
{
public:
    virtual ~I_Scale();
    virtual double GetFactor(double raw) const = 0;
    virtual double GetOffset(double raw) const = 0;
    virtual E_ScaleKind GetKind() const = 0;
    virtual std::string GetUnit() const = 0;
    virtual std::string GetDescription() const = 0;
    virtual void SetDescription(std::string const & description) = 0;
    virtual void SetUnit(std::string const & unit) = 0;
    //! Sets the slope: a linear scale's factor, a polynomial's linear coefficient.
    virtual void SetFactor(double factor) = 0;
    //! Sets a linear scale's offset, a polynomial's constant coefficient.
    virtual void SetOffset(double offset) = 0;
    virtual double GetScaled(double raw) const = 0;
    //! The coefficients c0, c1, ...; a linear scale gives offset and factor.
    virtual std::vector<double> GetCoefficients() const = 0;
    virtual std::unique_ptr<I_Scale> Clone() const = 0;

protected:
    I_Scale() = default;
    I_Scale(I_Scale const &) = default;
    I_Scale & operator=(I_Scale const &) = default;
};

//! Makes frame scales; there is one factory.
class C_ScaleFactory
{
public:
    static C_ScaleFactory & GetInstance();

    I_Scale * CreateLinearScale(double factor, double offset, std::string const & unit,
                                std::string const & description) const;
    //! Coefficients c0, c1, ... in order of the power; fewer than two behave as if padded with 0.
    I_Scale * CreatePolynomialScale(std::vector<double> const & coefficients, std::string const & unit,
                                    std::string const & description) const;

private:
    C_ScaleFactory() = default;
};

} // namespace FrameStore
