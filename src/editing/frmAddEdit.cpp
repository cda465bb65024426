#include "editing/frmAddEdit.h"

#include "base/ColorValues.h"
#include "base/modCorvane.h"
#include "editing/EditorLines.h"
#include "editing/EditorTab.h"
#include "presentation/TextGridModel.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QColor resolved(quint32 value) { return ColorValues::toQColor(value, QGuiApplication::palette()); }

// Selects the entry whose item data is the id; none when no entry has it. An empty control is
// left alone.
void SelectComboItem(QComboBox *combo, qint32 id)
{
    if (combo->count() == 0)
        return;
    combo->setCurrentIndex(combo->findData(id));
}

void SelectListItem(QListWidget *list, qint32 id)
{
    if (list->count() == 0)
        return;
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->data(Qt::UserRole).toInt() == id) {
            list->setCurrentRow(i);
            return;
        }
    }
    list->setCurrentRow(-1);
    list->clearSelection();
}

} // namespace

frmAddEdit::frmAddEdit(DrinkStore &store, const QString &appDir, QWidget *parent)
    : QDialog(parent), m_store(store), m_appDir(appDir)
{
    setObjectName(QStringLiteral("frmAddEdit"));
    m_lines = new TextGridModel(IngredientLineHeaders(), this);
    m_prices = new TextGridModel(PriceLineHeaders(), this);
    buildFrame();
    runGuarded(this, [this] { Form_Load(); });
}

frmAddEdit::~frmAddEdit() = default;

void frmAddEdit::buildFrame()
{
    auto *nameLabel = new QLabel(QStringLiteral("Drink Name"), this);
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    nameLabel->setBuddy(txtName);

    auto *pnlTabBase = new QFrame(this);
    pnlTabBase->setObjectName(QStringLiteral("pnlTabBase"));
    auto *tabs = new QHBoxLayout(pnlTabBase);
    tabs->setContentsMargins(0, 0, 0, 0);
    tabs->setSpacing(2);
    const QStringList captions{QStringLiteral("Ingredients"), QStringLiteral("Glassware"),
                               QStringLiteral("Categories"),  QStringLiteral("Recipe"),
                               QStringLiteral("Pricing"),     QStringLiteral("Picture")};
    for (int i = 0; i < PageCount; ++i) {
        pnlOpt[std::size_t(i)] = new EditorTab(i, captions[i], pnlTabBase);
        tabs->addWidget(pnlOpt[std::size_t(i)]);
        connect(pnlOpt[std::size_t(i)], &EditorTab::clicked, this, &frmAddEdit::ShowPage);
        connect(pnlOpt[std::size_t(i)], &EditorTab::hovered, this, &frmAddEdit::tabHover);
    }
    auto *pctSep = new QFrame(this);
    pctSep->setObjectName(QStringLiteral("pctSep"));
    pctSep->setFrameShape(QFrame::HLine);

    m_pages = new QStackedWidget(this);
    QWidget *pages[PageCount] = {buildIngredientPage(), buildGlassPage(),   buildCategoryPage(),
                                 buildRecipePage(),     buildPricingPage(), buildPicturePage()};
    for (int i = 0; i < PageCount; ++i) {
        pages[i]->setObjectName(QStringLiteral("pnlDisp%1").arg(i));
        m_pages->addWidget(pages[i]);
    }

    cmdPrev = new QPushButton(QStringLiteral("< &Previous"), this);
    cmdPrev->setObjectName(QStringLiteral("cmdPrev"));
    cmdNext = new QPushButton(QStringLiteral("&Next >"), this);
    cmdNext->setObjectName(QStringLiteral("cmdNext"));
    cmdSave = new QPushButton(QStringLiteral("&Save"), this);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdPrev, &QPushButton::clicked, this, &frmAddEdit::cmdPrev_Click);
    connect(cmdNext, &QPushButton::clicked, this, &frmAddEdit::cmdNext_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmAddEdit::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmAddEdit::cmdCancel_Click);
    for (QPushButton *b : {cmdPrev, cmdNext, cmdSave, cmdCancel})
        b->setAutoDefault(false);

    auto *layout = new QVBoxLayout(this);
    auto *nameRow = new QHBoxLayout();
    nameRow->addWidget(nameLabel);
    nameRow->addWidget(txtName, 1);
    layout->addLayout(nameRow);
    layout->addWidget(pnlTabBase);
    layout->addWidget(pctSep);
    layout->addWidget(m_pages, 1);
    auto *buttons = new QHBoxLayout();
    buttons->addWidget(cmdPrev);
    buttons->addWidget(cmdNext);
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);
    resize(720, 560);
}

