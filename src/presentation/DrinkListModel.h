#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <vector>

class DrinkStore;

// The main list: drink names with their ids in a hidden second column, read in one forward
// pass from whatever list statement the view asks for (columns id, name).
class DrinkListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { NameColumn = 0, IdColumn = 1 };

    explicit DrinkListModel(QObject *parent = nullptr);

    // Runs the statement and replaces the rows. On a failing statement throws StoreError and
    // keeps the rows it had.
    void load(DrinkStore &store, const QString &jetSql);
    void clear();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    qint32 idAt(int row) const { return row >= 0 && row < int(m_ids.size()) ? m_ids[size_t(row)] : 0; }
    QString nameAt(int row) const { return row >= 0 && row < m_names.size() ? m_names[row] : QString(); }
    int rowOfId(qint32 id) const;
    const std::vector<qint32> &ids() const { return m_ids; }
    QString statement() const { return m_statement; }

private:
    std::vector<qint32> m_ids;
    QStringList m_names;
    QString m_statement;
};
