#include "shell/frmMain.h"

#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "exchange/MapFile.h"
#include "exchange/frmDXImport.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "presentation/PageFiles.h"
#include "shell/InstanceLink.h"
#include "shell/CommandPanels.h"
#include "shell/MainScheme.h"
#include "base/Options.h"
#include "store/ColorSchemes.h"
#include "shell/ListController.h"
#include "shell/ShellMessages.h"
#include "widgets/HandlerGuard.h"
#include "shell/frmAboutBox.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QUrl>
#include <QSplitter>
#include <QStatusBar>
#include <QTextBrowser>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QString kReady = QStringLiteral("Ready for command");
}

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Corvane"));
    buildWidgets();
}

frmMain::~frmMain()
{
    // The facade's statements must go before the connection they run on.
    m_facade.reset();
    delete m_listModel;
    m_listModel = nullptr;
    m_store.reset();
}

void frmMain::buildWidgets()
{
    auto *central = new QWidget(this);
    pnlCommands = new CommandPanels(central, central);
    pnlCommands->setStateSource([] { return modCorvane::state().currentView; },
                                [this] { return m_facade && m_facade->currentDrinkMark(); });
    connect(pnlCommands, &CommandPanels::command, this, &frmMain::RunCommand);
    connect(pnlCommands, &CommandPanels::hint, this, [this](const QString &text) { sbMain->setText(text); });
    auto *split = new QSplitter(Qt::Horizontal, central);
    split->setObjectName(QStringLiteral("splitMain"));

    auto *left = new QWidget(split);
    auto *leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    pnlLogo = new QPushButton(QStringLiteral("Corvane"), left);
    pnlLogo->setObjectName(QStringLiteral("pnlLogo"));
    pnlLogo->setFlat(true);
    QFont logoFont = pnlLogo->font();
    logoFont.setPointSize(logoFont.pointSize() + 6);
    logoFont.setBold(true);
    pnlLogo->setFont(logoFont);
    connect(pnlLogo, &QPushButton::clicked, this, &frmMain::pnlLogo_Click);
    leftLayout->addWidget(pnlLogo);

    m_listModel = new DrinkListModel();
    m_list = new ListController(left, m_listModel);
    connect(m_list, &ListController::showDrink, this, &frmMain::ShowDrink);
    connect(m_list, &ListController::closePanels, pnlCommands, &CommandPanels::CloseCommandPopup);
    leftLayout->addWidget(m_list->widget(), 1);

    wbMain = new QTextBrowser(split);
    wbMain->setObjectName(QStringLiteral("wbMain"));
    split->addWidget(left);
    split->addWidget(wbMain);
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 3);

    // The mailbox a running copy is handed command lines through; never seen.
    cmdDummy = new QPushButton(kReady, central);
    cmdDummy->setObjectName(QStringLiteral("cmdDummy"));
    cmdDummy->hide();
    connect(cmdDummy, &QPushButton::clicked, this, &frmMain::cmdDummy_Click);

    auto *layout = new QHBoxLayout(central);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(pnlCommands);
    layout->addWidget(split, 1);
    setCentralWidget(central);

    sbMain = new QLabel(this);
    sbMain->setObjectName(QStringLiteral("sbMain"));
    sbCount = m_list->countLabel();
    statusBar()->addWidget(sbMain, 1);
    statusBar()->addPermanentWidget(sbCount);
    resize(960, 640);
}

bool frmMain::guarded(const std::function<void()> &f) { return runGuarded(this, f); }

bool frmMain::Form_Load(const QString &commandLine)
{
    m_openedByMap = false;
    // While another copy holds the book the window keeps painting; the user cannot act meanwhile.
    DrinkStore::setBusyWaiter(
        [] { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers); });
    CLocalConfig::setNoticeHandler([window = QPointer<frmMain>(this)](const QString &text) {
        QMessageBox::warning(window && window->isVisible() ? window.data() : nullptr, QStringLiteral("Corvane"), text);
    });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QString storePath = AppPaths::storeFile();
    try {
        m_store = std::make_unique<DrinkStore>(storePath);
        m_list->setStore(m_store.get());
        m_facade = std::make_unique<CDrinkFacade>(*m_store, AppPaths::appDir());
    } catch (const StoreError &e) {
        QApplication::restoreOverrideCursor();
        m_facade.reset();
        m_store.reset();
        QMessageBox::critical(nullptr, QStringLiteral("Corvane"), storeOpenFailedText(storePath, e.engineText()));
        return false;
    }

    auto &state = modCorvane::state();
    const CLocalConfig config;
    guarded([&] {
        modCorvane::LoadOptions(state, config);
        modCorvane::LoadColorScheme(state, *m_store, config);
        modCorvane::LoadMissingIngColor(state, config);
    });
    sbMain->clear();
    if (!m_store->setAsideFiles().isEmpty())
        sbMain->setText(QStringLiteral("Left over from another file and set aside: ") +
                        m_store->setAsideFiles().join(QStringLiteral(", ")));
    guarded([&] {
        m_facade->setCurrentHTMLTemplatePath(config.Load(modCorvane::kSettings, QStringLiteral("TemplatePath"),
                                                         AppPaths::file(QStringLiteral("Templates/Standard.cvt"))));
        m_facade->setCurrentHTMLTemplateRoot(config.Load(modCorvane::kSettings, QStringLiteral("TemplateRoot"),
                                                         AppPaths::file(QStringLiteral("Templates/"))));
    });
    m_list->setSearchActive(false);
    ApplySchemeToMain(this);
    guarded([&] { modCorvane::LoadLastView(state, config); });
    RunCommand(state.currentView > 5 ? 207 : 201 + state.currentView);

    m_link = new InstanceLink(this);
    connect(m_link, &InstanceLink::commandReceived, this, [this](const QString &line) {
        bringForward();
        cmdDummy->setText(line);
        cmdDummy_Click();
    });
    m_link->listen(AppPaths::appDir());
    qApp->installEventFilter(this);

    show();
    QApplication::restoreOverrideCursor();

    if (!commandLine.trimmed().isEmpty()) {
        cmdDummy->setText(commandLine);
        cmdDummy_Click();
    }
    return true;
}

