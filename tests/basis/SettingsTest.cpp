#include "basis/Settings.h"

#include "BasisTesting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <limits>

using Storage::Settings;

namespace {

// A tree with every value type, nested collections and texts XML cannot carry as they are.
Settings SampleTree()
{
    Settings root;
    root.SetClass(QStringLiteral("Shapes"));
    root.SetVersion(3);
    root.Set(QStringLiteral("Name"), QString::fromUtf8("Fl\u00e4che <1> & \"2\""));
    root.Set(QStringLiteral("Control"), QString::fromLatin1("a\rb\x01" "c\n"));
    root.Set(QStringLiteral("Count"), -42);
    root.Set(QStringLiteral("Visible"), true);
    root.Set(QStringLiteral("Tenth"), 0.1);
    root.Set(QStringLiteral("Tiny"), 4.9406564584124654e-324);
    root.Set(QStringLiteral("Infinite"), -std::numeric_limits<double>::infinity());
    root.Set(QStringLiteral("Single"), 0.3f);
    for (int i = 0; i < 3; ++i) {
        Settings::Ptr shape = root.CreateChild(QStringLiteral("Shape"), root.GetNextCollectionIndex(QStringLiteral("Shape")));
        shape->SetClass(i == 1 ? QStringLiteral("Ellipse") : QStringLiteral("Rectangle"));
        shape->SetVersion(1);
        shape->Set(QStringLiteral("Index"), i);
        Settings::Ptr point = shape->CreateChild(QStringLiteral("Point"), 0);
        point->Set(QStringLiteral("X"), 1.0 / (i + 3));
    }
    root.CreateChild(QStringLiteral("Empty"), 0);
    return root;
}

class SettingsFile : public ::testing::Test
{
protected:
    QString Path(char const * name) const { return m_dir.filePath(QLatin1String(name)); }
    void WriteText(QString const & path, QByteArray const & text) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir m_dir;
};

} // namespace

TEST(Settings, ValuesAreLeafNodesUnderTheirKeys)
{
    Settings node;
    node.Set(QStringLiteral("Unit"), "mm"); // a text, not a bool
    node.Set(QStringLiteral("Factor"), 2.5);
    EXPECT_EQ(node.Get<QString>(QStringLiteral("Unit")), QStringLiteral("mm"));
    EXPECT_EQ(node.Get<double>(QStringLiteral("Factor")), 2.5);
    EXPECT_EQ(node.Get<QString>(QStringLiteral("Factor")), QStringLiteral("2.5"));
    EXPECT_TRUE(node.Contains(QStringLiteral("Unit")));
    EXPECT_EQ(node.GetCollectionSize(QStringLiteral("Unit")), 1u);
    EXPECT_EQ(node.GetChild(QStringLiteral("Unit"), 0)->GetValue(), QVariant(QStringLiteral("mm")));
    EXPECT_EQ(node.GetKeys(), (QStringList{QStringLiteral("Factor"), QStringLiteral("Unit")}));

    EXPECT_BASIS_THROW(node.Get<int>(QStringLiteral("Missing")), Basis::InvalidArgumentError,
                       "No value under the key 'Missing'");
    EXPECT_BASIS_THROW(node.Get<int>(QStringLiteral("Unit")), Basis::InvalidArgumentError,
                       "The value under the key 'Unit' cannot be read as int");
}

TEST(Settings, CollectionsAppendReplaceAndRefuseGaps)
{
    Settings node;
    QString const key = QStringLiteral("Shape");
    EXPECT_EQ(node.GetNextCollectionIndex(key), 0u);
    Settings::Ptr first = node.CreateChild(key, 0);
    first->SetClass(QStringLiteral("Rectangle"));
    node.CreateChild(key, 1)->SetClass(QStringLiteral("Ellipse"));
    EXPECT_EQ(node.GetCollectionSize(key), 2u);
    EXPECT_EQ(node.GetClass(key, 1), QStringLiteral("Ellipse"));
    EXPECT_EQ(node.GetChild(key, 0), first);
    EXPECT_EQ(node.GetChild(key, 2), nullptr);
    EXPECT_EQ(node.GetClass(key, 2), QString());

    node.CreateChild(key, 0)->SetClass(QStringLiteral("Polygon"));
    EXPECT_EQ(node.GetCollectionSize(key), 2u);
    EXPECT_EQ(node.GetClass(key, 0), QStringLiteral("Polygon"));

    EXPECT_BASIS_THROW(node.CreateChild(key, 3), Basis::OutOfRangeError, "Index 3 is beyond the 2 nodes under 'Shape'");
    EXPECT_EQ(node.GetCollectionSize(key), 2u);
}

TEST(Settings, ReportedErrorsAreKeptForTheWholeTree)
{
    Settings root;
    Settings::Ptr child = root.CreateChild(QStringLiteral("Scale"), 0);
    child->ReportError(QStringLiteral("Not supported version (2)"));
    EXPECT_EQ(root.GetReportedErrors(), QStringList{QStringLiteral("Not supported version (2)")});
    EXPECT_EQ(child->GetReportedErrors(), root.GetReportedErrors());

    Settings copy(root);
    copy.GetChild(QStringLiteral("Scale"), 0)->ReportError(QStringLiteral("later"));
    EXPECT_EQ(copy.GetReportedErrors().size(), 2);
    EXPECT_EQ(root.GetReportedErrors().size(), 1);
}

