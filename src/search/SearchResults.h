#pragma once

#include <QList>
#include <QString>

class DrinkStore;
struct SearchCandidate;

// The working set of a search. A new search replaces it whole, in one transaction: a refused
// statement rolls the emptying back, and the earlier results stay.

// Empties SearchResults and lets the screen catch up before the new results are written.
void ClearSearchResults(DrinkStore &store);
// Replaces the results with what one "INSERT INTO SearchResults ..." statement selects.
void ReplaceSearchResults(DrinkStore &store, const QString &insertSql);
// Replaces the results with drinks found and checked one by one.
void ReplaceSearchResults(DrinkStore &store, const QList<SearchCandidate> &drinks);