void frmMain::cmdDummy_Click()
{
    const QString line = cmdDummy->text();
    ProcessCommandLine(line);
    cmdDummy->setText(kReady);
}

void frmMain::ProcessCommandLine(const QString &text)
{
    const CommandLineAction action = ParseCommandLine(text);
    switch (action.kind) {
    case CommandLineAction::ShowDrinkByID:
    case CommandLineAction::InvalidDrinkID:
        ShowDrinkByID(action);
        break;
    case CommandLineAction::ShowDrinkByMapID:
        ShowDrinkByMapID(action.text);
        break;
    case CommandLineAction::ImportExchangeFile:
        // After the line is answered: a second start that handed the file over ends at once
        // instead of waiting on the dialog.
        QTimer::singleShot(0, this, [this, file = action.text] { ImportExchangeFile(file); });
        break;
    case CommandLineAction::Ignore:
        break;
    }
}

void frmMain::ShowDrinkByID(const CommandLineAction &action)
{
    if (action.kind == CommandLineAction::InvalidDrinkID) {
        QMessageBox::information(this, QStringLiteral("Corvane"), invalidDrinkIdMessage(action.text));
        return;
    }
    sbCount->setText(QStringLiteral("Drink ID ") + QString::number(action.drinkId));
    ShowDrink(action.drinkId);
}

void frmMain::ShowDrinkByMapID(const QString &mapId)
{
    const MapLookup found = lookupMapId(AppPaths::file(QStringLiteral("Corvane.map")), mapId);
    if (found.result == MapLookup::NotFound) {
        QMessageBox::information(this, QStringLiteral("Corvane"), mapIdNotFoundMessage(mapId));
        return;
    }
    if (found.result != MapLookup::Found)
        return; // no map file: nothing to say
    sbCount->setText(QStringLiteral("Map ID ") + mapId);
    ShowDrink(found.drinkId);
    m_openedByMap = true;
}

void frmMain::ImportExchangeFile(const QString &fileName)
{
    if (!m_store)
        return;
    bringForward();
    guarded([&] {
        frmDXImport dlg(*m_store, this);
        dlg.setFileName(fileName);
        dlg.exec();
        if (dlg.addedAny())
            m_list->reloadWithCurrentTab();
        ShowSelectedDrink();
    });
}

void frmMain::ShowSelectedDrink() { m_list->ShowSelectedDrink(); }

void frmMain::ShowDrink(qint32 drinkID)
{
    if (!m_facade)
        return;
    // A page is built from one drink. The builder lets the screen paint on its way, so a new
    // request can arrive meanwhile (a hand-over, a timer): it waits, and when the page ends
    // only the latest request is built, so the page on screen is the drink asked for last.
    m_pendingDrink = drinkID;
    if (m_buildingPage)
        return;
    m_buildingPage = true;
    const auto done = qScopeGuard([this] { m_buildingPage = false; });
    while (m_pendingDrink) {
        const qint32 id = *m_pendingDrink;
        m_pendingDrink.reset();
        guarded([&] {
            const QString html = m_facade->drinkAsHTML(id);
            QString error;
            if (PageFiles::writePageFile(AppPaths::appDir(), html, &error).isEmpty())
                sbMain->setText(error); // the page still shows; only its file could not be kept
            showPage(html);
        });
    }
}

void frmMain::showPage(const QString &html)
{
    // The page view wants "&nbsp;" where the page has always written "&nbsp"; the page file
    // itself keeps the text as built.
    static const QRegularExpression bareNbsp(QStringLiteral("&nbsp(?![;a-zA-Z0-9])"));
    QString shown = html;
    shown.replace(bareNbsp, QStringLiteral("&nbsp;"));
    // A fresh document forgets the pictures of the last page: the glass files are reused.
    wbMain->clear();
    wbMain->document()->setBaseUrl(QUrl::fromLocalFile(AppPaths::appDir() + u'/'));
    wbMain->setHtml(shown);
}

void frmMain::pnlLogo_Click()
{
    pnlCommands->CloseCommandPopup();
    if (m_openedByMap)
        setWindowState(windowState() | Qt::WindowMinimized);
}

void frmMain::bringForward()
{
    // A minimised window comes back as it was before, maximised or not.
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    // Everything was written when it changed: closing ends the program with no question.
    event->accept();
    QApplication::exit(0);
}

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || widget->window() != this)
        return QMainWindow::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress) {
        // A click anywhere but on the command column or the pop-up closes the pop-up.
        if (pnlCommands->popupOpen() && !pnlCommands->ownsWidget(widget))
            pnlCommands->CloseCommandPopup();
    } else if (event->type() == QEvent::KeyPress) {
        // The window sees every key before its controls do, as its shortcuts always have.
        if (Form_KeyDown(static_cast<QKeyEvent *>(event)))
            return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool frmMain::Form_KeyDown(QKeyEvent *event)
{
    const Qt::KeyboardModifiers shift = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if (shift != Qt::ControlModifier) {
        // Any key without Ctrl closes an open pop-up and does nothing else.
        if (pnlCommands->popupOpen())
            pnlCommands->hidePopup();
        return false;
    }
    const int command = Commands::commandForCtrlKey(event->key(), event->modifiers() & Qt::KeypadModifier);
    if (command == 0)
        return false;
    RunCommand(command);
    return true;
}
