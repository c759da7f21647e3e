#include "dataobjects/LinearScaleOnBufferScale.h"
#include "dataobjects/ScaleOnBuffer.h"

#include "basis/Exception.h"
#include "framestore/Frame.h"
#include "framestore/Scale.h"
#include "BasisTesting.h"

#include <memory>

using namespace DataObjects;
using Private::LinearScaleOnBufferScale;

namespace {

std::unique_ptr<FrameStore::I_Scale> FrameScale(double factor, double offset, std::string unit = "mm",
                                                std::string description = "x")
{
    return std::unique_ptr<FrameStore::I_Scale>(
        FrameStore::C_ScaleFactory::GetInstance().CreateLinearScale(factor, offset, unit, description));
}

std::unique_ptr<FrameStore::I_Scale> Polynomial()
{
    return std::unique_ptr<FrameStore::I_Scale>(
        FrameStore::C_ScaleFactory::GetInstance().CreatePolynomialScale({1, 2, 3}, "mm", "curved"));
}

LinearScale Values(FrameStore::I_Scale const & scale)
{
    return {scale.GetFactor(0), scale.GetOffset(0), scale.GetUnit(), scale.GetDescription()};
}

std::unique_ptr<FrameStore::I_FrameImage> ImageFrame()
{
    return std::unique_ptr<FrameStore::I_FrameImage>(FrameStore::CreateImageFrame(FrameStore::DT_WORD, 4, 3, 1));
}

} // namespace

TEST(LinearScaleOnBufferScale, RefusesMissingAndNonLinearScales)
{
    EXPECT_BASIS_THROW(LinearScaleOnBufferScale(nullptr), Basis::VerificationFailed, "Scale does not exist");
    auto const curved = Polynomial();
    EXPECT_BASIS_THROW(LinearScaleOnBufferScale(curved.get()), Basis::VerificationFailed, "Scale is not linear.");
    EXPECT_BASIS_THROW(GetScaleOnBufferScale(*curved), Basis::VerificationFailed, "Scale is not linear.");
}

TEST(LinearScaleOnBufferScale, ReadsAndWritesTheFrameScaleLive)
{
    auto const scale = FrameScale(2, 3);
    std::unique_ptr<LinearScale> const view = GetScaleOnBufferScale(*scale);
    EXPECT_EQ(*view, LinearScale(2, 3, "mm", "x"));

    scale->SetFactor(4);
    scale->SetUnit("m");
    EXPECT_EQ(view->GetFactor(), 4);
    EXPECT_EQ(view->GetUnit(), "m");
    EXPECT_EQ(view->GetScaled(1), 7); // the base's own identity values are not used

    view->SetOffset(-1.5);
    EXPECT_EQ(scale->GetOffset(0), -1.5);
    EXPECT_EQ(scale->GetFactor(0), 4);
    view->SetUnit("px");
    view->SetDescription("width");
    EXPECT_EQ(scale->GetUnit(), "px");
    EXPECT_EQ(scale->GetDescription(), "width");
    view->SetFactor(0.5);
    EXPECT_EQ(scale->GetFactor(0), 0.5);
}

TEST(LinearScaleOnBufferScale, RefusesFactorZeroAndKeepsTheFrameScale)
{
    auto const scale = FrameScale(2, 3);
    LinearScaleOnBufferScale view(scale.get());
    EXPECT_BASIS_THROW(view.SetFactor(0.0), Basis::VerificationFailed, "Factor of linear scale must not be 0.");
    EXPECT_BASIS_THROW(view.SetFactor(-0.0), Basis::VerificationFailed, "Factor of linear scale must not be 0.");
    EXPECT_EQ(scale->GetFactor(0), 2);
    view.SetFactor(1e-300); // only exactly zero is refused
    EXPECT_EQ(scale->GetFactor(0), 1e-300);

    // Set goes through the setters, factor first: a refused factor writes nothing.
    EXPECT_BASIS_THROW(view.Set(LinearScale(0, 9, "s", "t")), Basis::VerificationFailed,
                       "Factor of linear scale must not be 0.");
    EXPECT_EQ(scale->GetOffset(0), 3);
    EXPECT_EQ(scale->GetUnit(), "mm");

    LinearScale plain(2, 3, "mm", "x");
    plain.SetFactor(0); // a plain scale takes any factor
    EXPECT_EQ(plain.GetFactor(), 0);
}

