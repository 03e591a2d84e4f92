#include "host/widgets/HVProjectFilter.h"

#include "host/widgets/HVProjectModel.h"

#include <algorithm>

HVProjectFilter::HVProjectFilter(QObject* parent) : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
}

void HVProjectFilter::setText(const QString& text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    m_words = words;
    invalidateFilter();
}

bool HVProjectFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    if (m_words.isEmpty())
        return true;
    const auto* model = static_cast<const HVProjectModel*>(sourceModel());
    for (const ProjectNode* node = model->node(model->index(row, 0, parent)); node; node = node->parent)
        if (node->type != ProjectNode::Type::Kind &&
            std::all_of(m_words.begin(), m_words.end(),
                        [&](const QString& word) { return node->name.contains(word, Qt::CaseInsensitive); }))
            return true;
    return false;
}
