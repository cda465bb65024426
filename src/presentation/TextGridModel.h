#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

// Rows of text cells under a header: the working state of the editor's line grids and of the
// ingredient grid, where every number is text until it is saved. Row 0 is the first data row
// (the old grids counted the header as row 0; their row count is rowCount() + 1).
class TextGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TextGridModel(const QStringList &headers, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Columns the user may type into; none by default.
    void setEditableColumns(const QList<int> &columns) { m_editable = columns; }

    QString cell(int row, int column) const;
    void setCell(int row, int column, const QString &text);
    const QStringList &row(int r) const { return m_rows[std::size_t(r)]; }
    // Replaces every row at once (one reset, not one notice per row).
    void setRows(std::vector<QStringList> rows);
    // Grows with empty rows or drops rows at the end.
    void setRowTotal(int count);
    void appendRow(const QStringList &cells);
    void removeRowAt(int r);
    void swapRows(int a, int b);
    // The cells of one column, top to bottom.
    QStringList column(int c) const;

private:
    QStringList m_headers;
    std::vector<QStringList> m_rows;
    QList<int> m_editable;
};
