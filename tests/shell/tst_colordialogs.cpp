// The colour scheme and options dialogs driven as a user would, and what the scheme does to
// forms and to the main window.
#include "GuiTest.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/ColorValues.h"
#include "base/modCorvane.h"
#include "shell/LetterTabs.h"
#include "shell/MainScheme.h"
#include "shell/frmColorScheme.h"
#include "shell/frmMain.h"
#include "shell/frmOptions.h"
#include "store/ColorSchemes.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTableView>
#include <QTextBrowser>

using modCorvane::State;

namespace {
const QString kRows = QStringLiteral(
    "INSERT INTO ColorSchemes (id, Name, TextColor, HighlightColor, AccentColor, BackgroundColor) VALUES "
    "(64, 'Classic', 3355443, 10053171, 14474460, 15790320), (70, 'Night', 14737632, 65535, 4210752, 2105376);");

QString setting(const QString &key)
{
    return CLocalConfig().Load(modCorvane::kSettings, key, QStringLiteral("<none>"));
}

// A colour chooser that answers from a list: a colour, or nothing for a cancelled choice.
ColorPicker answers(QList<std::optional<QColor>> *queue)
{
    return [queue](const QColor &, QWidget *) { return queue->isEmpty() ? std::nullopt : queue->takeFirst(); };
}

QColor platform(QPalette::ColorRole role)
{
    return QGuiApplication::palette().color(QPalette::Active, role);
}

const QStringList kBrowsing{"lstColor", "cmdNew", "cmdDelete", "cmdOK"};
const QStringList kEditing{"cmdSave"};

// One control of each kind; the combo box sits inside a frame, whose colours must not reach it.
std::unique_ptr<QWidget> formOfEveryKind()
{
    auto form = std::make_unique<QWidget>();
    auto add = [&](QWidget *w, const char *name) { w->setObjectName(QString::fromLatin1(name)); };
    add(new QLabel(QStringLiteral("Label"), form.get()), "label");
    auto *picture = new QLabel(form.get());
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    picture->setPixmap(pixmap);
    add(picture, "picture");
    add(new QCheckBox(QStringLiteral("Check"), form.get()), "check");
    add(new QRadioButton(QStringLiteral("Option"), form.get()), "option");
    add(new QPushButton(QStringLiteral("Button"), form.get()), "button");
    auto *frame = new QGroupBox(QStringLiteral("Frame"), form.get());
    add(frame, "frame");
    add(new QComboBox(frame), "combo");
    add(new QLabel(QStringLiteral("In frame"), frame), "labelInFrame");
    auto *holder = new QWidget(form.get());
    add(new QFrame(holder), "panelInPlainWidget");
    add(new QSplitter(form.get()), "splitter");
    add(new QLineEdit(form.get()), "text");
    add(new QListWidget(form.get()), "list");
    return form;
}
} // namespace