void frmAddEdit::Form_Load()
{
    ApplySchemeToForm(this);
    // The tree keeps the platform's colours, its branch marks included, on any scheme.
    KeepPlatformColors(tvIng);
    ShowPage(0);
    LoadLists();
}

void frmAddEdit::ShowPage(int page)
{
    const auto &s = modCorvane::state();
    const QColor back = resolved(s.schemeBackgroundColor);
    const QColor highlight = resolved(s.schemeHighlightColor);
    const QColor text = resolved(s.schemeTextColor);
    const QColor activeText = ColorValues::selectedTextColor(s.schemeTextColor, QGuiApplication::palette());
    for (int j = 0; j < PageCount; ++j) {
        EditorTab *tab = pnlOpt[std::size_t(j)];
        if (j == page) {
            tab->setColors(highlight, activeText);
            tab->setPicture(EditorTab::Active);
        } else {
            tab->setColors(back, text);
            tab->setPicture(EditorTab::Rest);
        }
    }
    if (page >= 0 && page < PageCount)
        m_pages->setCurrentIndex(page);
}

int frmAddEdit::GetCurrentPage() const
{
    const QColor highlight = resolved(modCorvane::state().schemeHighlightColor);
    for (int i = 0; i < PageCount; ++i) {
        if (pnlOpt[std::size_t(i)]->backColor() == highlight)
            return i;
    }
    return -1;
}

void frmAddEdit::tabHover(int page, bool inside)
{
    if (page == GetCurrentPage())
        return;
    // Leaving puts the first picture back, as the tabs always have.
    pnlOpt[std::size_t(page)]->setPicture(inside ? EditorTab::Hover : EditorTab::Active);
}

void frmAddEdit::cmdNext_Click() { ShowPage((GetCurrentPage() + 1) % PageCount); }

void frmAddEdit::cmdPrev_Click()
{
    const int page = GetCurrentPage();
    ShowPage(page <= 0 ? PageCount - 1 : page - 1);
}

void frmAddEdit::Setup(bool editFlag, bool copyFlag, qint32 drinkID)
{
    m_editFlag = editFlag;
    m_copyFlag = copyFlag;
    m_drinkID = drinkID;
    if (editFlag) {
        setWindowTitle(QStringLiteral("Edit"));
        runGuarded(this, [this] { LoadDrink(); });
    } else {
        setWindowTitle(QStringLiteral("Add"));
        m_loadedName.clear();
    }
}

void frmAddEdit::LoadDrink()
{
    m_loading = true;
    const StoredDrink d = LoadStoredDrink(m_store, m_drinkID);
    if (d.found) {
        txtName->setText(d.name);
        m_loadedName = d.name;
        m_loadedImagePath = d.imagePath;
        txtRecipe->setPlainText(d.recipe);
        txtComment->setPlainText(d.comments);
        txtPrice->setText(d.priceText);
        txtCost->setText(d.costText);
        SelectListItem(lstGlass, d.glassId);
        SelectComboItem(cmbGarnish, d.garnishId.value_or(0));
        SelectComboItem(cmbBuild, d.buildId.value_or(0));
        chkLockPrice->setChecked(d.lockPrice);
        LoadPicture(d.imagePath);
    }
    m_lines->setRows(d.lines);
    cmdRemoveIng->setEnabled(m_lines->rowCount() > 0);
    // The breakdown of the stored lines against the stored cost, without asking the store again.
    RebuildPriceLines(*m_lines, *m_prices, d.costText);
    for (int i = 0; i < lstCats->count(); ++i)
        lstCats->item(i)->setCheckState(Qt::Unchecked);
    for (qint32 id : d.categoryIds) {
        for (int i = 0; i < lstCats->count(); ++i) {
            if (lstCats->item(i)->data(Qt::UserRole).toInt() == id)
                lstCats->item(i)->setCheckState(Qt::Checked);
        }
    }
    if (m_copyFlag)
        m_drinkID = -1;
    m_loading = false;
}

