#pragma once

#include <QString>
#include <stdexcept>

// A statement the engine refused: carries the engine's own text, which is what the user sees,
// and the statement, for whoever has to find the fault.
class StoreError : public std::runtime_error {
public:
    StoreError(const QString &engineText, const QString &statement = {})
        : std::runtime_error(engineText.toStdString()), m_engineText(engineText), m_statement(statement) {}
    QString engineText() const { return m_engineText; }
    QString statement() const { return m_statement; }

private:
    QString m_engineText;
    QString m_statement;
};
