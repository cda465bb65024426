#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>

class DrinkStore;

// A fresh store in a temporary application directory: the schema plus the rows a test needs.
class TestStore {
public:
    // rowsSql: statements run after the schema (may be empty). withStarter: start from a
    // copy of the delivered recipe book instead of an empty store.
    explicit TestStore(const QString &rowsSql = {}, bool withStarter = false);
    ~TestStore();

    QString appDir() const { return m_dir.path(); }
    QString storePath() const { return m_dir.filePath(QStringLiteral("drinks.db")); }
    DrinkStore &store() { return *m_store; }

    static QString schemaFile();
    static QString deliveredStore();

private:
    QTemporaryDir m_dir;
    std::unique_ptr<DrinkStore> m_store;
};
