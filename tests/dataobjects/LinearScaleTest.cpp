#include "dataobjects/LinearScale.h"

#include "basis/Scale.h"
#include "basis/Settings.h"
#include "BasisTesting.h"

#include <QTemporaryDir>

#include <cmath>
#include <vector>

using DataObjects::LinearScale;

namespace {

// Stands for a scale kept elsewhere: every access goes through the accessors, as a view on a
// frame's scale does.
class RecordingScale : public LinearScale
{
public:
    double GetFactor() const override { return factor; }
    double GetOffset() const override { return offset; }
    std::string GetUnit() const override { return unit; }
    std::string GetDescription() const override { return description; }
    void SetFactor(double v) override { calls.push_back("factor"), factor = v; }
    void SetOffset(double v) override { calls.push_back("offset"), offset = v; }
    void SetUnit(std::string const & v) override { calls.push_back("unit"), unit = v; }
    void SetDescription(std::string const & v) override { calls.push_back("description"), description = v; }

    double factor = 4, offset = 1;
    std::string unit = "px", description = "stored elsewhere";
    std::vector<std::string> calls;
};

} // namespace

TEST(LinearScale, ScalesAndUnscales)
{
    LinearScale const scale(2, 3, "mm", "x");
    EXPECT_EQ(scale.GetScaled(5), 13);
    EXPECT_EQ(scale.GetUnscaled(13), 5);

    LinearScale const flat(0, 7, "", "");
    EXPECT_EQ(flat.GetScaled(100), 7);
    EXPECT_EQ(flat.GetUnscaled(123), 0.0);
    // Only exactly 0 is special: NaN divides.
    EXPECT_TRUE(std::isnan(LinearScale(std::nan(""), 0, "", "").GetUnscaled(1)));

    LinearScale const identity;
    EXPECT_EQ(identity, LinearScale(1, 0, "", ""));
}

TEST(LinearScale, ApplyScalingKeepsItsOffsetFormula)
{
    LinearScale const a(2, 1, "px", "raw");
    LinearScale const result = a.ApplyScaling(LinearScale(3, 4, "mm", "position"));
    EXPECT_EQ(result, LinearScale(6, 10, "mm", "position")); // offset 2 * 4 + 2 * 1, not 2 * 4 + 1
    EXPECT_EQ(a.ApplyScaling(Basis::S_Scale(3, 4, QStringLiteral("mm"), QStringLiteral("position"))), result);
}

TEST(LinearScale, EqualityComparesAllFourFields)
{
    LinearScale const base(2, 3, "mm", "x");
    EXPECT_EQ(base, LinearScale(2, 3, "mm", "x"));
    EXPECT_NE(base, LinearScale(2.0000001, 3, "mm", "x"));
    EXPECT_NE(base, LinearScale(2, 3.0000001, "mm", "x"));
    EXPECT_NE(base, LinearScale(2, 3, "m", "x"));
    EXPECT_NE(base, LinearScale(2, 3, "mm", "y"));
}

TEST(LinearScale, BasisScalesCrossAsLatin1)
{
    Basis::S_Scale const record(0.5, -1, QString::fromLatin1("\xB5m"), QStringLiteral("depth"));
    LinearScale const scale(record);
    EXPECT_EQ(scale.GetUnit(), "\xB5m");
    Basis::S_Scale const back = scale;
    EXPECT_EQ(back, record);
}

TEST(LinearScale, EveryOperationGoesThroughTheAccessors)
{
    RecordingScale view;
    EXPECT_EQ(view.GetScaled(2), 9);
    EXPECT_EQ(LinearScale(view), LinearScale(4, 1, "px", "stored elsewhere"));

    LinearScale & asScale = view;
    asScale = LinearScale(5, 6, "mm", "d");
    EXPECT_EQ(view.calls, (std::vector<std::string>{"factor", "offset", "unit", "description"}));
    EXPECT_EQ(view.factor, 5);

    view.calls.clear();
    asScale = Basis::S_Scale(7, 8, QStringLiteral("m"), QStringLiteral("e"));
    EXPECT_EQ(view.calls, (std::vector<std::string>{"factor", "offset", "unit", "description"}));
    EXPECT_EQ(view.description, "e");
}

TEST(LinearScale, SerialisesAndReadsBack)
{
    LinearScale const scale(0.05, -12.5, "mm", "x position");
    Storage::Settings settings;
    EXPECT_EQ(&scale.SerializeTo(settings), &settings);
    EXPECT_TRUE(settings.IsClass(QStringLiteral("LinearScale")));
    EXPECT_EQ(settings.GetVersion(), 1);
    EXPECT_EQ(settings.GetKeys(), (QStringList{"Description", "Factor", "Offset", "Unit"}));

    LinearScale read(9, 9, "old", "old");
    read.DeserializeFrom(settings);
    EXPECT_EQ(read, scale);

    // Through a file, as a user saves and restores it.
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("scale.xml"));
    settings.WriteToFile(path);
    Storage::Settings loaded;
    loaded.ReadFromFile(path);
    LinearScale restored;
    restored.DeserializeFrom(loaded);
    EXPECT_EQ(restored, scale);
}

TEST(LinearScale, ReadingOddSettingsNeverThrows)
{
    Storage::Settings onlyFactor;
    onlyFactor.SetClass(QStringLiteral("LinearScale"));
    onlyFactor.SetVersion(1);
    onlyFactor.Set(QStringLiteral("Factor"), 2.5);
    LinearScale scale(9, 9, "old", "old");
    scale.DeserializeFrom(onlyFactor);
    EXPECT_EQ(scale, LinearScale(2.5, 0, "", ""));

    Storage::Settings newer;
    LinearScale(3, 4, "mm", "x").SerializeTo(newer);
    newer.SetVersion(2);
    scale.DeserializeFrom(newer);
    EXPECT_EQ(scale, LinearScale());
    EXPECT_EQ(newer.GetReportedErrors(), QStringList{QStringLiteral("Not supported version (2)")});

    Storage::Settings other;
    other.SetClass(QStringLiteral("Ellipse"));
    scale = LinearScale(3, 4, "mm", "x");
    scale.DeserializeFrom(other);
    EXPECT_EQ(scale, LinearScale());
    EXPECT_TRUE(other.GetReportedErrors().isEmpty());
}
