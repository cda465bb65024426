#include "exchange/CvxImport.h"

#include "base/Cp1252.h"
#include "store/DrinkStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <memory>

CvxImporter::CvxImporter(DrinkStore &store)
    : m_store(store),
      m_findDrink(store.prepare(QStringLiteral("SELECT id FROM Drinks WHERE Name = ? LIMIT 1"))),
      m_findType(store.prepare(QStringLiteral("SELECT TypeID FROM DrinkTypes WHERE Type = ? LIMIT 1"))),
      m_findIng(store.prepare(QStringLiteral("SELECT id FROM Ingredients WHERE Ingredient = ? LIMIT 1"))),
      m_addDrink(store.prepare(QStringLiteral("INSERT INTO Drinks (id, Name, Description, GlassType) VALUES (?, ?, ?, ?)"))),
      m_addType(store.prepare(QStringLiteral("INSERT INTO DrinkTypes (TypeID, Type) VALUES (?, ?)"))),
      m_addTypeRel(store.prepare(QStringLiteral("INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (?, ?)"))),
      // A drink has few links and a category many: the drink's index is the one to read.
      m_hasTypeRel(store.prepare(QStringLiteral(
          "SELECT Count(DrinkID) FROM DrinkTypeRel WHERE DrinkID = ? AND +DrinkTypeID = ?"))),
      m_addIng(store.prepare(QStringLiteral("INSERT INTO Ingredients (id, Ingredient) VALUES (?, ?)"))),
      m_addLine(store.prepare(QStringLiteral(
          "INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES (?, ?, ?, ?, ?, ?)")))
{
}

qint32 CvxImporter::nextId(const char *maxSql)
{
    // Every new id comes from the store itself, so that nothing another writer added is reused.
    return m_store.scalar(QLatin1String(maxSql)).toInt() + 1;
}

qint32 CvxImporter::categoryId(const QString &name)
{
    m_findType.addBindValue(name);
    m_store.exec(m_findType);
    if (m_findType.next()) {
        const qint32 id = m_findType.value(0).toInt();
        m_findType.finish();
        return id;
    }
    const qint32 id = qint16(nextId("SELECT Max(TypeID) AS MaxID FROM DrinkTypes"));
    m_addType.addBindValue(id);
    m_addType.addBindValue(name);
    m_store.exec(m_addType);
    return id;
}

qint32 CvxImporter::ingredientId(const QString &name)
{
    m_findIng.addBindValue(name);
    m_store.exec(m_findIng);
    if (m_findIng.next()) {
        const qint32 id = m_findIng.value(0).toInt();
        m_findIng.finish();
        return id;
    }
    const qint32 id = nextId("SELECT Max(ID) AS MaxID FROM Ingredients");
    m_addIng.addBindValue(id);
    m_addIng.addBindValue(name);
    m_store.exec(m_addIng);
    return id;
}

CvxImporter::Outcome CvxImporter::importRecord(const CvxRecord &record)
{
    ScopedTransaction transaction(m_store);
    m_findDrink.addBindValue(record.name);
    m_store.exec(m_findDrink);
    const bool exists = m_findDrink.next();
    m_findDrink.finish();
    if (exists)
        return Ignored;

    const qint32 drinkId = nextId("SELECT Max(ID) AS MaxID FROM Drinks");
    m_addDrink.addBindValue(drinkId);
    m_addDrink.addBindValue(record.name);
    m_addDrink.addBindValue(record.recipe);
    m_addDrink.addBindValue(record.glass);
    m_store.exec(m_addDrink);

    for (const QString &category : record.categories) {
        const qint32 typeId = categoryId(category);
        if (typeId <= 0)
            continue;
        m_hasTypeRel.addBindValue(drinkId);
        m_hasTypeRel.addBindValue(typeId);
        m_store.exec(m_hasTypeRel);
        const bool linked = m_hasTypeRel.next() && m_hasTypeRel.value(0).toInt() > 0;
        m_hasTypeRel.finish();
        if (linked)
            continue;
        m_addTypeRel.addBindValue(drinkId);
        m_addTypeRel.addBindValue(typeId);
        m_store.exec(m_addTypeRel);
    }

    int seq = 0;
    for (const CvxLine &line : record.lines) {
        ++seq;
        if (line.ingredient.isEmpty())
            continue;
        m_addLine.addBindValue(drinkId);
        m_addLine.addBindValue(ingredientId(line.ingredient));
        m_addLine.addBindValue(seq);
        m_addLine.addBindValue(line.amount);
        m_addLine.addBindValue(line.metricAmount);
        m_addLine.addBindValue(double(line.measure));
        m_store.exec(m_addLine);
    }
    transaction.commit();
    return Added;
}

