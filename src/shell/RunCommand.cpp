// The one dispatcher of numbered commands: the pop-up entries, the Ctrl shortcuts and the
// start itself all come through here.
#include "shell/frmMain.h"

#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "cabinet/frmLiquorCab.h"
#include "editing/frmAddEdit.h"
#include "editing/frmMetricConvert.h"
#include "exchange/frmDXExport.h"
#include "exchange/frmDXImport.h"
#include "reference/frmDrinkCats.h"
#include "reference/frmIngMaint.h"
#include "reference/frmIngTypes.h"
#include "pricing/frmDrinkPrices.h"
#include "printing/frmPrint.h"
#include "search/SearchDialogs.h"
#include "shopping/frmShopList.h"
#include "templates/frmTemplates.h"
#include "shell/CommandPanels.h"
#include "shell/ListController.h"
#include "shell/MainScheme.h"
#include "shell/frmAboutBox.h"
#include "shell/frmColorScheme.h"
#include "shell/frmOptions.h"
#include "updates/frmWebImport.h"
#include "store/DrinkFlags.h"
#include "store/DrinkStore.h"
#include "widgets/DelayedProgress.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QMessageBox>
#include <QScopeGuard>
#include <QTableView>
#include <QUrl>

void frmMain::RunCommand(int command)
{
    pnlCommands->CloseCommandPopup();
    auto &state = modCorvane::state();
    guarded([&] {
        switch (command) {
        case 1: {
            frmDXImport dlg(*m_store, this);
            dlg.exec();
            if (dlg.addedAny())
                m_list->reloadWithCurrentTab();
            ShowSelectedDrink();
            break;
        }
        case 2:
        case 3:
        case 8: {
            frmDXExport dlg(*m_store, *m_facade, m_listModel, this);
            dlg.Setup(command == 2 ? 1 : command == 3 ? 2 : 3);
            dlg.exec();
            break;
        }
        case 4:
        case 5: {
            frmPrint dlg(*m_store, *m_facade, m_listModel, this);
            if (dlg.Setup(command == 5))
                dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 6:
            QApplication::exit(0);
            break;
        case 7: {
            frmWebImport dlg(*m_store, m_facade->appDir(), UpdateClient::configuredHost(CLocalConfig()), this);
            dlg.exec();
            if (dlg.addedAny())
                m_list->reloadWithCurrentTab();
            ShowSelectedDrink();
            break;
        }
        case 101:
        case 102:
        case 103: {
            // Add, edit or copy. A saved drink is shown in the reloaded list, which stands on it
            // when the view lists it.
            qint32 id = 0;
            QString name;
            if (command != 101 && !selectedDrink(id, name))
                break;
            frmAddEdit dlg(*m_store, m_facade->appDir(), this);
            dlg.Setup(command != 101, command == 103, id);
            dlg.exec();
            if (dlg.saved()) {
                m_list->reloadWithCurrentTab();
                if (const int row = m_listModel->rowOfId(dlg.drinkID()); row >= 0)
                    m_list->selectRowQuietly(row);
            }
            ShowSelectedDrink();
            break;
        }
        case 104:
            DeleteDrink();
            break;
        case 105:
        case 106:
            CopyToClipboard(command == 106);
            break;
        case 201:
        case 202:
        case 203:
        case 204:
        case 205:
        case 206:
        case 207:
            state.currentView = command - 201;
            // A settings file that cannot be written is reported, and the view opens anyway.
            guarded([&] { modCorvane::SaveLastView(state, CLocalConfig()); });
            m_list->openView(command);
            break;
        case 301:
        case 302:
        case 303:
        case 304:
        case 305:
        case 306:
        case 307:
            if (ShowSearchDialog(command, *m_store, *m_facade, this)) {
                m_list->setSearchActive(true);
                m_list->reloadWithCurrentTab();
            }
            break;
        case 308:
            m_list->setSearchActive(false);
            m_list->reloadWithCurrentTab();
            break;
        case 401:
            m_facade->SetDrinkMark(!m_facade->currentDrinkMark(), 0);
            ShowSelectedDrink();
            break;
        case 402:
        case 403:
            MarkAll(command == 402);
            break;
        case 404: {
            frmConvToCat dlg(*m_store, this);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 501: {
            frmLiquorCab dlg(*m_store, this);
            dlg.exec();
            if (!dlg.WasCanceled()) {
                RunCommand(206);
            } else if (dlg.ShowsUnlockedDrinks()) {
                // The whole of SearchResults: the cabinet view would keep only drinks already made.
                m_list->setSearchActive(true);
                RunCommand(207);
            }
            break;
        }
        case 502: {
            frmShopList dlg(*m_store, this);
            dlg.Setup(*m_listModel);
            dlg.exec();
            break;
        }
        case 503: {
            frmIngMaint dlg(*m_store, this);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 504: {
            frmIngTypes dlg(*m_store, this);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 505: {
            frmDrinkPrices dlg(*m_store, this);
            dlg.Setup(false);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 506: {
            frmDrinkCats dlg(*m_store, this);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 507: {
            frmMetricConvert dlg(this);
            dlg.exec();
            break;
        }
        case 508: {
            frmOptions dlg(state, this);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 509: {
            frmColorScheme dlg(*m_store, state, this);
            dlg.exec();
            ApplySchemeToMain(this);
            ShowSelectedDrink();
            break;
        }
        case 510: {
            frmTemplates dlg(*m_facade, this);
            dlg.exec();
            ShowSelectedDrink();
            break;
        }
        case 601:
        case 602:
        case 603:
        case 604:
            OpenHelp(command);
            break;
        case 605: {
            frmAboutBox box(this);
            box.exec();
            break;
        }
        default:
            break;
        }
    });
    // RepaintListControls: Qt repaints on its own once the command returns.
    m_list->widget()->update();
}

bool frmMain::selectedDrink(qint32 &id, QString &name) const
{
    const int row = m_list->selectedRow();
    id = m_listModel->idAt(row);
    name = m_listModel->nameAt(row);
    return row >= 0;
}

void frmMain::DeleteDrink()
{
    qint32 id = 0;
    QString name;
    if (!selectedDrink(id, name))
        return;
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Delete Drink"),
                    QStringLiteral("Are you sure you want to delete \"%1\"?\nThis cannot be undone.").arg(name),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    if (box.exec() != QMessageBox::Yes)
        return;
    removeDrink(*m_store, id);
    m_list->reloadWithCurrentTab();
}

void frmMain::CopyToClipboard(bool append)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    // The text already there is read first; an empty list copies the text of no drink.
    const QString before = append ? clipboard->text() : QString();
    qint32 id = 0;
    QString name;
    selectedDrink(id, name);
    const QString text = before + m_facade->drinkAsPlainText(id);
    clipboard->clear();
    clipboard->setText(text);
}

void frmMain::MarkAll(bool mark)
{
    // Works on the rows of the list on screen, "Unmark All" included; an empty list has no
    // selected row and nothing happens.
    const int row = m_list->selectedRow();
    if (row < 0)
        return;
    const std::vector<qint32> ids = m_list->rowsOnScreen();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    {
        ScopedTransaction tx(*m_store);
        DelayedProgress progress(this, mark ? QStringLiteral("Mark All in Current List") : QStringLiteral("Unmark All"),
                                 ids.size());
        // Cancel leaves every mark as it was.
        if (!setDrinkFlag(*m_store, QStringLiteral("Marked"), mark ? 1 : 0, ids,
                          [&](std::size_t done) { return progress.tick(done); }))
            return;
        tx.commit();
    }
    m_list->selectRowQuietly(row);
    ShowSelectedDrink();
}

void frmMain::OpenHelp(int command)
{
    // The guide, its index, the beer guide and the liquor glossary, opened in the desktop's viewer.
    const QString file = command == 603   ? QStringLiteral("beer-guide.html")
                         : command == 604 ? QStringLiteral("liquor-glossary.html")
                                          : QStringLiteral("corvane-guide.html");
    QUrl url = QUrl::fromLocalFile(AppPaths::file(file));
    if (command == 601)
        url.setFragment(QStringLiteral("contents"));
    else if (command == 602)
        url.setFragment(QStringLiteral("index"));
    QDesktopServices::openUrl(url);
}