TEST(Settings, CopiesAreDeep)
{
    Settings const original = SampleTree();
    Settings copy(original);
    EXPECT_EQ(copy, original);
    copy.GetChild(QStringLiteral("Shape"), 2)->Set(QStringLiteral("Index"), 7);
    EXPECT_NE(copy, original);
    EXPECT_EQ(original.GetChild(QStringLiteral("Shape"), 2)->Get<int>(QStringLiteral("Index")), 2);

    Settings differentType;
    differentType.Set(QStringLiteral("V"), 1.0f);
    Settings sameNumber;
    sameNumber.Set(QStringLiteral("V"), 1.0);
    EXPECT_NE(differentType, sameNumber);
}

TEST_F(SettingsFile, TreesRoundTripExactly)
{
    Settings const original = SampleTree();
    original.WriteToFile(Path("tree.xml"));
    Settings read;
    read.SetClass(QStringLiteral("Old content"));
    read.ReadFromFile(Path("tree.xml"));
    EXPECT_EQ(read, original);
    EXPECT_EQ(read.Get<QString>(QStringLiteral("Control")), QString::fromLatin1("a\rb\x01" "c\n"));
    EXPECT_EQ(read.Get<double>(QStringLiteral("Tiny")), 4.9406564584124654e-324);
    EXPECT_EQ(read.Get<float>(QStringLiteral("Single")), 0.3f);
    EXPECT_EQ(read.GetChild(QStringLiteral("Shape"), 1)->GetChild(QStringLiteral("Point"), 0)->Get<double>(QStringLiteral("X")),
              1.0 / 4);

    // Not a number is written and read back, though it never compares equal.
    Settings nan;
    nan.Set(QStringLiteral("N"), std::numeric_limits<double>::quiet_NaN());
    nan.WriteToFile(Path("nan.xml"));
    Settings readNan;
    readNan.ReadFromFile(Path("nan.xml"));
    EXPECT_TRUE(std::isnan(readNan.Get<double>(QStringLiteral("N"))));
}

TEST_F(SettingsFile, BrokenFilesAreRefusedWithoutTouchingTheTree)
{
    Settings const original = SampleTree();
    Settings target = original;
    struct Case
    {
        char const * name;
        QByteArray text;
        QString message;
    };
    QString const prefix = QStringLiteral("Settings file '%1', line ");
    std::vector<Case> const cases{
        {"empty.xml", "", "the file is empty"},
        {"foreign.xml", "<?xml version=\"1.0\"?>\n<Shapes/>", "not a settings file (root element <Shapes>)"},
        {"format.xml", "<Settings format=\"9\"><Node/></Settings>", "unsupported format '9'"},
        {"noroot.xml", "<Settings format=\"1\"></Settings>", "the root <Node> is missing"},
        {"truncated.xml", "<Settings format=\"1\"><Node><Node key=\"a\" type=\"int\">1</Node>", ""},
        {"type.xml", "<Settings format=\"1\"><Node><Node key=\"a\" type=\"complex\">1</Node></Node></Settings>",
         "unknown value type 'complex'"},
        {"number.xml", "<Settings format=\"1\"><Node><Node key=\"a\" type=\"double\">1.5x</Node></Node></Settings>",
         "'1.5x' is not a valid double"},
        {"nokey.xml", "<Settings format=\"1\"><Node><Node type=\"int\">1</Node></Node></Settings>",
         "a child node has no key"},
        {"element.xml", "<Settings format=\"1\"><Node><Value key=\"a\"/></Node></Settings>",
         "unexpected element <Value>"},
    };
    for (Case const & c : cases) {
        QString const path = Path(c.name);
        WriteText(path, c.text);
        try {
            target.ReadFromFile(path);
            ADD_FAILURE() << c.name << " was accepted";
        } catch (Basis::FileError const & e) {
            EXPECT_TRUE(e.message().startsWith(prefix.arg(path))) << e.message().toStdString();
            EXPECT_TRUE(e.message().endsWith(c.message)) << e.message().toStdString();
        }
        EXPECT_EQ(target, original) << c.name;
    }

    EXPECT_BASIS_THROW(target.ReadFromFile(Path("missing.xml")), Basis::FileError,
                       "Cannot read settings file '" + Path("missing.xml") + "': No such file or directory");
    EXPECT_EQ(target, original);
}

TEST_F(SettingsFile, AFailedWriteLeavesTheExistingFile)
{
    Settings const original = SampleTree();
    original.WriteToFile(Path("kept.xml"));
    QString const folder = Path("missing-folder/file.xml");
    EXPECT_THROW(original.WriteToFile(folder), Basis::FileError);
    EXPECT_FALSE(QFile::exists(folder));
    Settings read;
    read.ReadFromFile(Path("kept.xml"));
    EXPECT_EQ(read, original);
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("kept.xml")});
}
