#include "cli/RowWriter.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>

namespace {
void writeOut(const QByteArray &bytes) { std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout); }
} // namespace

Cell Cell::figure(std::optional<double> value)
{
    if (!value)
        return Cell(QString(), QJsonValue::Null);
    const QString text = QString::number(*value, 'f', 2);
    return Cell(text, QJsonValue(text.toDouble()));
}

RowWriter::RowWriter(bool json, QStringList columns) : m_json(json), m_columns(std::move(columns)) {}

RowWriter::~RowWriter()
{
    if (!m_finished)
        finish();
}

void RowWriter::add(const std::vector<Cell> &cells)
{
    if (m_json) {
        QJsonObject o;
        for (qsizetype i = 0; i < m_columns.size() && i < qsizetype(cells.size()); ++i)
            o.insert(m_columns[i], cells[size_t(i)].json);
        m_rows.append(o);
        return;
    }
    for (size_t i = 0; i < cells.size(); ++i) {
        if (i)
            m_text += '\t';
        m_text += cells[i].text.toUtf8();
    }
    m_text += '\n';
    if (m_text.size() > (1 << 16))
        flush();
}

void RowWriter::flush()
{
    writeOut(m_text);
    m_text.clear();
}

void RowWriter::finish()
{
    m_finished = true;
    if (m_json)
        writeOut(QJsonDocument(m_rows).toJson(QJsonDocument::Indented));
    else
        flush();
    std::fflush(stdout);
}

void printLine(const QString &text)
{
    writeOut(text.toUtf8() + '\n');
    std::fflush(stdout);
}

void printDrinks(bool json, const std::vector<qint32> &ids, const QStringList &names)
{
    RowWriter out(json, {QStringLiteral("id"), QStringLiteral("name")});
    for (size_t i = 0; i < ids.size(); ++i)
        out.add({ids[i], names[qsizetype(i)]});
    out.finish();
}
