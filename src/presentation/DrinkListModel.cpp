#include "presentation/DrinkListModel.h"

#include "store/DrinkStore.h"


DrinkListModel::DrinkListModel(QObject *parent) : QAbstractTableModel(parent) {}

void DrinkListModel::load(DrinkStore &store, const QString &jetSql)
{
    std::vector<qint32> ids;
    QStringList names;
    store.selectIdNames(jetSql, ids, names);
    beginResetModel();
    m_ids = std::move(ids);
    m_names = std::move(names);
    m_statement = jetSql;
    endResetModel();
}

void DrinkListModel::clear()
{
    beginResetModel();
    m_ids.clear();
    m_names.clear();
    m_statement.clear();
    endResetModel();
}

int DrinkListModel::rowCount(const QModelIndex &parent) const { return parent.isValid() ? 0 : int(m_ids.size()); }

int DrinkListModel::columnCount(const QModelIndex &parent) const { return parent.isValid() ? 0 : 2; }

QVariant DrinkListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_ids.size()) || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return index.column() == NameColumn ? QVariant(m_names[index.row()]) : QVariant(m_ids[size_t(index.row())]);
}

QVariant DrinkListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? QStringLiteral("Name") : QStringLiteral("ID");
}

int DrinkListModel::rowOfId(qint32 id) const
{
    for (size_t i = 0; i < m_ids.size(); ++i)
        if (m_ids[i] == id)
            return int(i);
    return -1;
}