QString cvxNotExchangeFileMessage() { return QStringLiteral("This file is not a valid Corvane Drink Exchange file."); }

QString cvxUnknownVersionMessage()
{
    return QStringLiteral("This file uses an unknown version of the Corvane drink Exchange format.\r\n"
                          "This verison of Corvane supports CVX file version 1.0 and 1.1.");
}

CvxImportResult importCvxFile(DrinkStore &store, const QString &path,
                              const std::function<void(CvxImporter::Outcome)> &onRecord)
{
    CvxImportResult result;
    const QString shown = QDir::toNativeSeparators(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.status = CvxImportResult::Unreadable;
        result.message = QStringLiteral("The file %1 cannot be read: %2").arg(shown, file.errorString());
        return result;
    }
    CvxReader reader(Cp1252::decodeFile(file.readAll()));
    file.close();
    switch (reader.readHead()) {
    case CvxReader::NotExchangeFile:
        result.status = CvxImportResult::NotExchangeFile;
        result.message = cvxNotExchangeFileMessage();
        return result;
    case CvxReader::UnknownVersion:
        result.status = CvxImportResult::UnknownVersion;
        result.message = cvxUnknownVersionMessage();
        return result;
    case CvxReader::HeadOk:
        break;
    }
    CvxImporter importer(store);
    CvxRecord record;
    // Records are committed a group at a time, each one whole inside its group: a record that
    // fails is taken back alone, and the records before it stay.
    constexpr int kGroup = 500;
    int inGroup = 0;
    std::unique_ptr<ScopedTransaction> group;
    const auto commitGroup = [&] {
        if (group)
            group->commit();
        group.reset();
        inGroup = 0;
    };
    QSqlQuery savepoint(store.database());
    try {
        while (reader.next(record)) {
            if (!group)
                group = std::make_unique<ScopedTransaction>(store);
            savepoint.exec(QStringLiteral("SAVEPOINT cvx_record"));
            CvxImporter::Outcome outcome;
            try {
                outcome = importer.importRecord(record);
            } catch (...) {
                savepoint.exec(QStringLiteral("ROLLBACK TO cvx_record"));
                savepoint.exec(QStringLiteral("RELEASE cvx_record"));
                commitGroup();
                throw;
            }
            savepoint.exec(QStringLiteral("RELEASE cvx_record"));
            if (++inGroup == kGroup)
                commitGroup();
            onRecord(outcome);
        }
        commitGroup();
    } catch (const CvxError &e) {
        commitGroup();
        result.status = CvxImportResult::StoppedAtBadRecord;
        result.line = e.line();
        result.message = QStringLiteral("The import stopped in %1 at line %2: %3").arg(shown).arg(e.line()).arg(e.why());
        return result;
    }
    if (reader.stopLine() > 0) {
        result.status = CvxImportResult::StoppedAtBadRecord;
        result.line = reader.stopLine();
        result.message = QStringLiteral("The import stopped in %1 at line %2: %3")
                             .arg(shown).arg(reader.stopLine()).arg(reader.stopReason());
    }
    return result;
}
