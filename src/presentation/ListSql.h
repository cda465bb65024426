#pragma once

#include <QString>

// The statements behind the main list. Every list is one statement, chosen by the view, the
// letter tab or selector id, whether a search is shown, and (view 4) marked or not.
QString BuildListSQL(int view, int selection, bool inSearch, bool markedOnly);

// The selector of views 1, 2 and 3 (ingredients, glasses, categories); "" for other views.
QString SelectorSQL(int view);

// The quick name search of View All.
QString QuickSearchSQL(const QString &text, bool inSearch);
