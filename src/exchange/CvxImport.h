#pragma once

#include "exchange/CvxReader.h"

#include <QSqlQuery>
#include <QString>
#include <functional>

class DrinkStore;

// Adds the drinks of exchange records to the store. The name is the key: a drink that exists
// is left as it is, ingredients and categories are found by name or created.
class CvxImporter {
public:
    enum Outcome { Added, Ignored };
    explicit CvxImporter(DrinkStore &store);

    // Stores one record whole or not at all.
    Outcome importRecord(const CvxRecord &record);

private:
    qint32 nextId(const char *maxSql);
    qint32 categoryId(const QString &name);
    qint32 ingredientId(const QString &name);

    DrinkStore &m_store;
    QSqlQuery m_findDrink, m_findType, m_findIng, m_addDrink, m_addType, m_addTypeRel, m_hasTypeRel,
        m_addIng, m_addLine;
};

// The whole of one import: the file's head checked, then its records in order.
struct CvxImportResult {
    enum Status { Done, NotExchangeFile, UnknownVersion, StoppedAtBadRecord, Unreadable };
    Status status = Done;
    int line = 0;     // the line the reading stopped at
    QString message;  // for the user, naming the file; empty when all went well
};

// Imports a file; onRecord is called after each stored or ignored record, with the outcome.
CvxImportResult importCvxFile(DrinkStore &store, const QString &path,
                              const std::function<void(CvxImporter::Outcome)> &onRecord);

QString cvxNotExchangeFileMessage();
QString cvxUnknownVersionMessage();
