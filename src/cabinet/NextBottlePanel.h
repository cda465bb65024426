#pragma once

#include "cabinet/NextBottle.h"

#include <QWidget>
#include <optional>

class DrinkStore;
class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;

// The cabinet's "Next Bottle" page: the bottles not yet owned, ranked by the drinks each would
// complete, and for the chosen one those drinks, which can go to the main list as a search.
class NextBottlePanel : public QWidget {
    Q_OBJECT
public:
    explicit NextBottlePanel(DrinkStore &store, QWidget *parent = nullptr);

    // Ranks for these ticks. The book is read on the first call after forgetBook(), so the
    // ticks can change freely without another read. Throws StoreError when it cannot be read.
    void showFor(const std::vector<qint32> &tickedIds);
    // The store may have changed since: the next showFor reads it again.
    void forgetBook() { m_book.reset(); }

    // Ranking row data: the ingredient's id.
    static constexpr int IdRole = Qt::UserRole;

signals:
    // The unlocked drinks are in SearchResults.
    void drinksShown();

public slots:
    void lstNextBottle_Click();
    void cmdShowUnlocked_Click();

private:
    DrinkStore &m_store;
    std::optional<NextBottle::Book> m_book;
    NextBottle::Outlook m_outlook;
    std::vector<qint32> m_unlocked;

    QLabel *lblSummary;
    QTreeWidget *lstNextBottle;
    QLabel *lblUnlocked;
    QListWidget *lstUnlocked;
    QPushButton *cmdShowUnlocked;
};
