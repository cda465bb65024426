#include "search/SearchDialogs.h"

#include "presentation/CDrinkFacade.h"
#include "search/SearchSql.h"
#include "search/frmAdvSearch.h"
#include "search/frmSearch.h"
#include "store/DrinkStore.h"

#include <QCoreApplication>
#include <QSqlQuery>

bool ShowSearchDialog(int kind, DrinkStore &store, CDrinkFacade &facade, QWidget *parent)
{
    if (kind >= SearchKind::ByName && kind <= SearchKind::ByCategory) {
        frmSearch dialog(store, parent);
        dialog.Setup(kind);
        dialog.exec();
        return !dialog.WasCanceled();
    }
    if (kind != SearchKind::Advanced && kind != SearchKind::FindSimilar)
        return false;

    frmAdvSearch dialog(store, parent);
    if (kind == SearchKind::FindSimilar) {
        QSqlQuery lines = facade.currentDrinkIngredients();
        // A drink without ingredients opens the dialog blank, without clearing it.
        if (lines.next()) {
            dialog.cmdClear_Click();
            int n = 1;
            do {
                // Rows beyond the fifth have no place and are passed over.
                if (n <= 5)
                    dialog.SetIngredientRow(n, lines.value(QStringLiteral("Ingredient")).toString());
                ++n;
            } while (lines.next());
        }
    }
    dialog.exec();
    return !dialog.WasCanceled();
}
