#pragma once

#include <QSortFilterProxyModel>

/// What the browser's search field leaves of the project: objects and directories whose names contain every word of
/// the text, whatever their case, all that lies in such a directory, and the rows above them.
class HVProjectFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit HVProjectFilter(QObject* parent = nullptr);

    void setText(const QString& text);
    bool isActive() const { return !m_words.isEmpty(); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    QStringList m_words;
};
