#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <stdexcept>

// One drink as an exchange file carries it: names instead of ids, the glass by number.
struct CvxLine {
    QString ingredient;
    QString metricAmount;
    QString amount;
    float measure = 0;
};

struct CvxRecord {
    QString name;
    qint16 glass = 0;
    QStringList categories;
    QList<CvxLine> lines;
    QString recipe;
    int firstLine = 0; // 1-based line of the record's "Name:" line
};

// A line the reader cannot go on from, such as a measure that is no number.
class CvxError : public std::runtime_error {
public:
    CvxError(int line, const QString &why)
        : std::runtime_error(why.toStdString()), m_line(line), m_why(why) {}
    int line() const { return m_line; }
    QString why() const { return m_why; }

private:
    int m_line;
    QString m_why;
};

// Reads the records of an exchange file in order. A bad record ends the reading; what was
// handed over before it stands.
class CvxReader {
public:
    enum Head { HeadOk, NotExchangeFile, UnknownVersion };
    static constexpr const char *kTitle = "Corvane Drink Exchange File";
    static constexpr const char *kSeparator = "----------";

    explicit CvxReader(const QString &fileText);

    Head readHead();
    // The next good record; false when the file has ended or a record was bad (see
    // stopLine/stopReason). Throws CvxError for a measure that is no number.
    bool next(CvxRecord &out);

    // Where and why the last record was refused; 0 when reading ended with the file.
    int stopLine() const { return m_stopLine; }
    QString stopReason() const { return m_stopReason; }

private:
    bool more() const { return m_pos < m_lines.size(); }
    QString read();
    void refuse(const QString &why);

    QStringList m_lines;
    qsizetype m_pos = 0;
    bool m_recordOK = true;
    bool m_started = false;
    int m_stopLine = 0;
    QString m_stopReason;
};
