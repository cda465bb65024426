#include "search/frmSearch.h"

#include "search/SearchResults.h"
#include "search/SearchSql.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"
#include "widgets/ApplyScheme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QVBoxLayout>

namespace {

struct KindText {
    const char *caption;
    const char *prompt;
};

KindText textsOf(int kind)
{
    switch (kind) {
    case SearchKind::ByName:
        return {"Search by Name", "Enter a name or part of a name to search for and click on OK to start your search."};
    case SearchKind::ByIngredient:
        return {"Search by Ingredient",
                "Enter an ingredient name or part of one to search for and click on OK to start your search."};
    case SearchKind::ByRecipe:
        return {"Search by Recipe", "Enter a word or phrase to search for and click on OK to start your search."};
    case SearchKind::ByGlassware:
        return {"Search by Glassware", "Select the glassware to search for and click on OK to start your search."};
    case SearchKind::ByCategory:
        return {"Search by Category", "Select the category to search for and click on OK to start your search."};
    default:
        return {nullptr, nullptr};
    }
}

} // namespace

frmSearch::frmSearch(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(QStringLiteral("Search for Drinks by Name"));

    auto *layout = new QVBoxLayout(this);
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    layout->addWidget(Label1);

    SearchText = new QLineEdit(this);
    SearchText->setObjectName(QStringLiteral("SearchText"));
    layout->addWidget(SearchText);
    cmbSearch = new QComboBox(this);
    cmbSearch->setObjectName(QStringLiteral("cmbSearch"));
    layout->addWidget(cmbSearch);

    pnlMatch = new QFrame(this);
    pnlMatch->setObjectName(QStringLiteral("pnlMatch"));
    auto *matchLayout = new QHBoxLayout(pnlMatch);
    matchLayout->setContentsMargins(0, 0, 0, 0);
    optMatchAll = new QRadioButton(QStringLiteral("Match all instances"), pnlMatch);
    optMatchAll->setObjectName(QStringLiteral("optMatchAll"));
    optMatchAll->setChecked(true);
    optMatchFirst = new QRadioButton(QStringLiteral("Match first letters only"), pnlMatch);
    optMatchFirst->setObjectName(QStringLiteral("optMatchFirst"));
    matchLayout->addWidget(optMatchAll);
    matchLayout->addWidget(optMatchFirst);
    matchLayout->addStretch(1);
    layout->addWidget(pnlMatch);
    layout->addStretch(1);

    auto *buttons = new QHBoxLayout();
    buttons->addStretch(1);
    OK = new QPushButton(QStringLiteral("&OK"), this);
    OK->setObjectName(QStringLiteral("OK"));
    OK->setDefault(true);
    Cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    Cancel->setObjectName(QStringLiteral("Cancel"));
    buttons->addWidget(OK);
    buttons->addWidget(Cancel);
    layout->addLayout(buttons);
    connect(OK, &QPushButton::clicked, this, &frmSearch::OK_Click);
    connect(Cancel, &QPushButton::clicked, this, &frmSearch::Cancel_Click);
    setMinimumWidth(420);

    // Form_Load
    ApplySchemeToForm(this);
    cmbSearch->clear();
    SearchText->clear();
    Canceled = true;
}

void frmSearch::Setup(int kind)
{
    SearchKind = kind;
    const KindText texts = textsOf(kind);
    if (!texts.caption)
        return;
    setWindowTitle(QString::fromLatin1(texts.caption));
    Label1->setText(QString::fromLatin1(texts.prompt));
    const bool list = kind == SearchKind::ByGlassware || kind == SearchKind::ByCategory;
    SearchText->setVisible(!list);
    pnlMatch->setVisible(!list);
    cmbSearch->setVisible(list);
    if (!list)
        return;
    QSqlQuery rows =
        m_store.select(kind == SearchKind::ByGlassware ? QStringLiteral("SELECT Name, GlassID FROM Glassware")
                                                       : QStringLiteral("SELECT Type, TypeID FROM DrinkTypes"));
    while (rows.next())
        cmbSearch->addItem(rows.value(0).toString(), rows.value(1).toInt());
    if (cmbSearch->count() > 0)
        cmbSearch->setCurrentIndex(0);
}

void frmSearch::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // Form_Activate
    if (!SearchText->isHidden())
        SearchText->setFocus();
    else
        cmbSearch->setFocus();
}

void frmSearch::OK_Click()
{
    setCursor(Qt::WaitCursor);
    QString value;
    if (!SearchText->isHidden()) {
        const QString text = SearchText->text();
        if (text.trimmed().isEmpty()) {
            // No search; the wait cursor stays until the dialog closes.
            SearchText->clear();
            SearchText->setFocus();
            return;
        }
        value = SimpleSearchPattern(text, optMatchAll->isChecked());
    } else {
        value = QString::number(cmbSearch->currentData().toInt());
    }
    try {
        ReplaceSearchResults(m_store, SimpleSearchSQL(SearchKind, value));
    } catch (const StoreError &e) {
        unsetCursor();
        QMessageBox::critical(this, QStringLiteral("Corvane"), e.engineText());
        return;
    }
    Canceled = false;
    accept();
}

// Only hides: Canceled stays as the load set it.
void frmSearch::Cancel_Click()
{
    reject();
}
