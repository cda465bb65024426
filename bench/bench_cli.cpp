// corvane-cli as a script runs it: the whole process, from its start to its last line of
// output, on the store's copy. The process starts Qt, opens and checks the book and writes
// its rows to /dev/null.
#include "BenchRegistry.h"

#include "base/Currency.h"
#include "store/DrinkStore.h"

#include <QFile>
#include <QProcess>
#include <QSqlQuery>

namespace {

bool runCli(const QString &appDir, const QStringList &args)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("CORVANE_DATA_DIR"), QStringLiteral(CORVANE_BENCH_DATA_DIR));
    env.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    p.setProcessEnvironment(env);
    p.setStandardOutputFile(QProcess::nullDevice());
    p.setStandardErrorFile(QProcess::nullDevice());
    p.start(QStringLiteral(CORVANE_CLI_BINARY), QStringList{QStringLiteral("--appdir"), appDir} + args);
    return p.waitForFinished(120000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

// 5,000 rows of a supplier's list over the store's ingredients, each price moved by step.
QString writePriceList(DrinkStore &store, const QString &path, Currency step)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT Ingredient, unitprice FROM Ingredients ORDER BY id"));
    QStringList names, prices;
    while (q.next()) {
        names << q.value(0).toString();
        prices << (Currency::fromVariant(q.value(1)) + step).toSqlText();
    }
    QByteArray text = "Ingredient,Unit price\n";
    for (int i = 0; i < 5000 && !names.isEmpty(); ++i) {
        const qsizetype k = i % names.size();
        text += '"' + names[k].replace(u'"', QLatin1String("\"\"")).toUtf8() + "\"," + prices[k].toUtf8() + '\n';
    }
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(text);
    return path;
}

void cliCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    const Bench::Store copy = Bench::scratchCopy(store);
    const auto processCase = [&](const char *id, const QString &label, QStringList args, Bench::Floor floor) {
        floor.reason = QStringLiteral("a whole process: Qt's start, the book opened and checked, and every row written "
                                      "out as text");
        registry.add(id, label, copy,
                     [dir = copy.appDir, args](benchmark::State &state) {
                         for (auto _ : state)
                             if (!runCli(dir, args))
                                 state.SkipWithError("corvane-cli failed");
                     },
                     floor);
    };
    Bench::Floor listFloor;
    listFloor.statements << QStringLiteral("SELECT ID, Name FROM Drinks ORDER BY Name");
    processCase("cli.list.all", QStringLiteral("corvane-cli list --view all"), {QStringLiteral("list")}, listFloor);

    Bench::Floor repriceFloor;
    repriceFloor.statements << QStringLiteral("SELECT R.DrinkID, ROUND(SUM(I.unitprice / I.ozperunit * R.measure), 4) "
                                              "FROM DrinkRel R INNER JOIN Ingredients I ON R.IngID = I.id GROUP BY "
                                              "R.DrinkID")
                            << QStringLiteral("SELECT id, Name FROM Drinks")
                            << QStringLiteral("SELECT ID, Cost, Price FROM Drinks WHERE LockPrice = 0");
    repriceFloor.note = QStringLiteral("the costs (the line cost in floating point where the program's own function "
                                       "rounds each line), names and prices read; the program works the prices out and "
                                       "writes a row for each drink that changes");
    processCase("cli.reprice.dry", QStringLiteral("corvane-cli reprice (dry run, cost +300%, quarters)"),
                {QStringLiteral("reprice"), QStringLiteral("--method"), QStringLiteral("cost"), QStringLiteral("--percent"),
                 QStringLiteral("300"), QStringLiteral("--round"), QStringLiteral("2")},
                repriceFloor);

    // Every iteration writes 5,000 prices: the list with moved prices and the list with the
    // store's own prices take turns, and the store is left with its own.
    const QString moved = writePriceList(setup, copy.appDir + QStringLiteral("/prices-moved.csv"),
                                         Currency::fromTenThousandths(100));
    const QString own = writePriceList(setup, copy.appDir + QStringLiteral("/prices-own.csv"), Currency());
    Bench::Floor importFloor;
    importFloor.statements << QStringLiteral("BEGIN")
                           << QStringLiteral("UPDATE Ingredients SET unitprice = unitprice + 0.01")
                           << QStringLiteral("COMMIT");
    importFloor.note = QStringLiteral("one UPDATE of every ingredient where the program looks up and binds each of "
                                      "5,000 rows");
    importFloor.reason = QStringLiteral("a whole process: Qt's start, the book opened and checked, the list read, and "
                                        "5,000 names looked up one by one");
    registry.add("cli.prices.import", QStringLiteral("corvane-cli prices import --apply (5,000 rows)"), copy,
                 [dir = copy.appDir, moved, own](benchmark::State &state) {
                     bool movedNext = true;
                     for (auto _ : state) {
                         if (!runCli(dir, {QStringLiteral("prices"), QStringLiteral("import"), movedNext ? moved : own,
                                           QStringLiteral("--apply")}))
                             state.SkipWithError("corvane-cli failed");
                         movedNext = !movedNext;
                     }
                     if (!movedNext)
                         runCli(dir, {QStringLiteral("prices"), QStringLiteral("import"), own, QStringLiteral("--apply")});
                 },
                 importFloor);
}

const Bench::Area area(95, cliCases);

} // namespace