class tst_ColorDialogs : public QObject {
    Q_OBJECT
  private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        AppPaths::setAppDir(m_dir->path());
        m_message.clear();
    }

    void cleanup()
    {
        m_ts.reset();
        m_dir.reset();
    }

    void schemeDialogOpensOnCurrent_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("name");
        QTest::addColumn<quint32>("text");
        QTest::newRow("second") << 70 << 1 << "Night" << 14737632u;
        QTest::newRow("first") << 64 << 0 << "Classic" << 3355443u;
        QTest::newRow("no such scheme") << 12 << -1 << "" << 0xFFFFFFu;
    }

    void schemeDialogOpensOnCurrent()
    {
        QFETCH(int, current);
        QFETCH(int, row);
        QFETCH(QString, name);
        QFETCH(quint32, text);
        State s;
        s.colorSchemeID = current;
        frmColorScheme dlg(store(), s);
        auto *lstColor = child<QListWidget>(&dlg, "lstColor");
        QCOMPARE(lstColor->count(), 2);
        QCOMPARE(lstColor->item(0)->text(), QStringLiteral("Classic"));
        QCOMPARE(lstColor->currentRow(), row);
        QCOMPARE(child<QLineEdit>(&dlg, "txtName")->text(), name);
        QCOMPARE(child<ColorButton>(&dlg, "pnlText")->colorValue(), text);
        QCOMPARE(editState(&dlg), kBrowsing);
        // A click on another entry shows it without starting an edit; with none selected, the
        // list makes its first entry current on focus, and a click on that one shows it too.
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        lstColor->setFocus();
        const int other = row == 0 ? 1 : 0;
        QTest::mouseClick(lstColor->viewport(), Qt::LeftButton, {},
                          lstColor->visualItemRect(lstColor->item(other)).center());
        QCOMPARE(editState(&dlg), kBrowsing);
        QCOMPARE(child<QLineEdit>(&dlg, "txtName")->text(), lstColor->item(other)->text());
    }

    void createEditAndRenameSchemes()
    {
        State s;
        s.colorSchemeID = 70;
        frmColorScheme dlg(store(), s);
        QList<std::optional<QColor>> picks{QColor(10, 20, 30), std::nullopt, QColor(0, 0, 255)};
        dlg.setColorPicker(answers(&picks));

        QTest::mouseClick(child<QPushButton>(&dlg, "cmdNew"), Qt::LeftButton);
        QCOMPARE(editState(&dlg), kEditing);
        QCOMPARE(child<QLineEdit>(&dlg, "txtName")->text(), QStringLiteral("Night")); // the name stays
        for (const char *panel : {"pnlText", "pnlHighlight", "pnlAccent", "pnlBackground"})
            QCOMPARE(child<ColorButton>(&dlg, panel)->colorValue(), 0xFFFFFFu);
        child<QLineEdit>(&dlg, "txtName")->setText(QStringLiteral("Dusk"));
        child<ColorButton>(&dlg, "pnlText")->click();
        child<ColorButton>(&dlg, "pnlAccent")->click(); // cancelled: stays white
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdSave"), Qt::LeftButton);

        QCOMPARE(editState(&dlg), kBrowsing);
        const QList<ColorScheme> rows = ColorSchemes::all(store());
        QCOMPARE(rows.size(), 3);
        const ColorScheme added = rows.last();
        QCOMPARE(added.name, QStringLiteral("Dusk"));
        QCOMPARE(added.textColor, 0x1E140Au);
        QCOMPARE(added.accentColor, 0xFFFFFFu);
        auto *lstColor = child<QListWidget>(&dlg, "lstColor");
        QCOMPARE(lstColor->count(), 3);
        QCOMPARE(lstColor->currentItem()->text(), QStringLiteral("Dusk"));

        // The next save of the same entry changes that row instead of adding another.
        child<QLineEdit>(&dlg, "txtName")->setText(QStringLiteral("Dawn"));
        QCOMPARE(editState(&dlg), kEditing);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdSave"), Qt::LeftButton);
        QCOMPARE(ColorSchemes::all(store()).size(), 3);
        QCOMPARE(ColorSchemes::find(store(), added.id)->name, QStringLiteral("Dawn"));
        QCOMPARE(lstColor->currentItem()->text(), QStringLiteral("Dawn"));

        // A stored scheme: a colour starts the edit, and the save changes that row alone.
        lstColor->setCurrentRow(0);
        child<ColorButton>(&dlg, "pnlBackground")->click();
        QCOMPARE(editState(&dlg), kEditing);
        const QString name = QStringLiteral("Joe's \"Best\"");
        child<QLineEdit>(&dlg, "txtName")->setText(name);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdSave"), Qt::LeftButton);
        QCOMPARE(editState(&dlg), kBrowsing);
        const ColorScheme row = *ColorSchemes::find(store(), 64);
        QCOMPARE(row.name, name);
        QCOMPARE(row.backgroundColor, 0xFF0000u);
        QCOMPARE(row.textColor, 3355443u);
        QCOMPARE(ColorSchemes::find(store(), 70)->name, QStringLiteral("Night"));
        QCOMPARE(ColorSchemes::all(store()).size(), 3);
        QCOMPARE(lstColor->item(0)->text(), name);
    }

    void deleteThenChoose()
    {
        State s;
        s.colorSchemeID = 70;
        frmColorScheme dlg(store(), s);
        dlg.show();
        auto *lstColor = child<QListWidget>(&dlg, "lstColor");
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdDelete"), Qt::LeftButton);
        QVERIFY(!ColorSchemes::find(store(), 70));
        QCOMPARE(lstColor->count(), 1);
        QVERIFY(!lstColor->currentItem() || !lstColor->currentItem()->isSelected());

        answerNextMessage(this, &m_message);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdOK"), Qt::LeftButton);
        QCOMPARE(m_message, QStringLiteral("Corvane|Please select a color scheme."));
        QVERIFY(dlg.isVisible());
        QCOMPARE(setting(QStringLiteral("ColorScheme")), QStringLiteral("<none>"));

        QTest::mouseClick(lstColor->viewport(), Qt::LeftButton, {},
                          lstColor->visualItemRect(lstColor->item(0)).center());
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdOK"), Qt::LeftButton);
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(setting(QStringLiteral("ColorScheme")), QStringLiteral("64"));
        QCOMPARE(s.colorSchemeID, 64);
        QCOMPARE(s.schemeTextColor, 3355443u);
        QCOMPARE(s.schemeBackgroundColor, 15790320u);
    }

    void cancelKeepsColours()
    {
        State s;
        s.colorSchemeID = 64;
        modCorvane::LoadColorScheme(s, store(), CLocalConfig());
        const State before = s;
        frmColorScheme dlg(store(), s);
        dlg.show();
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdDelete"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(dlg.result(), int(QDialog::Rejected));
        QVERIFY(!ColorSchemes::find(store(), 64)); // the delete stays
        QCOMPARE(s.schemeTextColor, before.schemeTextColor);
        QCOMPARE(s.schemeBackgroundColor, before.schemeBackgroundColor);
        // The next start falls back to the system colours.
        modCorvane::LoadColorScheme(s, store(), CLocalConfig());
        QCOMPARE(s.schemeTextColor, 0x80000008u);
    }

    // The dialog opens on the state. With OK and nothing touched it saves the same choices back (a
    // default view with no option of its own, view all among them, comes back as most recent);
    // choices made in it reach the settings and the state with OK, and nothing with Cancel.
    void options_data()
    {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QString>("checked");
        QTest::addColumn<QString>("click"); // a view option to click; with it the rest changes too
        QTest::addColumn<bool>("metric");
        QTest::addColumn<bool>("highlight");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("saved");
        auto row = [](const char *name, const char *view, const char *checked, const char *click, bool metric,
                      bool highlight, const char *button, const char *saved) {
            QTest::newRow(name) << QString::fromLatin1(view) << QString::fromLatin1(checked)
                                << QString::fromLatin1(click) << metric << highlight << QString::fromLatin1(button)
                                << QString::fromLatin1(saved);
        };
        row("most recent", "D", "optViewDef", "", false, true, "OK", "D");
        row("name, metric", "N", "optViewName", "", true, false, "OK", "N");
        row("liquor", "P", "optViewLiq", "", false, true, "OK", "P");
        row("glassware, metric", "G", "optViewGlass", "", true, true, "OK", "G");
        row("category", "C", "optViewCat", "", false, false, "OK", "C");
        row("marked", "M", "optViewMarked", "", false, true, "OK", "M");
        row("cabinet", "L", "optViewCab", "", false, true, "OK", "L");
        row("view all: none", "A", "", "", false, true, "OK", "D");
        row("small letter: none", "n", "", "", false, true, "OK", "D");
        row("empty: none", "", "", "", false, true, "OK", "D");
        row("marked, metric, red chosen", "C", "optViewCat", "optViewMarked", true, true, "OK", "M");
        row("cabinet, highlight off keeps the colour", "C", "optViewCat", "optViewCab", false, false, "OK", "L");
        row("most recent chosen", "C", "optViewCat", "optViewDef", false, true, "OK", "D");
        row("cancel", "C", "optViewCat", "optViewName", true, false, "Cancel", "C");
    }

    void options()
    {
        QFETCH(QString, view);
        QFETCH(QString, checked);
        QFETCH(QString, click);
        QFETCH(bool, metric);
        QFETCH(bool, highlight);
        QFETCH(QString, button);
        QFETCH(QString, saved);
        const bool changes = !click.isEmpty();
        State s;
        s.defaultView = view;
        s.useMetric = metric != changes;
        s.useMissingIngColor = highlight != changes;
        s.missingIngColor = 0x00FF00;
        const State before = s;
        frmOptions dlg(s);
        QList<std::optional<QColor>> picks{QColor(255, 0, 0)};
        dlg.setColorPicker(answers(&picks));
        QStringList on;
        for (QRadioButton *o : dlg.findChildren<QRadioButton *>())
            if (o->isChecked() && o->objectName().startsWith(u"optView"))
                on << o->objectName();
        QCOMPARE(on, checked.isEmpty() ? QStringList() : QStringList{checked});
        QCOMPARE(child<QRadioButton>(&dlg, "optMetric")->isChecked(), before.useMetric);
        QCOMPARE(child<QRadioButton>(&dlg, "optEnglish")->isChecked(), !before.useMetric);
        QCOMPARE(child<QCheckBox>(&dlg, "chkIngHL")->isChecked(), before.useMissingIngColor);
        QCOMPARE(child<ColorButton>(&dlg, "cmdIngHL")->colorValue(), 0x00FF00u);
        if (changes) {
            child<QRadioButton>(&dlg, click.toLatin1().constData())->click();
            child<QRadioButton>(&dlg, metric ? "optMetric" : "optEnglish")->click();
            child<QCheckBox>(&dlg, "chkIngHL")->setChecked(highlight);
            child<ColorButton>(&dlg, "cmdIngHL")->click();
        }
        QTest::mouseClick(child<QPushButton>(&dlg, button.toLatin1().constData()), Qt::LeftButton);

        QCOMPARE(s.defaultView, saved);
        if (button == u"Cancel") {
            QCOMPARE(dlg.result(), int(QDialog::Rejected));
            QCOMPARE(s.useMetric, before.useMetric);
            QCOMPARE(s.missingIngColor, before.missingIngColor);
            QVERIFY(!QFile::exists(AppPaths::settingsFile()));
            return;
        }
        const quint32 color = changes ? 0x0000FF : 0x00FF00;
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(setting(QStringLiteral("DefaultView")), saved);
        QCOMPARE(setting(QStringLiteral("UseMetric")), metric ? u"Y" : u"N");
        QCOMPARE(setting(QStringLiteral("UseMissingIngColor")), highlight ? u"Y" : u"N");
        QCOMPARE(setting(QStringLiteral("MissingIngColor")), QString::number(color));
        QCOMPARE(s.useMetric, metric);
        QCOMPARE(s.useMissingIngColor, highlight);
        QCOMPARE(s.missingIngColor, color);
    }

    void schemeByKind_data()
    {
        // The roles each kind is drawn with, and whether they take the scheme or the platform's.
        QTest::addColumn<QString>("name");
        QTest::addColumn<QPalette::ColorRole>("textRole"); // NoRole: a control without text
        QTest::addColumn<QPalette::ColorRole>("backRole");
        QTest::addColumn<bool>("schemed");
        using P = QPalette;
        QTest::newRow("label") << "label" << P::WindowText << P::Window << true;
        QTest::newRow("label in a frame") << "labelInFrame" << P::WindowText << P::Window << true;
        QTest::newRow("check box") << "check" << P::WindowText << P::Window << true;
        QTest::newRow("option") << "option" << P::WindowText << P::Window << true;
        QTest::newRow("button") << "button" << P::ButtonText << P::Button << true;
        QTest::newRow("frame") << "frame" << P::WindowText << P::Window << true;
        QTest::newRow("panel in a plain widget") << "panelInPlainWidget" << P::WindowText << P::Window << true;
        QTest::newRow("picture") << "picture" << P::NoRole << P::Window << true;
        QTest::newRow("splitter") << "splitter" << P::NoRole << P::Window << true;
        QTest::newRow("combo in a frame") << "combo" << P::ButtonText << P::Button << false;
        QTest::newRow("text box") << "text" << P::Text << P::Base << false;
        QTest::newRow("list") << "list" << P::Text << P::Base << false;
    }

    void schemeByKind()
    {
        QFETCH(QString, name);
        QFETCH(QPalette::ColorRole, textRole);
        QFETCH(QPalette::ColorRole, backRole);
        QFETCH(bool, schemed);
        State s;
        s.schemeTextColor = 0x0000FF;       // red
        s.schemeBackgroundColor = 0x00FF00; // green
        std::unique_ptr<QWidget> form = formOfEveryKind();
        ApplySchemeToForm(form.get(), s);
        QCOMPARE(form->palette().color(QPalette::Window), QColor(Qt::green));

        auto *w = form->findChild<QWidget *>(name);
        QVERIFY(w);
        const QPalette p = w->palette();
        QCOMPARE(p.color(backRole), schemed ? QColor(Qt::green) : platform(backRole));
        if (textRole != QPalette::NoRole)
            QCOMPARE(p.color(textRole), schemed ? QColor(Qt::red) : platform(textRole));
        else
            QVERIFY(w->autoFillBackground());
    }

    void gridColours()
    {
        State s;
        s.schemeTextColor = 0x333333;
        s.schemeBackgroundColor = 0xF0F0F0;
        s.schemeHighlightColor = 0x996633;
        QWidget form;
        auto *grid = new QTableView(&form);
        QStandardItemModel model(3, 2);
        grid->setModel(&model);
        ApplySchemeToForm(&form, s);
        const QPalette p = grid->palette();
        QCOMPARE(p.color(QPalette::Base), QColor(0xF0, 0xF0, 0xF0));
        QCOMPARE(p.color(QPalette::Text), QColor(0x33, 0x33, 0x33));
        QCOMPARE(p.color(QPalette::Highlight), QColor(0x33, 0x66, 0x99));
        QCOMPARE(p.color(QPalette::HighlightedText), QColor(0xCC, 0xCC, 0xCC));
        QStyleOptionViewItem option;
        option.initFrom(grid);
        const QRgb lines = QRgb(grid->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, grid));
        QCOMPARE(QColor::fromRgba(lines), QColor(0xF0, 0xF0, 0xF0));

        // With the system's window text, selected rows use the system's highlight text.
        s.schemeTextColor = 0x80000008;
        ApplySchemeToForm(&form, s);
        QCOMPARE(grid->palette().color(QPalette::HighlightedText), platform(QPalette::HighlightedText));
    }

    void systemColoursFollowPlatform()
    {
        // A second pass with the system colours resolves them through the platform, not through
        // the palette the first scheme left on the form.
        std::unique_ptr<QWidget> form = formOfEveryKind();
        State dark;
        dark.schemeTextColor = 0xFFFFFF;
        dark.schemeBackgroundColor = 0x000000;
        ApplySchemeToForm(form.get(), dark);
        ApplySchemeToForm(form.get(), State());
        auto *label = form->findChild<QLabel *>(QStringLiteral("label"));
        QCOMPARE(label->palette().color(QPalette::Window), platform(QPalette::Window));
        QCOMPARE(label->palette().color(QPalette::WindowText), platform(QPalette::WindowText));
    }

    void mainWindow()
    {
        TestStore book(QString(), true);
        AppPaths::setAppDir(book.appDir());
        modCorvane::state() = State();
        frmMain w;
        QVERIFY(w.Form_Load(QString()));
        w.RunCommand(201);
        State s;
        s.schemeTextColor = 0xE0E0E0;
        s.schemeBackgroundColor = 0x202020;
        s.schemeHighlightColor = 0x00A0FF;
        s.schemeAccentColor = 0x404040;
        ApplySchemeToMain(&w, s);
        const QColor back(0x20, 0x20, 0x20);

        for (const char *name : {"pctSys", "pnlLogo"}) {
            auto *panel = child<QWidget>(&w, name);
            QVERIFY(panel->autoFillBackground());
            QCOMPARE(panel->palette().color(QPalette::Window), back);
        }
        QCOMPARE(child<QTableView>(&w, "gridDrinkNames")->palette().color(QPalette::Base), back);
        QCOMPARE(child<QTextBrowser>(&w, "wbMain")->palette().color(QPalette::Base), platform(QPalette::Base));

        // The letter tab of view 0 is selected: highlight behind the negative of the text.
        auto *tabs = w.findChild<LetterTabs *>();
        QVERIFY(tabs);
        QCOMPARE(tabs->selected(), 0);
        QCOMPARE(tabs->tab(0)->palette().color(QPalette::Window), QColor(0xFF, 0xA0, 0x00));
        QCOMPARE(tabs->tab(0)->palette().color(QPalette::WindowText), QColor(0x1F, 0x1F, 0x1F));
        QCOMPARE(tabs->tab(1)->palette().color(QPalette::Window), back);
        QCOMPARE(tabs->tab(1)->palette().color(QPalette::WindowText), QColor(0xE0, 0xE0, 0xE0));
    }

  private:
    // The two schemes, made when a test first needs them; settings then live beside them.
    DrinkStore &store();
    QStringList editState(QWidget *dialog) const;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<TestStore> m_ts;
    QString m_message;
};

DrinkStore &tst_ColorDialogs::store()
{
    if (!m_ts) {
        m_ts = std::make_unique<TestStore>(kRows);
        AppPaths::setAppDir(m_ts->appDir());
    }
    return m_ts->store();
}

// Which of the controls that edit mode switches are enabled.
QStringList tst_ColorDialogs::editState(QWidget *dialog) const
{
    QStringList enabled;
    for (const char *name : {"lstColor", "cmdNew", "cmdSave", "cmdDelete", "cmdOK"})
        if (dialog->findChild<QWidget *>(QString::fromLatin1(name))->isEnabled())
            enabled << QString::fromLatin1(name);
    return enabled;
}

QTEST_MAIN(tst_ColorDialogs)
#include "tst_colordialogs.moc"
