// A stand-in for the program's write commands, for the tests that kill a writer: it writes the
// book the way the program does and says on stdout what it has committed.
//   corvane-bookwriter BOOK loop KEY COUNT   COUNT commands (0: until told to stop), each
//       setting the marks of its half of the drinks and the counter Constants.KEY in one
//       transaction, then printing "committed N"; SIGTERM ends it between two commands.
//   corvane-bookwriter BOOK hold             begins a command whose pages reach the book
//       before its commit, prints "hot" and waits to be killed.
//   corvane-bookwriter BOOK lock             takes the book for writing, prints "hot" and
//       waits to be killed.
//   corvane-bookwriter BOOK log              commits one change into a write-ahead log,
//       prints "hot" and waits to be killed.
#include "shell/QuitSignals.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"
#include "store/StoreFunctions.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <sqlite3.h>

namespace {

void say(const QByteArray &line)
{
    std::fputs(line.constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void raw(DrinkStore &store, const char *sql)
{
    if (sqlite3_exec(sqliteHandle(store.database()), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw StoreError(QString::fromUtf8(sqlite3_errmsg(sqliteHandle(store.database()))), QString::fromUtf8(sql));
}

int loop(DrinkStore &store, const QString &key, int count)
{
    QuitSignals quit;
    QObject::connect(&quit, &QuitSignals::quitRequested, qApp, [] { QCoreApplication::exit(0); });
    const int half = key == u"B" ? 1 : 0;
    int done = 0;
    QTimer next;
    QObject::connect(&next, &QTimer::timeout, qApp, [&] {
        try {
            const int n = done + 1;
            ScopedTransaction tx(store);
            QSqlQuery marks = store.prepare(QStringLiteral("UPDATE Drinks SET Marked = ? WHERE id % 2 = ?"));
            marks.bindValue(0, n % 2);
            marks.bindValue(1, half);
            store.exec(marks);
            QSqlQuery counter = store.prepare(QStringLiteral("INSERT OR REPLACE INTO Constants (Var, Val) VALUES (?, ?)"));
            counter.bindValue(0, key);
            counter.bindValue(1, QString::number(n));
            store.exec(counter);
            tx.commit();
            done = n;
            say("committed " + QByteArray::number(n));
        } catch (const StoreError &e) {
            say("failed " + e.engineText().toUtf8());
            QCoreApplication::exit(2);
        }
        if (count > 0 && done >= count)
            QCoreApplication::exit(0);
    });
    next.start(0);
    return QCoreApplication::exec();
}

[[noreturn]] void waitToBeKilled()
{
    say("hot");
    for (;;)
        QThread::sleep(1);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() < 3)
        return 64;
    try {
        DrinkStore store(args[1]);
        const QString mode = args[2];
        if (mode == u"loop" && args.size() == 5)
            return loop(store, args[3], args[4].toInt());
        if (mode == u"hold") {
            // The program never lets pages out before its commit; a writer that does, and dies
            // then, leaves the book needing its journal.
            raw(store, "PRAGMA cache_spill=ON");
            raw(store, "PRAGMA cache_size=5");
            raw(store, "BEGIN IMMEDIATE");
            raw(store, "PRAGMA user_version=7");
            raw(store, "UPDATE Drinks SET Marked = 1 - Marked, Description = Description || 'x'");
            waitToBeKilled();
        }
        if (mode == u"lock") {
            store.beginTransaction();
            waitToBeKilled();
        }
        if (mode == u"log") {
            raw(store, "PRAGMA journal_mode=WAL");
            raw(store, "INSERT OR REPLACE INTO Constants (Var, Val) VALUES ('A', 'logged')");
            waitToBeKilled();
        }
    } catch (const StoreError &e) {
        say("failed " + e.engineText().toUtf8());
        return 2;
    }
    return 64;
}
