#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

class DrinkStore;

// Sets one flag column of many drinks (the marks, the cabinet's LiqCab) a few hundred drinks
// per statement: a list of a large book must not cost one statement per drink. Runs inside
// the caller's transaction. Between statements `progress` is told how many drinks are done;
// when it returns false the run stops and returns false, and the caller rolls back.
bool setDrinkFlag(DrinkStore &store, const QString &column, int value, const std::vector<qint32> &ids,
                  const std::function<bool(std::size_t done)> &progress = {});
