// The drink editor's pages and the lists they are filled with.
#include "editing/frmAddEdit.h"

#include "base/modCorvane.h"
#include "cabinet/LiquorCabinet.h"
#include "editing/EditorLines.h"
#include "editing/Measures.h"
#include "presentation/TextGridModel.h"
#include "presentation/PageFiles.h"
#include "pricing/frmDrinkPrices.h"
#include "store/DrinkStore.h"
#include "widgets/NamedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {


QTableView *lineGrid(TextGridModel *model, const char *name, QWidget *parent)
{
    auto *grid = named(new QTableView(parent), name);
    grid->setModel(model);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 6);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return grid;
}

void fillCombo(DrinkStore &store, QComboBox *combo, const QString &sql, const char *idField)
{
    combo->clear();
    QSqlQuery q = store.select(sql);
    while (q.next())
        combo->addItem(q.value(QStringLiteral("Name")).toString(), q.value(QString::fromLatin1(idField)).toInt());
    combo->setCurrentIndex(-1);
}

} // namespace

QWidget *frmAddEdit::buildIngredientPage()
{
    auto *page = new QWidget(this);
    txtIngName = named(new QLineEdit(page), "txtIngName");
    cmbIngUnits = named(new QComboBox(page), "cmbIngUnits");
    txtAmount = named(new QLineEdit(page), "txtAmount");
    tvIng = named(new QTreeWidget(page), "tvIng");
    tvIng->setHeaderHidden(true);
    cfIng = lineGrid(m_lines, "cfIng", page);
    cmdAddIng = dialogButton(QStringLiteral("&Add"), "cmdAddIng", page);
    cmdEditIng = dialogButton(QStringLiteral("&Edit Ingredients..."), "cmdEditIng", page);
    cmdRemoveIng = dialogButton(QStringLiteral("&Remove"), "cmdRemoveIng", page);
    cmdMoveUp = dialogButton(QStringLiteral("Move &Up"), "cmdMoveUp", page);
    cmdMoveDown = dialogButton(QStringLiteral("&Move Down"), "cmdMoveDown", page);
    cmdRemoveIng->setEnabled(false);
    connect(cmdAddIng, &QPushButton::clicked, this, &frmAddEdit::cmdAddIng_Click);
    connect(cmdEditIng, &QPushButton::clicked, this, &frmAddEdit::cmdEditIng_Click);
    connect(cmdRemoveIng, &QPushButton::clicked, this, &frmAddEdit::cmdRemoveIng_Click);
    connect(cmdMoveUp, &QPushButton::clicked, this, &frmAddEdit::cmdMoveUp_Click);
    connect(cmdMoveDown, &QPushButton::clicked, this, &frmAddEdit::cmdMoveDown_Click);

    auto *grid = new QGridLayout(page);
    grid->addWidget(new QLabel(QStringLiteral("Enter the ingredient name"), page), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Select the units"), page), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Enter the amount"), page), 0, 2);
    grid->addWidget(txtIngName, 1, 0);
    grid->addWidget(cmbIngUnits, 1, 1);
    grid->addWidget(txtAmount, 1, 2);
    grid->addWidget(cmdAddIng, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("OR select an existing ingredient below:"), page), 2, 0);
    grid->addWidget(new QLabel(QStringLiteral("Current drink ingredients"), page), 2, 1, 1, 3);
    grid->addWidget(tvIng, 3, 0, 2, 1);
    grid->addWidget(cfIng, 3, 1, 1, 3);
    auto *lineButtons = new QHBoxLayout();
    lineButtons->addWidget(cmdEditIng);
    lineButtons->addStretch(1);
    lineButtons->addWidget(cmdRemoveIng);
    lineButtons->addWidget(cmdMoveUp);
    lineButtons->addWidget(cmdMoveDown);
    grid->addLayout(lineButtons, 4, 1, 1, 3);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(3, 1);
    // A line is typed left to right and added: name, units, amount, "Add".
    QWidget::setTabOrder(txtIngName, cmbIngUnits);
    QWidget::setTabOrder(cmbIngUnits, txtAmount);
    QWidget::setTabOrder(txtAmount, cmdAddIng);
    QWidget::setTabOrder(cmdAddIng, tvIng);
    QWidget::setTabOrder(tvIng, cfIng);
    return page;
}

