#pragma once

#include "base/Currency.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class DrinkStore;

// A drink as the editor reads it from the store and writes it back. Saving never updates a
// drink in place: its rows are removed and written anew under the same id, all in one
// transaction, so a failure anywhere leaves the old drink whole.

// The fields of a stored drink as the editor shows them.
struct StoredDrink {
    bool found = false;
    QString name, recipe, comments, imagePath;
    QString priceText, costText; // "Currency" format; a null field reads as 0
    Currency cost;
    qint32 glassId = 0; // 0 (no entry) for a null glass
    std::optional<qint32> garnishId, buildId;
    bool lockPrice = false;
    std::vector<QStringList> lines; // the ingredient grid's rows, in line order
    QList<qint32> categoryIds;
};
// The rating is not read: an edited drink is saved with the rating chosen anew, or none.
StoredDrink LoadStoredDrink(DrinkStore &store, qint32 drinkId);

// A garnish, build or rating: the text typed for a new one, the combo's entries (text, id) and
// its selection.
struct SideChoice {
    QString newText;
    QList<QPair<QString, qint32>> entries;
    int selected = -1;
};

struct DrinkDraft {
    qint32 drinkId = 0; // above 0: the stored drink being replaced; 0 new; -1 a copy
    QString name, recipe, comments;
    std::optional<qint32> glassId; // nothing when no glass is selected
    QString priceText, costText;
    SideChoice garnish, build, rating;
    bool lockPrice = false;
    QString imagePathText;   // the picture field as shown
    QString loadedImagePath; // what the stored drink had, kept for an internal picture
    std::vector<QStringList> lines;
    QList<qint32> categoryIds; // in list order
};

// What the picture field shows for a picture of the image archive.
inline const QString InternalImageText = QStringLiteral("Corvane Internal Image");

// The checks before a save, in their order; the first that fails ends them.
struct ValidationFailure {
    int check = 0; // 1 name, 2 lines, 3 picture, 4 name taken, 5 copy not renamed
    QString message;
};
std::optional<ValidationFailure> ValidateDrink(DrinkStore &store, const QString &name, int lineCount,
                                               const QString &imagePathText, const QString &loadedName,
                                               bool copyFlag);

struct SaveOutcome {
    qint32 drinkId = 0;           // the id written
    bool inSearchResults = false; // the drink stood among the search results and stands there again
};
// Replaces the drink (or adds it) in one transaction. Throws StoreError with the store as it was.
SaveOutcome SaveDrink(DrinkStore &store, const DrinkDraft &draft);

// The id of a garnish, build or rating for the save: a typed text equal (exactly) to an entry
// reuses that entry, another text adds a row to the table; without a text the selection's id,
// or 0.
qint32 GetSideID(DrinkStore &store, const SideChoice &choice, const QString &table);
