#include "search/frmAdvSearch.h"

#include "base/VbConvert.h"
#include "search/SavedSearch.h"
#include "search/SearchResults.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSqlQuery>
#include <QVBoxLayout>
#include <stdexcept>

using AdvancedSearch::ValueSource;

namespace {

const QString kTitle = QStringLiteral("Corvane");
const QString kProblem = QStringLiteral("There was a problem with the search: ");

// The item value of a list's selection. An empty list has none, and the search reports that
// as a problem with the search.
qint32 itemValue(const QComboBox *list)
{
    if (list->currentIndex() < 0)
        throw std::runtime_error("Invalid property array index");
    return list->currentData().toInt();
}

// Field values saved and searched as the id of the chosen entry.
bool savesItemValue(const QString &field)
{
    return field == QLatin1String("Glassware") || field == QLatin1String("Category") ||
           field == QLatin1String("Marked");
}

QString errorText(const std::exception &e)
{
    return QString::fromUtf8(e.what());
}

} // namespace

frmAdvSearch::frmAdvSearch(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmAdvSearch"));
    setWindowTitle(QStringLiteral("Advanced Search"));
    buildRows();

    // Form_Load
    ApplySchemeToForm(this);
    m_enabledBack = cmbField[0]->palette().color(QPalette::Base);
    m_disabledBack = palette().color(QPalette::Window);
    cmbSavedSearch->addItem(SavedSearch::kUnsavedSearch, 0);
    loadReferenceList(lstCat, ValueSource::Category);
    loadReferenceList(lstGlass, ValueSource::Glass);
    loadReferenceList(lstRating, ValueSource::Rating);
    loadReferenceList(lstBuild, ValueSource::Build);
    loadReferenceList(lstGarnish, ValueSource::Garnish);
    for (const auto &[id, name] : SavedSearch::list(m_store))
        cmbSavedSearch->addItem(name, id);
    for (int i = 0; i < 5; ++i) {
        enable(cmbField[i], i == 0);
        enable(cmbComp[i], false);
        enable(cmbVal[i], false);
        enable(txtVal[i], true);
        if (i < 4)
            enable(cmbOp[i], false);
        const QSignalBlocker quiet(cmbField[i]);
        cmbField[i]->addItems(AdvancedSearch::fieldNames());
        cmbField[i]->setCurrentIndex(-1);
    }
    // Selections made while loading are not a user's choice.
    connect(cmbSavedSearch, &QComboBox::currentIndexChanged, this, &frmAdvSearch::cmbSavedSearch_Click);
    for (int i = 0; i < 5; ++i)
        connect(cmbField[i], &QComboBox::currentIndexChanged, this, [this, i] { cmbField_Click(i); });
}