QWidget *frmAddEdit::buildGlassPage()
{
    auto *page = new QWidget(this);
    lstGlass = named(new QListWidget(page), "lstGlass");
    pnlGlass = named(new QLabel(page), "pnlGlass");
    pnlGlass->setMinimumSize(120, 160);
    pnlGlass->setAlignment(Qt::AlignCenter);
    lblGlasswareDesc = named(new QLabel(page), "lblGlasswareDesc");
    lblGlasswareDesc->setWordWrap(true);
    lblGlasswareDesc->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    connect(lstGlass, &QListWidget::itemSelectionChanged, this, &frmAddEdit::lstGlass_Click);
    auto *grid = new QGridLayout(page);
    grid->addWidget(new QLabel(QStringLiteral("Select the glassware"), page), 0, 0);
    grid->addWidget(lstGlass, 1, 0, 2, 1);
    grid->addWidget(pnlGlass, 1, 1);
    grid->addWidget(lblGlasswareDesc, 2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    return page;
}

QWidget *frmAddEdit::buildCategoryPage()
{
    auto *page = new QWidget(this);
    lstCats = named(new QListWidget(page), "lstCats");
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(new QLabel(QStringLiteral("Check off the categories this drink belongs in."), page));
    layout->addWidget(lstCats, 1);
    return page;
}

QWidget *frmAddEdit::buildRecipePage()
{
    auto *page = new QWidget(this);
    txtRecipe = named(new QPlainTextEdit(page), "txtRecipe");
    txtComment = named(new QPlainTextEdit(page), "txtComment");
    cmbGarnish = named(new QComboBox(page), "cmbGarnish");
    cmbBuild = named(new QComboBox(page), "cmbBuild");
    cmbRating = named(new QComboBox(page), "cmbRating");
    txtNewGarnish = named(new QLineEdit(page), "txtNewGarnish");
    txtNewBuild = named(new QLineEdit(page), "txtNewBuild");
    txtNewRating = named(new QLineEdit(page), "txtNewRating");
    auto *grid = new QGridLayout(page);
    grid->addWidget(new QLabel(QStringLiteral("Enter the recipe, description or instructions"), page), 0, 0, 1, 3);
    grid->addWidget(txtRecipe, 1, 0, 1, 3);
    const struct {
        const char *caption;
        QComboBox *combo;
        QLineEdit *text;
    } sides[] = {{"Select the garnish", cmbGarnish, txtNewGarnish},
                 {"Select the build method", cmbBuild, txtNewBuild},
                 {"Choose the drink rating", cmbRating, txtNewRating}};
    int row = 2;
    for (const auto &side : sides) {
        grid->addWidget(new QLabel(QString::fromLatin1(side.caption), page), row, 0);
        grid->addWidget(side.combo, row, 1);
        grid->addWidget(side.text, row, 2);
        ++row;
    }
    grid->addWidget(new QLabel(QStringLiteral("Enter any notes or comments about this drink"), page), row, 0, 1, 3);
    grid->addWidget(txtComment, row + 1, 0, 1, 3);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(row + 1, 1);
    return page;
}

QWidget *frmAddEdit::buildPricingPage()
{
    auto *page = new QWidget(this);
    txtCost = named(new QLineEdit(page), "txtCost");
    txtPrice = named(new QLineEdit(page), "txtPrice");
    cmdResetCost = dialogButton(QStringLiteral("Reset C&ost"), "cmdResetCost", page);
    cmdResetPrice = dialogButton(QStringLiteral("Reset P&rice"), "cmdResetPrice", page);
    cmdPriceSettings = dialogButton(QStringLiteral("Price &Settings"), "cmdPriceSettings", page);
    connect(cmdPriceSettings, &QPushButton::clicked, this, &frmAddEdit::cmdPriceSettings_Click);
    chkLockPrice = named(new QCheckBox(QStringLiteral("Lock the price so it will not change when prices are "
                                                      "recalculated."),
                                       page),
                         "chkLockPrice");
    lblPriceSettings = named(new QLabel(page), "lblPriceSettings");
    lblPriceSettings->setWordWrap(true);
    lblPriceSettings->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    cfPrice = lineGrid(m_prices, "cfPrice", page);
    cfPrice->setColumnHidden(PriceCol::ID, true);
    cfPrice->horizontalHeader()->setSectionResizeMode(PriceCol::Ingredient, QHeaderView::Stretch);
    connect(cmdResetCost, &QPushButton::clicked, this, &frmAddEdit::cmdResetCost_Click);
    connect(cmdResetPrice, &QPushButton::clicked, this, &frmAddEdit::cmdResetPrice_Click);

    auto *grid = new QGridLayout(page);
    grid->addWidget(new QLabel(QStringLiteral("Drink Cost"), page), 0, 0);
    grid->addWidget(txtCost, 0, 1);
    grid->addWidget(cmdResetCost, 0, 2);
    grid->addWidget(new QLabel(QStringLiteral("Drink Price"), page), 1, 0);
    grid->addWidget(txtPrice, 1, 1);
    grid->addWidget(cmdResetPrice, 1, 2);
    grid->addWidget(chkLockPrice, 2, 0, 1, 3);
    grid->addWidget(lblPriceSettings, 0, 3, 3, 1);
    grid->addWidget(cmdPriceSettings, 3, 3, Qt::AlignRight);
    grid->addWidget(new QLabel(QStringLiteral("Price Breakdown"), page), 4, 0, 1, 4);
    grid->addWidget(cfPrice, 5, 0, 1, 4);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(5, 1);
    return page;
}

QWidget *frmAddEdit::buildPicturePage()
{
    auto *page = new QWidget(this);
    txtDrinkImagePath = named(new QLineEdit(page), "txtDrinkImagePath");
    cmdBrowse = dialogButton(QStringLiteral("&Browse..."), "cmdBrowse", page);
    pnlDrinkImage = named(new QLabel(page), "pnlDrinkImage");
    pnlDrinkImage->setAlignment(Qt::AlignCenter);
    pnlDrinkImage->setFrameShape(QFrame::StyledPanel);
    pnlDrinkImage->setMinimumSize(320, 240);
    connect(cmdBrowse, &QPushButton::clicked, this, &frmAddEdit::cmdBrowse_Click);
    auto *grid = new QGridLayout(page);
    grid->addWidget(new QLabel(QStringLiteral("Drink picture location and name"), page), 0, 0, 1, 2);
    grid->addWidget(txtDrinkImagePath, 1, 0);
    grid->addWidget(cmdBrowse, 1, 1);
    grid->addWidget(pnlDrinkImage, 2, 0, 1, 2);
    grid->setRowStretch(2, 1);
    return page;
}

void frmAddEdit::LoadLists()
{
    LoadIngredientTree();
    cmbIngUnits->addItems(EditorMeasureNames());
    cmbIngUnits->setCurrentIndex(-1);
    const bool metric = modCorvane::state().useMetric;
    for (int c = 0; c < IngCol::Count; ++c)
        cfIng->setColumnHidden(c, c != IngCol::Ingredient && c != IngCol::Cost &&
                                      c != (metric ? IngCol::MetricAmount : IngCol::Amount));
    SizeLineColumns();
    fillCombo(m_store, cmbGarnish, QStringLiteral("SELECT * FROM Garnish ORDER BY Name"), "id");
    fillCombo(m_store, cmbBuild, QStringLiteral("SELECT * FROM Build ORDER BY Name"), "id");
    fillCombo(m_store, cmbRating, QStringLiteral("SELECT * FROM Ratings ORDER BY RatingID"), "RatingID");
    QSqlQuery glass = m_store.select(QStringLiteral("SELECT GlassID, Name FROM Glassware ORDER BY GlassID"));
    while (glass.next()) {
        auto *item = new QListWidgetItem(glass.value(1).toString(), lstGlass);
        item->setData(Qt::UserRole, glass.value(0).toInt());
    }
    QSqlQuery cats = m_store.select(QStringLiteral("SELECT * FROM DrinkTypes ORDER BY Type"));
    while (cats.next()) {
        auto *item = new QListWidgetItem(cats.value(QStringLiteral("Type")).toString(), lstCats);
        item->setData(Qt::UserRole, cats.value(QStringLiteral("TypeID")).toInt());
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    ShowPriceSettings();
}

void frmAddEdit::LoadIngredientTree()
{
    tvIng->clear();
    const std::vector<LiquorCabinet::Node> nodes = LiquorCabinet::LoadCabinetTree(m_store);
    std::vector<QTreeWidgetItem *> items;
    items.reserve(nodes.size());
    QList<QTreeWidgetItem *> roots;
    for (const LiquorCabinet::Node &n : nodes) {
        QTreeWidgetItem *parent = n.parent >= 0 ? items[std::size_t(n.parent)] : nullptr;
        auto *item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem();
        item->setText(0, n.text);
        item->setData(0, Qt::UserRole, n.key);
        if (n.level == LiquorCabinet::Node::Ingredient)
            item->setData(0, Qt::UserRole + 1, n.tag);
        items.push_back(item);
        if (!parent)
            roots.append(item);
    }
    tvIng->addTopLevelItems(roots);
}

void frmAddEdit::cmdPriceSettings_Click()
{
    frmDrinkPrices dialog(m_store, this);
    dialog.Setup(true);
    dialog.exec();
    ShowPriceSettings();
}

void frmAddEdit::ShowPriceSettings()
{
    m_priceSettings = LoadPriceSettings(m_store);
    lblPriceSettings->setText(PriceSettingsText(m_priceSettings));
}

void frmAddEdit::lstGlass_Click()
{
    QListWidgetItem *item = lstGlass->currentItem();
    if (!item || !item->isSelected())
        return;
    const qint32 id = item->data(Qt::UserRole).toInt();
    QSqlQuery q = m_store.prepare(QStringLiteral("SELECT Notes FROM Glassware WHERE GlassID = ?"));
    q.addBindValue(id);
    m_store.exec(q);
    if (!q.next())
        return;
    const QPixmap glass(PageFiles::GlassPicturePath(m_appDir, id));
    pnlGlass->setPixmap(glass.isNull() ? QPixmap() : glass.scaledToHeight(std::min(glass.height() * 2, 200)));
    lblGlasswareDesc->setText(q.value(0).toString());
}

void frmAddEdit::cmdBrowse_Click()
{
    if (txtDrinkImagePath->text() == InternalImageText) {
        const auto answer = QMessageBox::question(
            this, QStringLiteral("Replace Internal Image"),
            QStringLiteral("If you replace the Corvane internal image with one of your own, the internal image will "
                           "be lost.  Do you want to continue?"),
            QMessageBox::Yes | QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Find Drink Exchange Files"),
                                                      QStringLiteral("*.bmp;*.jpg;*.gif"),
                                                      QStringLiteral("Image Files (*.bmp *.jpg *.gif)"));
    if (path.isEmpty())
        return;
    txtDrinkImagePath->setText(path);
    showPicture(path);
}
