#pragma once

class DrinkStore;

// Brings a drink store made by an earlier version of the program up to the current schema, in
// one transaction, once the file is known to be a drink store. A current store is not written.
namespace SchemaUpgrade {

inline constexpr int kCurrentVersion = 2;

void upgrade(DrinkStore &store);

} // namespace SchemaUpgrade
