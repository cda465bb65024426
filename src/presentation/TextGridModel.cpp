#include "presentation/TextGridModel.h"

TextGridModel::TextGridModel(const QStringList &headers, QObject *parent)
    : QAbstractTableModel(parent), m_headers(headers)
{
}

int TextGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TextGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QVariant TextGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return cell(index.row(), index.column());
}

bool TextGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.row() >= rowCount())
        return false;
    setCell(index.row(), index.column(), value.toString());
    return true;
}

QVariant TextGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return section >= 0 && section < m_headers.size() ? m_headers[section] : QVariant();
    return QVariant();
}

Qt::ItemFlags TextGridModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_editable.contains(index.column()))
        f |= Qt::ItemIsEditable;
    return f;
}

QString TextGridModel::cell(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0)
        return {};
    const QStringList &cells = m_rows[std::size_t(row)];
    return column < cells.size() ? cells[column] : QString();
}

void TextGridModel::setCell(int row, int column, const QString &text)
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return;
    QStringList &cells = m_rows[std::size_t(row)];
    while (cells.size() <= column)
        cells.append(QString());
    if (cells[column] == text)
        return;
    cells[column] = text;
    const QModelIndex i = index(row, column);
    emit dataChanged(i, i);
}

void TextGridModel::setRows(std::vector<QStringList> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void TextGridModel::setRowTotal(int count)
{
    count = std::max(0, count);
    const int now = rowCount();
    if (count > now) {
        beginInsertRows({}, now, count - 1);
        m_rows.resize(std::size_t(count));
        endInsertRows();
    } else if (count < now) {
        beginRemoveRows({}, count, now - 1);
        m_rows.resize(std::size_t(count));
        endRemoveRows();
    }
}

void TextGridModel::appendRow(const QStringList &cells)
{
    const int r = rowCount();
    beginInsertRows({}, r, r);
    m_rows.push_back(cells);
    endInsertRows();
}

void TextGridModel::removeRowAt(int r)
{
    if (r < 0 || r >= rowCount())
        return;
    beginRemoveRows({}, r, r);
    m_rows.erase(m_rows.begin() + r);
    endRemoveRows();
}

void TextGridModel::swapRows(int a, int b)
{
    if (a < 0 || b < 0 || a >= rowCount() || b >= rowCount() || a == b)
        return;
    std::swap(m_rows[std::size_t(a)], m_rows[std::size_t(b)]);
    emit dataChanged(index(std::min(a, b), 0), index(std::max(a, b), columnCount() - 1));
}

QStringList TextGridModel::column(int c) const
{
    QStringList out;
    out.reserve(rowCount());
    for (int r = 0; r < rowCount(); ++r)
        out.append(cell(r, c));
    return out;
}
