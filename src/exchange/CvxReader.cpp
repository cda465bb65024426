#include "exchange/CvxReader.h"

#include "base/VbConvert.h"

#include <QLocale>
#include <QRegularExpression>

namespace {
QStringView label(const QString &line) { return QStringView(line).left(10); }
QString value(const QString &line) { return line.mid(10).trimmed(); }
bool hasLabel(const QString &line, const char *name) { return label(line) == QLatin1String(name); }
}

CvxReader::CvxReader(const QString &fileText)
{
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|\r|\n"));
    m_lines = fileText.split(lineEnd);
    // A line end at the very end closes the last line; it opens no empty one.
    if (!m_lines.isEmpty() && m_lines.last().isEmpty())
        m_lines.removeLast();
}

QString CvxReader::read() { return m_lines.at(m_pos++); }

void CvxReader::refuse(const QString &why)
{
    if (m_recordOK) {
        m_recordOK = false;
        m_stopLine = int(m_pos);
        m_stopReason = why;
    }
}

CvxReader::Head CvxReader::readHead()
{
    if (!more() || read() != QLatin1String(kTitle))
        return NotExchangeFile;
    const QString version = more() ? read().mid(10).trimmed() : QString();
    if (version != QLatin1String("1.0") && version != QLatin1String("1.1")) {
        // "1", "1.00" and " 1.1" are the same numbers as the two versions read.
        bool ok = false;
        const double v = version.toDouble(&ok);
        if (!ok || (v != 1.0 && v != 1.1))
            return UnknownVersion;
    }
    return HeadOk;
}

bool CvxReader::next(CvxRecord &out)
{
    if (!m_started) {
        m_started = true;
        if (!more())
            return false;
        if (read() != QLatin1String(kSeparator)) {
            m_stopLine = int(m_pos);
            m_stopReason = QStringLiteral("A record must begin with \"----------\".");
            return false;
        }
    }
    if (!more() || !m_recordOK)
        return false;

    const auto truncated = [this] {
        refuse(QStringLiteral("The file ends inside a drink."));
        return false;
    };

    out = CvxRecord();
    out.firstLine = int(m_pos) + 1;
    QString line = read();
    if (hasLabel(line, "Name:     "))
        out.name = value(line);
    else
        refuse(QStringLiteral("\"Name:\" expected."));

    if (!more())
        return truncated();
    line = read();
    if (!hasLabel(line, "Glass:    ")) {
        refuse(QStringLiteral("\"Glass:\" expected."));
    } else {
        const double glass = VbConvert::Val(value(line));
        if (glass >= 1 && glass < 24.5)
            out.glass = qint16(qRound(glass));
        else
            refuse(QStringLiteral("The glass must be a number from 1 to 24."));
    }

    if (!more())
        return truncated();
    line = read();
    while (hasLabel(line, "Category: ")) {
        out.categories << value(line);
        if (!more())
            return truncated();
        line = read();
    }
    if (out.categories.isEmpty())
        refuse(QStringLiteral("A drink needs at least one \"Category:\"."));

    while (!hasLabel(line, "Recipe:   ") && more()) {
        if (hasLabel(line, "Ing:      ")) {
            CvxLine ing;
            ing.ingredient = value(line);
            static const char *const parts[] = {"MAmount:  ", "Amount:   ", "Measure:  "};
            for (const char *part : parts) {
                if (!more())
                    return truncated();
                line = read();
                if (!hasLabel(line, part)) {
                    refuse(QStringLiteral("\"%1\" expected.").arg(QLatin1String(part).trimmed()));
                    break;
                }
                if (part == parts[0]) {
                    ing.metricAmount = value(line);
                } else if (part == parts[1]) {
                    ing.amount = value(line);
                } else {
                    bool ok = false;
                    ing.measure = QLocale::c().toFloat(value(line), &ok);
                    if (!ok)
                        throw CvxError(int(m_pos), QStringLiteral("The measure \"%1\" is not a number.").arg(value(line)));
                }
            }
            out.lines << ing;
        } else {
            refuse(QStringLiteral("\"Ing:\" or \"Recipe:\" expected."));
        }
        if (!more())
            return truncated();
        line = read();
    }

    out.recipe = line.mid(10);
    if (!hasLabel(line, "Recipe:   "))
        refuse(QStringLiteral("\"Recipe:\" expected."));
    while (more()) {
        line = read();
        if (line == QLatin1String(kSeparator) || !more())
            break;
        if (!m_recordOK)
            return false;
        out.recipe += QStringLiteral("\r\n") + line;
    }
    return m_recordOK;
}
