#pragma once

#include <QString>
#include <QStringList>

// Creates a store file from SQL scripts (the schema, then rows). Used by the build of the
// delivered data, the benchmarks' generator and the tests; the program itself never creates
// a store.
namespace StoreBuilder {
// Runs every script, in order, on a new file at path (an existing file is replaced).
// Throws StoreError naming the script on the first failure.
void createFromScripts(const QString &path, const QStringList &scriptFiles);
// Runs SQL text (several statements) on an existing store file.
void runScriptText(const QString &path, const QString &sql);
}
