// The template chooser driven as a user drives it: the templates found below the program's
// directory, the page changing with the chosen one, and the choice kept for the next start.
#include "GuiTest.h"
#include "ShownDrinks.h"
#include "TestFiles.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "templates/frmTemplates.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>

class tst_TemplateDialog : public QObject {
    Q_OBJECT
private slots:
    void init();
    void chooseAnotherTemplate();
    void currentTemplateGone();

private:
    QString templates() const { return m_book->appDir() + QStringLiteral("/Templates/"); }

    std::unique_ptr<TestStore> m_book;
    std::unique_ptr<CDrinkFacade> m_facade;
};

void tst_TemplateDialog::init()
{
    m_facade.reset(); // before the store it reads
    m_book = std::make_unique<TestStore>(shownDrinksRows());
    AppPaths::setAppDir(m_book->appDir());
    const QString root = templates();
    // A directory or a backup named like a template is none.
    QVERIFY(QDir().mkpath(root + QStringLiteral("dir.cvt")));
    const std::pair<const char *, QByteArray> files[] = {
        {"Standard.cvt", "<html><head><meta name=\"description\" content=\"The everyday page\"></head>"
                         "<body>DAY PAGE</body></html>"},
        {"Standard.cvt.bak", "<html></html>"},
        {"Night/Night.CVT", "<html><head><META NAME=\"Description\" CONTENT=\"Light on dark &amp; caf\xe9\"></head>"
                            "<body>NIGHT PAGE</body></html>"},
        {"a/Standard.cvt", "<html></html>"},
        // The description runs to the first closing quote and bracket, on whatever line.
        {"Old/Older/Standard.cvt", "<meta name=\"description\" content=\"one\" />\r\n<p class=\"x\">two"},
    };
    for (const auto &[name, bytes] : files) {
        QVERIFY(QDir().mkpath(QFileInfo(root + QString::fromLatin1(name)).path()));
        QVERIFY(writeFile(root + QString::fromLatin1(name), bytes));
    }
    m_facade = std::make_unique<CDrinkFacade>(m_book->store(), m_book->appDir());
    m_facade->setCurrentHTMLTemplatePath(root + QStringLiteral("Standard.cvt"));
    m_facade->setCurrentHTMLTemplateRoot(root);
}

void tst_TemplateDialog::chooseAnotherTemplate()
{
    QVERIFY(m_facade->drinkAsHTML(5).contains(QStringLiteral("DAY PAGE")));
    frmTemplates dlg(*m_facade);
    dlg.show();
    auto *list = child<QListWidget>(&dlg, "lstTemplates");
    QStringList names;
    for (int i = 0; i < list->count(); ++i)
        names << list->item(i)->text();
    QCOMPARE(names, (QStringList{"Night", "Standard", "Standard", "Standard"}));
    // Several of the current name: the last one found is selected, files before subdirectories
    // and the subdirectories in any letter case.
    QCOMPARE(child<QLabel>(&dlg, "lblLocation")->text(), templates() + QStringLiteral("Old/Older/Standard.cvt"));
    QCOMPARE(child<QLabel>(&dlg, "lblDesc")->text(), QStringLiteral("one\" />\r\n<p class=\"x"));

    list->setCurrentRow(0);
    QCOMPARE(child<QLabel>(&dlg, "lblLocation")->text(), templates() + QStringLiteral("Night/Night.CVT"));
    QCOMPARE(child<QLabel>(&dlg, "lblDesc")->text(), QStringLiteral("Light on dark &amp; caf\u00e9"));
    child<QPushButton>(&dlg, "cmdSave")->click();
    QCOMPARE(dlg.result(), int(QDialog::Accepted));

    QCOMPARE(m_facade->currentHTMLTemplatePath(), templates() + QStringLiteral("Night/Night.CVT"));
    QCOMPARE(m_facade->currentHTMLTemplateRoot(), templates() + QStringLiteral("Night/"));
    QVERIFY(m_facade->drinkAsHTML(5).contains(QStringLiteral("NIGHT PAGE")));
    const CLocalConfig config;
    QCOMPARE(config.Load(modCorvane::kSettings, QStringLiteral("TemplatePath"), {}),
             templates() + QStringLiteral("Night/Night.CVT"));
    QCOMPARE(config.Load(modCorvane::kSettings, QStringLiteral("TemplateRoot"), {}),
             templates() + QStringLiteral("Night/"));
}

void tst_TemplateDialog::currentTemplateGone()
{
    // The saved path is matched with its letter case: another case is no match.
    m_facade->setCurrentHTMLTemplatePath(templates() + QStringLiteral("standard.cvt"));
    frmTemplates dlg(*m_facade);
    dlg.show();
    QVERIFY(child<QListWidget>(&dlg, "lstTemplates")->selectedItems().isEmpty());
    QCOMPARE(child<QLabel>(&dlg, "lblLocation")->text(), QStringLiteral("Location"));
    QCOMPARE(child<QLabel>(&dlg, "lblDesc")->text(), QStringLiteral("Description"));
    QString seen;
    answerNextMessage(&dlg, &seen);
    child<QPushButton>(&dlg, "cmdSave")->click();
    QCOMPARE(seen, QStringLiteral("Corvane|Please select a template to use."));
    QVERIFY(dlg.isVisible());
    QCOMPARE(CLocalConfig().Load(modCorvane::kSettings, QStringLiteral("TemplatePath"), "-"), QStringLiteral("-"));
    child<QPushButton>(&dlg, "cmdCancel")->click();
    QCOMPARE(dlg.result(), int(QDialog::Rejected));
}

QTEST_MAIN(tst_TemplateDialog)
#include "tst_templatedialog.moc"
