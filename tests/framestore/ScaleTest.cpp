#include "framestore/Scale.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace FrameStore;

TEST(Scale, LinearAnswersTheSameEverywhereAndClonesIndependently)
{
    std::unique_ptr<I_Scale> scale(C_ScaleFactory::GetInstance().CreateLinearScale(2.5, -1.0, "mm", "Position"));
    EXPECT_EQ(scale->GetKind(), SK_LINEAR);
    for (double raw : {-3.0, 0.0, 7.5}) {
        EXPECT_DOUBLE_EQ(scale->GetFactor(raw), 2.5) << raw;
        EXPECT_DOUBLE_EQ(scale->GetOffset(raw), -1.0) << raw;
        EXPECT_DOUBLE_EQ(scale->GetScaled(raw), 2.5 * raw - 1.0) << raw;
    }
    EXPECT_EQ(scale->GetCoefficients(), (std::vector<double>{-1.0, 2.5}));

    std::unique_ptr<I_Scale> copy = scale->Clone();
    scale->SetFactor(4.0);
    scale->SetOffset(3.0);
    scale->SetUnit("m");
    scale->SetDescription("Depth");
    EXPECT_DOUBLE_EQ(scale->GetScaled(2.0), 11.0);
    EXPECT_DOUBLE_EQ(scale->GetOffset(9.0), 3.0);
    EXPECT_EQ(scale->GetUnit(), "m");
    EXPECT_EQ(scale->GetDescription(), "Depth");
    EXPECT_EQ(copy->GetKind(), SK_LINEAR);
    EXPECT_DOUBLE_EQ(copy->GetScaled(2.0), 4.0);
    EXPECT_EQ(copy->GetUnit(), "mm");
    EXPECT_EQ(copy->GetDescription(), "Position");
}

TEST(Scale, PolynomialGivesTheTangentAtARawPosition)
{
    auto & factory = C_ScaleFactory::GetInstance();
    std::unique_ptr<I_Scale> scale(factory.CreatePolynomialScale({1.0, 2.0, 3.0}, "V", "Response"));
    EXPECT_EQ(scale->GetKind(), SK_POLYNOMIAL);
    EXPECT_DOUBLE_EQ(scale->GetScaled(2.0), 17.0);
    EXPECT_DOUBLE_EQ(scale->GetFactor(2.0), 14.0);
    EXPECT_DOUBLE_EQ(scale->GetOffset(2.0), -11.0);
    EXPECT_DOUBLE_EQ(scale->GetScaled(-1.0), 2.0);
    EXPECT_DOUBLE_EQ(scale->GetFactor(-1.0), -4.0);
    EXPECT_DOUBLE_EQ(scale->GetOffset(-1.0), -2.0);
    // The setters address the linear and constant coefficients only.
    scale->SetFactor(5.0);
    scale->SetOffset(-4.0);
    EXPECT_EQ(scale->GetCoefficients(), (std::vector<double>{-4.0, 5.0, 3.0}));

    std::unique_ptr<I_Scale> constant(factory.CreatePolynomialScale({5.0}, "", ""));
    EXPECT_EQ(constant->GetCoefficients(), (std::vector<double>{5.0, 0.0}));
    EXPECT_DOUBLE_EQ(constant->GetScaled(9.0), 5.0);
    EXPECT_DOUBLE_EQ(constant->GetFactor(9.0), 0.0);
    EXPECT_DOUBLE_EQ(constant->GetOffset(9.0), 5.0);
    constant->SetFactor(2.0);
    EXPECT_DOUBLE_EQ(constant->GetScaled(2.0), 9.0);
    std::unique_ptr<I_Scale> empty(factory.CreatePolynomialScale({}, "", ""));
    empty->SetOffset(1.5);
    EXPECT_EQ(empty->GetCoefficients(), (std::vector<double>{1.5, 0.0}));
}
