#include "framestore/Scale.h"

#include <utility>

namespace FrameStore {

I_Scale::~I_Scale() = default;

namespace {

// Both kinds are polynomials; a linear scale is one of degree one that says so.
class PolynomialScale final : public I_Scale
{
public:
    PolynomialScale(E_ScaleKind kind, std::vector<double> coefficients, std::string unit, std::string description)
        : m_kind(kind)
        , m_coefficients(std::move(coefficients))
        , m_unit(std::move(unit))
        , m_description(std::move(description))
    {
        if (m_coefficients.size() < 2)
            m_coefficients.resize(2, 0.0);
    }

    double GetFactor(double raw) const override
    {
        double slope = 0.0;
        for (std::size_t i = m_coefficients.size() - 1; i >= 1; --i)
            slope = slope * raw + double(i) * m_coefficients[i];
        return slope;
    }
    double GetOffset(double raw) const override { return GetScaled(raw) - GetFactor(raw) * raw; }
    E_ScaleKind GetKind() const override { return m_kind; }
    std::string GetUnit() const override { return m_unit; }
    std::string GetDescription() const override { return m_description; }
    void SetDescription(std::string const & description) override { m_description = description; }
    void SetUnit(std::string const & unit) override { m_unit = unit; }
    void SetFactor(double factor) override { m_coefficients[1] = factor; }
    void SetOffset(double offset) override { m_coefficients[0] = offset; }
    double GetScaled(double raw) const override
    {
        double value = 0.0;
        for (auto c = m_coefficients.rbegin(); c != m_coefficients.rend(); ++c)
            value = value * raw + *c;
        return value;
    }
    std::vector<double> GetCoefficients() const override { return m_coefficients; }
    std::unique_ptr<I_Scale> Clone() const override { return std::make_unique<PolynomialScale>(*this); }

private:
    E_ScaleKind const m_kind;
    std::vector<double> m_coefficients;
    std::string m_unit;
    std::string m_description;
};

} // namespace

C_ScaleFactory & C_ScaleFactory::GetInstance()
{
    static C_ScaleFactory factory;
    return factory;
}

I_Scale * C_ScaleFactory::CreateLinearScale(double factor, double offset, std::string const & unit,
                                            std::string const & description) const
{
    return new PolynomialScale(SK_LINEAR, {offset, factor}, unit, description);
}

I_Scale * C_ScaleFactory::CreatePolynomialScale(std::vector<double> const & coefficients, std::string const & unit,
                                                std::string const & description) const
{
    return new PolynomialScale(SK_POLYNOMIAL, coefficients, unit, description);
}

} // namespace FrameStore