void frmAddEdit::LoadPicture(const QString &imageFilePath)
{
    if (imageFilePath.isEmpty())
        return;
    bool number = false;
    imageFilePath.toLongLong(&number);
    if (number && imageFilePath.size() == 6) {
        const QString member = imageFilePath + QStringLiteral(".jpg");
        const int code = ZipArchive::extractMember(m_appDir + QStringLiteral("/Corvane.cvi"),
                                                   QString::fromLatin1(ArchivePasswords::ImageArchive), member,
                                                   m_appDir);
        if (code == 0) {
            showPicture(m_appDir + u'/' + member);
            txtDrinkImagePath->setText(InternalImageText);
        }
        return;
    }
    showPicture(imageFilePath);
    txtDrinkImagePath->setText(imageFilePath);
}

void frmAddEdit::showPicture(const QString &path)
{
    const QPixmap picture(path);
    if (picture.isNull())
        return; // a picture that cannot be read leaves the old one, without a word
    pnlDrinkImage->setPixmap(picture.scaled(pnlDrinkImage->size().boundedTo(QSize(420, 320)), Qt::KeepAspectRatio,
                                            Qt::SmoothTransformation));
}

SideChoice frmAddEdit::sideChoice(QComboBox *combo, QLineEdit *newText) const
{
    SideChoice c;
    c.newText = newText->text();
    for (int i = 0; i < combo->count(); ++i)
        c.entries.append({combo->itemText(i), combo->itemData(i).toInt()});
    c.selected = combo->currentIndex();
    return c;
}

DrinkDraft frmAddEdit::draft() const
{
    DrinkDraft d;
    d.drinkId = m_drinkID;
    d.name = txtName->text();
    d.recipe = txtRecipe->toPlainText();
    d.comments = txtComment->toPlainText();
    if (QListWidgetItem *glass = lstGlass->currentItem(); glass && glass->isSelected())
        d.glassId = glass->data(Qt::UserRole).toInt();
    d.priceText = txtPrice->text();
    d.costText = txtCost->text();
    d.garnish = sideChoice(cmbGarnish, txtNewGarnish);
    d.build = sideChoice(cmbBuild, txtNewBuild);
    d.rating = sideChoice(cmbRating, txtNewRating);
    d.lockPrice = chkLockPrice->isChecked();
    d.imagePathText = txtDrinkImagePath->text();
    d.loadedImagePath = m_loadedImagePath;
    for (int r = 0; r < m_lines->rowCount(); ++r)
        d.lines.push_back(m_lines->row(r));
    for (int i = 0; i < lstCats->count(); ++i) {
        if (lstCats->item(i)->checkState() == Qt::Checked)
            d.categoryIds.append(lstCats->item(i)->data(Qt::UserRole).toInt());
    }
    return d;
}

bool frmAddEdit::SaveDrink()
{
    const auto failure = ValidateDrink(m_store, txtName->text(), m_lines->rowCount(), txtDrinkImagePath->text(),
                                       m_loadedName, m_copyFlag);
    if (failure) {
        plainMessage(this, failure->message);
        if (failure->check == 1)
            txtName->setFocus();
        else if (failure->check == 2)
            ShowPage(0);
        else if (failure->check == 3)
            ShowPage(5);
        return false;
    }
    const SaveOutcome out = ::SaveDrink(m_store, draft());
    m_drinkID = out.drinkId;
    m_saved = true;
    return true;
}

void frmAddEdit::cmdSave_Click()
{
    bool done = false;
    runGuarded(this, [&] { done = SaveDrink(); });
    if (done)
        accept();
}

void frmAddEdit::cmdCancel_Click() { reject(); }
