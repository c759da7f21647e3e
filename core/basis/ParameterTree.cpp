#include "basis/ParameterTree.h"

#include "basis/Throw.h"

#include <algorithm>

namespace Basis::Parameter {

namespace {

QStringList SplitPath(QString const & path)
{
    QStringList const segments = path.split(QLatin1Char('.'));
    if (std::any_of(segments.begin(), segments.end(), [](QString const & s) { return s.isEmpty(); }))
        BASIS_THROW(InvalidArgumentError, "Invalid parameter path '" << path << "'");
    return segments;
}

} // namespace

C_Tree::Ptr C_Tree::Create(QString name) { return Ptr(new C_Tree(std::move(name))); }

C_Tree::C_Tree(QString name)
    : m_name(std::move(name))
{
}

void C_Tree::Set(QString const & path, QVariant const & value)
{
    C_Tree * node = this;
    Ptr keepAlive;
    for (QString const & segment : SplitPath(path)) {
        keepAlive = node->AddChild(segment);
        node = keepAlive.get();
    }
    node->m_value = value;
}

QVariant C_Tree::Get(QString const & path) const
{
    C_Tree const * node = Find(SplitPath(path));
    return node ? node->m_value : QVariant();
}

bool C_Tree::Contains(QString const & path) const { return Find(SplitPath(path)) != nullptr; }

bool C_Tree::Remove(QString const & path)
{
    QStringList segments = SplitPath(path);
    QString const last = segments.takeLast();
    auto * parent = const_cast<C_Tree *>(Find(segments));
    if (!parent)
        return false;
    auto & children = parent->m_children;
    auto const it = std::find_if(children.begin(), children.end(), [&](Ptr const & c) { return c->m_name == last; });
    if (it == children.end())
        return false;
    children.erase(it);
    return true;
}

C_Tree::Ptr C_Tree::GetChild(QString const & name) const
{
    auto const it = std::find_if(m_children.begin(), m_children.end(), [&](Ptr const & c) { return c->m_name == name; });
    return it == m_children.end() ? Ptr() : *it;
}

C_Tree::Ptr C_Tree::AddChild(QString const & name)
{
    if (Ptr existing = GetChild(name))
        return existing;
    m_children.push_back(Create(name));
    return m_children.back();
}

QStringList C_Tree::GetChildNames() const
{
    QStringList names;
    for (Ptr const & child : m_children)
        names << child->m_name;
    return names;
}

C_Tree const * C_Tree::Find(QStringList const & segments) const
{
    C_Tree const * node = this;
    for (QString const & segment : segments) {
        Ptr const child = node->GetChild(segment);
        if (!child)
            return nullptr;
        node = child.get();
    }
    return node;
}

} // namespace Basis::Parameter
