#pragma once

class CDrinkFacade;
class DrinkStore;
class QWidget;

// Runs the search dialog of a kind (301 to 305 simple, 306 advanced, 307 advanced with the
// current drink's first five ingredients) modally. True when the search filled
// SearchResults: the main list then turns to search mode. A kind outside 301 to 307 shows
// nothing. Throws StoreError when a list the dialog needs cannot be read.
bool ShowSearchDialog(int kind, DrinkStore &store, CDrinkFacade &facade, QWidget *parent);
