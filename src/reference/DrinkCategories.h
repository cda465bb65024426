#pragma once

#include <QString>
#include <vector>

class DrinkStore;

// The drink categories (DrinkTypes) and their drinks (DrinkTypeRel). Category 0, "Unknown /
// Other", is where a drink goes when its category is removed, and cannot be removed itself.
namespace DrinkCategories {

struct Category {
    qint32 id = 0;
    QString name;
};

// Every category, in the store's order.
std::vector<Category> LoadCategories(DrinkStore &store);

// The message that refuses a new name, or an empty text. Names are compared exactly, so two
// names that differ only in case are two categories.
QString AddProblem(const std::vector<Category> &list, const QString &text);
QString UpdateProblem(const std::vector<Category> &list, const QString &selectedName, const QString &text);
QString RemoveProblem(qint32 id);
QString RemoveQuestion(const QString &name);

// The largest id in the list plus 1.
qint32 NextCategoryID(const std::vector<Category> &list);
void AddCategory(DrinkStore &store, qint32 id, const QString &name);
void RenameCategory(DrinkStore &store, qint32 id, const QString &name);
// Its drinks move to category 0, then the category goes; one transaction.
void RemoveCategory(DrinkStore &store, qint32 id);
// Every marked drink gains the category (once); it loses none. One transaction.
void AddMarkedToCategory(DrinkStore &store, qint32 id);

} // namespace DrinkCategories
