#include "basis/ParameterTree.h"

#include "BasisTesting.h"

using Basis::Parameter::C_Tree;

namespace {

C_Tree::Ptr MakeTree()
{
    C_Tree::Ptr tree = C_Tree::Create(QStringLiteral("Options"));
    tree->Set(QStringLiteral("Compression.Level"), 6);
    tree->Set(QStringLiteral("Compression.Method"), QStringLiteral("lzw"));
    tree->Set(QStringLiteral("Alpha"), 1.5);
    return tree;
}

} // namespace

TEST(ParameterTree, SetCreatesNodesInInsertionOrder)
{
    C_Tree::Ptr const tree = MakeTree();
    // Not sorted: "Alpha" came last.
    EXPECT_EQ(tree->GetChildNames(), QStringList({"Compression", "Alpha"}));
    C_Tree::Ptr const compression = tree->GetChild(QStringLiteral("Compression"));
    ASSERT_TRUE(compression);
    EXPECT_FALSE(compression->HasValue());
    EXPECT_EQ(compression->GetChildNames(), QStringList({"Level", "Method"}));

    // Overwriting keeps the place.
    tree->Set(QStringLiteral("Compression.Level"), 7);
    EXPECT_EQ(compression->GetChildNames(), QStringList({"Level", "Method"}));
    EXPECT_EQ(compression->GetChild(QStringLiteral("Level"))->GetValue(), QVariant(7));

    C_Tree::Ptr const alpha = tree->AddChild(QStringLiteral("Alpha"));
    EXPECT_EQ(alpha, tree->GetChild(QStringLiteral("Alpha")));
    EXPECT_EQ(alpha->GetValue(), QVariant(1.5));
    EXPECT_EQ(tree->AddChild(QStringLiteral("Beta")), tree->AddChild(QStringLiteral("Beta")));
    EXPECT_EQ(tree->GetChildNames(), QStringList({"Compression", "Alpha", "Beta"}));
    EXPECT_FALSE(tree->GetChild(QStringLiteral("Gamma")));
}

TEST(ParameterTree, GetContainsRemove)
{
    C_Tree::Ptr const tree = MakeTree();
    EXPECT_EQ(tree->Get(QStringLiteral("Compression.Method")), QVariant(QStringLiteral("lzw")));
    EXPECT_FALSE(tree->Get(QStringLiteral("Missing")).isValid());
    EXPECT_FALSE(tree->Get(QStringLiteral("Compression.Level.Deeper")).isValid());
    EXPECT_FALSE(tree->Get(QStringLiteral("Compression")).isValid()); // a node without a value

    EXPECT_EQ(tree->Get<int>(QStringLiteral("Compression.Level"), -1), 6);
    EXPECT_EQ(tree->Get<QString>(QStringLiteral("Compression.Level"), QString()), QStringLiteral("6"));
    EXPECT_EQ(tree->Get<int>(QStringLiteral("Compression.Missing"), -1), -1);
    tree->Set(QStringLiteral("List"), QStringList({"a", "b"}));
    EXPECT_EQ(tree->Get<int>(QStringLiteral("List"), -1), -1);

    EXPECT_TRUE(tree->Contains(QStringLiteral("Compression")));
    EXPECT_TRUE(tree->Contains(QStringLiteral("Compression.Method")));
    EXPECT_FALSE(tree->Contains(QStringLiteral("Compression.Size")));
    EXPECT_FALSE(tree->Contains(QStringLiteral("Alpha.Beta")));

    EXPECT_TRUE(tree->Remove(QStringLiteral("Compression")));
    EXPECT_FALSE(tree->Contains(QStringLiteral("Compression.Level")));
    EXPECT_FALSE(tree->Remove(QStringLiteral("Compression")));
    EXPECT_FALSE(tree->Remove(QStringLiteral("Nowhere.Deeper")));
    // Neither looking up nor removing absent paths creates nodes.
    EXPECT_EQ(tree->GetChildNames(), QStringList({"Alpha", "List"}));
    EXPECT_TRUE(tree->GetChild(QStringLiteral("Alpha"))->GetChildNames().isEmpty());
}

TEST(ParameterTree, RefusesEmptySegments)
{
    C_Tree::Ptr const tree = MakeTree();
    for (QString const path : {"", "a..b", ".a", "a."}) {
        SCOPED_TRACE(path.toStdString());
        QString const message = QStringLiteral("Invalid parameter path '%1'").arg(path);
        EXPECT_BASIS_THROW(tree->Set(path, 1), Basis::InvalidArgumentError, message);
        EXPECT_BASIS_THROW(tree->Get(path), Basis::InvalidArgumentError, message);
        EXPECT_BASIS_THROW(tree->Contains(path), Basis::InvalidArgumentError, message);
        EXPECT_BASIS_THROW(tree->Remove(path), Basis::InvalidArgumentError, message);
    }
    // A refused path leaves no partial nodes behind.
    EXPECT_EQ(tree->GetChildNames(), QStringList({"Compression", "Alpha"}));
}
