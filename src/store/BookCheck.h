#pragma once

#include <QString>
#include <QStringList>

class DrinkStore;

// The engine's own check of the file, then the book's rules: every line names an ingredient
// that exists, every category link names a category that exists, and every drink with lines
// holds the cost its lines give. One text per problem; none when all is well.
QStringList checkBook(DrinkStore &store);
