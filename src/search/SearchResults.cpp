#include "search/SearchResults.h"

#include "search/AdvancedSearch.h"
#include "search/SearchSql.h"
#include "store/DrinkStore.h"

#include <QCoreApplication>

void ClearSearchResults(DrinkStore &store)
{
    store.execute(kDeleteSearchResults);
    // Repaints only: a click now must not act on a dialog that is halfway through its search.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ReplaceSearchResults(DrinkStore &store, const QString &insertSql)
{
    ScopedTransaction tx(store);
    ClearSearchResults(store);
    store.execute(insertSql);
    tx.commit();
}

void ReplaceSearchResults(DrinkStore &store, const QList<SearchCandidate> &drinks)
{
    ScopedTransaction tx(store);
    ClearSearchResults(store);
    AppendSearchResults(store, drinks);
    tx.commit();
}