TEST(LinearScaleOnBufferScale, CopiesShareTheFrameScaleAndAssignmentWritesValues)
{
    auto const first = FrameScale(2, 3, "mm", "x");
    auto const second = FrameScale(5, 7, "s", "t");
    LinearScaleOnBufferScale a(first.get());
    LinearScaleOnBufferScale const b(second.get());

    LinearScaleOnBufferScale copy(a);
    copy.SetOffset(11);
    EXPECT_EQ(a.GetOffset(), 11);
    std::unique_ptr<LinearScale> const clone = std::make_unique<LinearScaleOnBufferScale>(a);
    EXPECT_EQ(clone->GetOffset(), 11);

    a = b;
    EXPECT_EQ(Values(*first), LinearScale(5, 7, "s", "t"));
    a.SetOffset(1); // still on its own frame scale
    EXPECT_EQ(first->GetOffset(0), 1);
    EXPECT_EQ(second->GetOffset(0), 7);

    a = LinearScale(8, 9, "m", "u");
    EXPECT_EQ(Values(*first), LinearScale(8, 9, "m", "u"));

    auto const zero = FrameScale(0, 1);
    LinearScaleOnBufferScale const z(zero.get());
    EXPECT_BASIS_THROW(a = z, Basis::VerificationFailed, "Factor of linear scale must not be 0.");
    EXPECT_EQ(Values(*first), LinearScale(8, 9, "m", "u"));

    // A plain copy of a view is detached from the frame.
    LinearScale const detached(a);
    a.SetOffset(100);
    EXPECT_EQ(detached.GetOffset(), 9);
}

TEST(ScaleOnBuffer, GetScaleFromFrameCopiesTheChosenScale)
{
    auto const frame = ImageFrame();
    frame->SetScaleX(FrameScale(1, 10, "x", "").release());
    frame->SetScaleY(FrameScale(2, 20, "y", "").release());
    frame->SetScaleZ(FrameScale(3, 30, "z", "").release());
    frame->SetScaleI(FrameScale(4, 40, "i", "").release());
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleX), LinearScale(1, 10, "x", ""));
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleY), LinearScale(2, 20, "y", ""));
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleZ), LinearScale(3, 30, "z", ""));
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleI), LinearScale(4, 40, "i", ""));

    LinearScale copy = GetScaleFromFrame(*frame, ScaleX);
    copy.SetFactor(0);
    EXPECT_EQ(frame->GetScaleX()->GetFactor(0), 1);
    EXPECT_EQ(copy.GetFactor(), 0);

    // The type is checked before the scale.
    frame->SetScaleX(Polynomial().release());
    EXPECT_BASIS_THROW(GetScaleFromFrame(*frame, E_ScaleType(3)), Basis::VerificationFailed, "Invalid scale type");
    EXPECT_BASIS_THROW(GetScaleFromFrame(*frame, E_ScaleType(5)), Basis::VerificationFailed, "Invalid scale type");
    EXPECT_BASIS_THROW(GetScaleFromFrame(*frame, ScaleX), Basis::VerificationFailed, "Scale is not linear.");
}

TEST(ScaleOnBuffer, CreateFrameScaleRoundTrips)
{
    auto const frame = ImageFrame();
    frame->SetScaleY(CreateFrameScale(LinearScale(2.5, -1, "\xB5m", "height")));
    EXPECT_EQ(frame->GetScaleY()->GetKind(), FrameStore::SK_LINEAR);
    EXPECT_EQ(GetScaleFromFrame(*frame, ScaleY), LinearScale(2.5, -1, "\xB5m", "height"));

    std::unique_ptr<FrameStore::I_Scale> const zero(CreateFrameScale(LinearScale(0, 1, "", "")));
    EXPECT_EQ(zero->GetFactor(0), 0);
}
