#include "dataobjects/Image.h"

#include "BasisTesting.h"
#include "dataobjects/AttributesContainer.h"
#include "dataobjects/InstantMask.h"
#include "dataobjects/LazyMask.h"
#include "dataobjects/LinearScale.h"
#include "dataobjects/Mask.h"
#include "dataobjects/ScalarFields.h"

#include <vector>

using namespace DataObjects;
using Size = Math::Size2T<unsigned int>;

namespace {

struct Parts
{
    std::unique_ptr<MaskStrategy> mask = std::make_unique<LazyMask>(3, 2, true);
    std::shared_ptr<LinearScale> x = std::make_shared<LinearScale>();
    std::shared_ptr<LinearScale> y = std::make_shared<LinearScale>();
    std::shared_ptr<LinearScale> i = std::make_shared<LinearScale>();
    std::shared_ptr<C_Attributes> attributes = std::make_shared<C_AttributesContainer>();
    std::shared_ptr<ScalarFields> fields = std::make_shared<ScalarFields>(3, 2);

    Image<float> Build(float * data) { return Image<float>(data, Size(3, 2), std::move(mask), x, y, i, attributes, fields); }
};

} // namespace

TEST(Image, ViewConstructorChecksItsPartsInOrder)
{
    std::vector<float> pixels(6, 1.0f);
    Parts viewing;
    Image<float> view = viewing.Build(pixels.data());
    view.SetPixel(2, 1, 7.0f);
    EXPECT_EQ(pixels[5], 7.0f);
    EXPECT_FALSE(view.GetImageData().HasOwnerShip());
    EXPECT_FALSE(view.HasMask()) << "a lazy mask is not made by the size check";

    struct Case
    {
        void (*spoil)(Parts &);
        char const * message;
    };
    // Each case spoils one part and everything after it, so only the first check can answer.
    std::vector<Case> const cases = {
        {[](Parts & p) { p.mask.reset(); p.x.reset(); }, "Mask is not valid."},
        {[](Parts & p) { p.mask = std::make_unique<LazyMask>(2, 3, true); p.x.reset(); }, "Mask has invalid size."},
        {[](Parts & p) { p.x.reset(); p.y.reset(); }, "ScaleX is not valid."},
        {[](Parts & p) { p.y.reset(); p.i.reset(); }, "ScaleY is not valid."},
        {[](Parts & p) { p.i.reset(); p.attributes.reset(); }, "ScaleI is not valid."},
        {[](Parts & p) { p.attributes.reset(); p.fields.reset(); }, "Attributes are not valid."},
        {[](Parts & p) { p.fields.reset(); }, "Scalar fields are not valid."},
        {[](Parts & p) { p.fields = std::make_shared<ScalarFields>(3, 3); }, "Sizes of scalar fields is different to image size."},
    };
    for (Case const & c : cases) {
        Parts parts;
        c.spoil(parts);
        EXPECT_BASIS_THROW(parts.Build(pixels.data()), Basis::VerificationFailed, c.message);
    }
    Parts parts;
    EXPECT_BASIS_THROW(parts.Build(nullptr), Basis::VerificationFailed, "data-pointer is null");
}

TEST(Image, SettersChangeTheSharedObjectsNotReplaceThem)
{
    Parts parts;
    std::vector<float> pixels(6);
    Image<float> a = parts.Build(pixels.data());
    Parts other;
    other.x = parts.x;
    other.attributes = parts.attributes;
    Image<float> b = other.Build(pixels.data());

    a.SetScaleX(LinearScale(2.0, 1.0, "mm", "x"));
    EXPECT_EQ(b.GetScaleX().GetFactor(), 2.0);
    EXPECT_EQ(&b.GetScaleX(), parts.x.get());
    a.GetAttributes().Set("old", 1);
    C_AttributesContainer replacement;
    replacement.Set("new", 2);
    b.SetAttributes(replacement);
    EXPECT_FALSE(a.GetAttributes().Contains("old"));
    EXPECT_TRUE(a.GetAttributes().Contains("new"));
    b.SetAttributes(b.GetAttributes());
    EXPECT_TRUE(a.GetAttributes().Contains("new")) << "assigning a set to itself keeps it";
}

TEST(Image, AssignConvertsEverythingAndKeepsTheTargetsObjects)
{
    Image<float> source(Size(2, 2), true);
    source.SetPixel(0, 0, 300.7f);
    source.SetPixel(1, 1, -3.0f);
    source.GetMask().SetValid(1, 0, false);
    source.SetScaleI(LinearScale(0.5, 0.0, "counts", "i"));
    source.GetAttributes().Set("Exposure", 5.0);
    source.GetScalarFields().Add("peak");

    Image<std::uint8_t> target(Size(2, 2), false);
    target.GetScalarFields().Add("stale");
    LinearScale * const scale = &target.GetScaleI();
    Mask * const mask = &target.GetMask();
    ImageDataVariant * const plane = &target.GetImageData();
    target.Assign(source);
    EXPECT_EQ(target.GetPixel(0, 0), 255);
    EXPECT_EQ(target.GetPixel(1, 1), 0);
    EXPECT_FALSE(target.GetMask().IsValid(1, 0));
    EXPECT_TRUE(target.GetMask().IsValid(0, 1));
    EXPECT_EQ(target.GetScaleI(), source.GetScaleI());
    EXPECT_TRUE(target.GetAttributes().Contains("Exposure"));
    EXPECT_EQ(target.GetScalarFields().GetNames(), QStringList({"peak"}));
    EXPECT_EQ(&target.GetScaleI(), scale);
    EXPECT_EQ(&target.GetMask(), mask);
    EXPECT_EQ(&target.GetImageData(), plane);

    // A source without a mask leaves the target all valid.
    Image<double> unmasked(Size(2, 2));
    target.Assign(unmasked);
    EXPECT_TRUE(target.GetMask().IsValid(1, 0));
    EXPECT_FALSE(unmasked.HasMask());

    target.GetAttributes().Set("kept", 1);
    EXPECT_BASIS_THROW(target.Assign(Image<float>(Size(2, 3))), Basis::VerificationFailed,
                       "Source and destination have different sizes.");
    EXPECT_TRUE(target.GetAttributes().Contains("kept"));
}

TEST(Image, CopiesAreDeepAndKeepAMaskThatIsNotMadeUnmade)
{
    Image<std::uint16_t> lazy(Size(4, 4));
    lazy.GetAttributes().Set("a", 1);
    Image<std::uint16_t> copy(lazy);
    EXPECT_FALSE(copy.HasMask());
    EXPECT_NE(&copy.GetAttributes(), &lazy.GetAttributes());
    EXPECT_TRUE(copy.GetAttributes().Contains("a"));

    lazy.GetMask() = false;
    std::unique_ptr<ImageVariant> deep = lazy.CreateCopy();
    EXPECT_TRUE(deep->HasMask());
    EXPECT_NE(&deep->GetMask(), &lazy.GetMask());
    EXPECT_FALSE(deep->GetMask().IsValid(3, 3));
    EXPECT_NE(dynamic_cast<Image<std::uint16_t> *>(deep.get()), nullptr);

    EXPECT_BASIS_THROW(Image<float>(ImageData<float>(2, 2), Mask(2, 3, true)), Basis::VerificationFailed,
                       "Mask has invalid size.");
}