void frmAdvSearch::buildRows()
{
    auto *layout = new QVBoxLayout(this);
    auto *grid = new QGridLayout();
    grid->setHorizontalSpacing(6);
    const auto combo = [this](const QString &name) {
        auto *c = new QComboBox(this);
        c->setObjectName(name);
        c->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        return c;
    };
    for (int i = 0; i < 5; ++i) {
        const QString n = QString::number(i + 1);
        cmbField[i] = combo(QStringLiteral("cmbField") + n);
        cmbField[i]->setMinimumContentsLength(10);
        cmbComp[i] = combo(QStringLiteral("cmbComp") + n);
        cmbComp[i]->setMinimumContentsLength(18);
        cmbVal[i] = combo(QStringLiteral("cmbVal") + n);
        cmbVal[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        cmbVal[i]->setMinimumContentsLength(22);
        cmbVal[i]->hide();
        txtVal[i] = new QLineEdit(this);
        txtVal[i]->setObjectName(QStringLiteral("txtVal") + n);
        txtVal[i]->setMinimumWidth(200);
        grid->addWidget(cmbField[i], i, 0);
        grid->addWidget(cmbComp[i], i, 1);
        // The text box and the list share one place; only one of them shows.
        grid->addWidget(txtVal[i], i, 2);
        grid->addWidget(cmbVal[i], i, 2);
        if (i < 4) {
            cmbOp[i] = combo(QStringLiteral("cmbOp") + n);
            cmbOp[i]->addItems({QStringLiteral("And"), QStringLiteral("Or")});
            cmbOp[i]->setCurrentIndex(-1);
            grid->addWidget(cmbOp[i], i, 3);
        }
    }
    grid->setColumnStretch(2, 1);
    layout->addLayout(grid);
    layout->addSpacing(8);

    auto *saved = new QHBoxLayout();
    lblSavedSearch = new QLabel(QStringLiteral("&Previously saved searches"), this);
    lblSavedSearch->setObjectName(QStringLiteral("lblSavedSearch"));
    cmbSavedSearch = combo(QStringLiteral("cmbSavedSearch"));
    cmbSavedSearch->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lblSavedSearch->setBuddy(cmbSavedSearch);
    cmdSave = new QPushButton(QStringLiteral("S&ave"), this);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdDelete = new QPushButton(QStringLiteral("&Delete"), this);
    cmdDelete->setObjectName(QStringLiteral("cmdDelete"));
    saved->addWidget(lblSavedSearch);
    saved->addWidget(cmbSavedSearch, 1);
    saved->addWidget(cmdSave);
    saved->addWidget(cmdDelete);
    layout->addLayout(saved);

    auto *buttons = new QHBoxLayout();
    cmdClear = new QPushButton(QStringLiteral("&Clear"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    cmdOK = new QPushButton(QStringLiteral("&Search"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addWidget(cmdClear);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmAdvSearch::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmAdvSearch::cmdCancel_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmAdvSearch::cmdClear_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmAdvSearch::cmdSave_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmAdvSearch::cmdDelete_Click);
}

void frmAdvSearch::loadReferenceList(RefList &list, ValueSource source)
{
    QSqlQuery rows = m_store.select(AdvancedSearch::referenceListSQL(source));
    while (rows.next())
        list.append({rows.value(0).toString(), rows.value(1).toInt()});
}

void frmAdvSearch::enable(QWidget *control, bool on)
{
    control->setEnabled(on);
    // A control that is off takes the form's background, one that is on the field list's.
    const QColor back = on ? m_enabledBack : m_disabledBack;
    QPalette p = control->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        p.setColor(group, QPalette::Base, back);
        p.setColor(group, QPalette::Button, back);
    }
    control->setPalette(p);
}

void frmAdvSearch::beep()
{
    QApplication::beep();
    emit beeped();
}

void frmAdvSearch::cmbField_Click(int row)
{
    QComboBox *field = cmbField[row];
    if (field->currentIndex() < 0)
        return;
    const QString name = field->currentText();
    enable(cmbComp[row], true);
    enable(cmbVal[row], true);
    enable(txtVal[row], true);
    if (row < 4) {
        enable(cmbOp[row], true);
        cmbOp[row]->setCurrentIndex(0);
    }
    if (row + 1 < 5)
        enable(cmbField[row + 1], true);

    cmbComp[row]->clear();
    cmbVal[row]->clear();
    txtVal[row]->setText(QString());

    cmbComp[row]->addItems(AdvancedSearch::comparisonsFor(name, row + 1));
    cmbComp[row]->setCurrentIndex(AdvancedSearch::firstComparison(name));

    const ValueSource source = AdvancedSearch::valueSourceFor(name);
    const bool list = source != ValueSource::Text;
    txtVal[row]->setVisible(!list);
    cmbVal[row]->setVisible(list);
    if (!list)
        return;
    const RefList *entries = nullptr;
    switch (source) {
    case ValueSource::Category:
        entries = &lstCat;
        break;
    case ValueSource::Glass:
        entries = &lstGlass;
        break;
    case ValueSource::Rating:
        entries = &lstRating;
        break;
    case ValueSource::Build:
        entries = &lstBuild;
        break;
    case ValueSource::Garnish:
        entries = &lstGarnish;
        break;
    default:
        // The two fixed entries carry no item value, which reads as 0.
        cmbVal[row]->addItem(AdvancedSearch::kMarked, 0);
        cmbVal[row]->addItem(AdvancedSearch::kUnmarked, 0);
        break;
    }
    if (entries) {
        for (const RefEntry &e : *entries)
            cmbVal[row]->addItem(e.text, e.id);
    }
    if (cmbVal[row]->count() > 0)
        cmbVal[row]->setCurrentIndex(0);
}

void frmAdvSearch::SetIngredientRow(int row, const QString &ingredient)
{
    cmbField[row - 1]->setCurrentIndex(1);
    txtVal[row - 1]->setText(ingredient);
}

CriterionRows frmAdvSearch::searchRows() const
{
    CriterionRows rows;
    for (int i = 0; i < 5; ++i) {
        if (cmbField[i]->currentIndex() < 0)
            continue;
        CriterionRow &r = rows[i];
        r.field = cmbField[i]->currentText();
        r.comparison = cmbComp[i]->currentText();
        switch (AdvancedSearch::valueSourceFor(r.field)) {
        case ValueSource::Text:
            r.value = txtVal[i]->text();
            break;
        case ValueSource::Marked:
            r.value =
                cmbVal[i]->currentText() == AdvancedSearch::kMarked ? QStringLiteral("True") : QStringLiteral("False");
            break;
        default:
            r.value = QString::number(itemValue(cmbVal[i]));
            break;
        }
        if (i < 4)
            r.connector = cmbOp[i]->currentText();
    }
    return rows;
}

CriterionRows frmAdvSearch::savedRows() const
{
    CriterionRows rows;
    for (int i = 0; i < 5; ++i) {
        if (cmbField[i]->currentIndex() < 0)
            continue;
        CriterionRow &r = rows[i];
        r.field = cmbField[i]->currentText();
        r.comparison = cmbComp[i]->currentText();
        // Rating, Build and Garnish keep their (hidden, empty) text box, not their choice.
        r.value = savesItemValue(r.field) ? QString::number(itemValue(cmbVal[i])) : txtVal[i]->text();
        if (i < 4)
            r.connector = cmbOp[i]->currentText();
    }
    return rows;
}

void frmAdvSearch::showError(const QString &text)
{
    QMessageBox::critical(this, kTitle, text);
}

void frmAdvSearch::cmdOK_Click()
{
    const bool nothingTyped = std::all_of(txtVal.begin(), txtVal.end(),
                                          [](const QLineEdit *t) { return t->text().isEmpty() && !t->isHidden(); });
    if (nothingTyped) {
        beep();
        return;
    }
    setCursor(Qt::WaitCursor);
    try {
        const AdvancedQuery query = ComposeAdvancedSearch(searchRows());
        if (!query.ingredientPath) {
            ReplaceSearchResults(m_store, query.sql);
        } else {
            const QList<SearchCandidate> found = FindIngredientMatches(m_store, query);
            if (found.isEmpty()) {
                // Nothing found: the dialog stays, and so do the earlier results.
                beep();
                unsetCursor();
                return;
            }
            ReplaceSearchResults(m_store, found);
        }
    } catch (const std::exception &e) {
        // The dialog stays open with its wait cursor, so the user can mend the criteria.
        QMessageBox::critical(this, kTitle, kProblem + errorText(e));
        return;
    }
    Canceled = false;
    unsetCursor();
    done(QDialog::Accepted);
}

void frmAdvSearch::cmdCancel_Click()
{
    Canceled = true;
    done(QDialog::Rejected);
}

void frmAdvSearch::reject()
{
    cmdCancel_Click();
}

void frmAdvSearch::closeEvent(QCloseEvent *event)
{
    // Closed by its frame the dialog reports no cancel: the main list shows what the table holds.
    setResult(QDialog::Rejected);
    event->accept();
}

void frmAdvSearch::cmdClear_Click()
{
    for (int i = 0; i < 5; ++i) {
        cmbField[i]->setCurrentIndex(-1);
        cmbComp[i]->setCurrentIndex(-1);
        if (i > 0)
            enable(cmbField[i], false);
        enable(cmbComp[i], false);
        cmbVal[i]->clear();
        enable(cmbVal[i], false);
        cmbVal[i]->hide();
        txtVal[i]->clear();
        txtVal[i]->show();
        if (i < 4) {
            cmbOp[i]->setCurrentIndex(-1);
            enable(cmbOp[i], false);
        }
    }
    cmbSavedSearch->setCurrentIndex(0);
}

void frmAdvSearch::cmdSave_Click()
{
    QStringList entries;
    for (int i = 0; i < cmbSavedSearch->count(); ++i)
        entries << cmbSavedSearch->itemText(i);
    const QString name = QInputDialog::getText(this, QStringLiteral("Save Search"),
                                               QStringLiteral("Please enter a name for this search"), QLineEdit::Normal,
                                               SavedSearch::defaultName(entries));
    // Cancelling the box answers the empty text.
    if (name.isEmpty())
        return;
    try {
        const qint32 id = SavedSearch::save(m_store, name, SavedSearch::linesOf(savedRows()));
        cmbSavedSearch->addItem(name, id);
        cmbSavedSearch->setCurrentIndex(cmbSavedSearch->count() - 1);
    } catch (const std::exception &e) {
        showError(errorText(e));
    }
}

void frmAdvSearch::cmbSavedSearch_Click()
{
    const int index = cmbSavedSearch->currentIndex();
    if (index <= 0)
        return;
    try {
        loadRows(SavedSearch::load(m_store, cmbSavedSearch->itemData(index).toInt()));
    } catch (const std::exception &e) {
        showError(errorText(e));
    }
}

void frmAdvSearch::loadRows(const QStringList &lines)
{
    // Rows the search does not mention keep what they hold.
    const QList<SavedSearch::LoadedRow> rows = SavedSearch::rowsOf(lines);
    for (int i = 0; i < rows.size(); ++i) {
        const SavedSearch::LoadedRow &row = rows[i];
        // A text a list no longer has leaves the list as it was.
        const auto select = [](QComboBox *list, const QString &text) {
            const int at = list->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
            if (at >= 0)
                list->setCurrentIndex(at);
        };
        select(cmbField[i], row.field);
        cmbField_Click(i);
        select(cmbComp[i], row.comparison);
        if (savesItemValue(row.field)) {
            // Every entry with that value is chosen in turn, so the last one stays chosen.
            const double wanted = VbConvert::Val(row.value);
            for (int e = 0; e < cmbVal[i]->count(); ++e) {
                if (cmbVal[i]->itemData(e).toInt() == wanted)
                    cmbVal[i]->setCurrentIndex(e);
            }
        } else {
            txtVal[i]->setText(row.value);
        }
        if (row.hasConnector)
            select(cmbOp[i], row.connector);
    }
}

void frmAdvSearch::cmdDelete_Click()
{
    const int index = cmbSavedSearch->currentIndex();
    if (index <= 0)
        return;
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Delete Saved Search"),
                    SavedSearch::deleteQuestion(cmbSavedSearch->itemText(index)), QMessageBox::Yes | QMessageBox::No,
                    this);
    if (box.exec() != QMessageBox::Yes)
        return;
    try {
        SavedSearch::remove(m_store, cmbSavedSearch->itemData(index).toInt());
    } catch (const std::exception &e) {
        showError(errorText(e));
        return;
    }
    {
        // The entry that takes its place is not a choice to load.
        const QSignalBlocker quiet(cmbSavedSearch);
        cmbSavedSearch->removeItem(index);
    }
    cmdClear_Click();
}
