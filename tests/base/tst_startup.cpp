// What a start reads: the command line, the options and the view to open.
#include "base/CLocalConfig.h"
#include "base/CommandLine.h"
#include "base/VbConvert.h"
#include "base/modCorvane.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_Startup : public QObject {
    Q_OBJECT
private slots:
    void commandLine_data();
    void commandLine();
    void argument_data();
    void argument();
    void val_data();
    void val();
    void lastView_data();
    void lastView();
    void optionsNeedExactY();
};

void tst_Startup::commandLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("id") << "/ID=12" << int(CommandLineAction::ShowDrinkByID) << 12 << "12";
    QTest::newRow("small letters, blanks") << "   /id=7  " << int(CommandLineAction::ShowDrinkByID) << 7 << "7";
    QTest::newRow("rounded half to even") << "/ID=2.5" << int(CommandLineAction::ShowDrinkByID) << 2 << "2.5";
    QTest::newRow("rounded up") << "/ID=3.6" << int(CommandLineAction::ShowDrinkByID) << 4 << "3.6";
    QTest::newRow("unknown id passes") << "/ID=999999" << int(CommandLineAction::ShowDrinkByID) << 999999 << "999999";
    QTest::newRow("not numeric") << "/ID=abc" << int(CommandLineAction::InvalidDrinkID) << 0 << "abc";
    QTest::newRow("empty id") << "/ID=" << int(CommandLineAction::InvalidDrinkID) << 0 << "";
    QTest::newRow("too large") << "/ID=99999999999" << int(CommandLineAction::InvalidDrinkID) << 0 << "99999999999";
    QTest::newRow("map") << "/map=BAR-7" << int(CommandLineAction::ShowDrinkByMapID) << 0 << "BAR-7";
    QTest::newRow("map keeps case of key") << "/MAP=Key" << int(CommandLineAction::ShowDrinkByMapID) << 0 << "Key";
    QTest::newRow("exchange file") << " /home/a b/Sours.CVX " << int(CommandLineAction::ImportExchangeFile) << 0
                                   << "/home/a b/Sours.CVX";
    QTest::newRow("id wins over the ending") << "/ID=x.cvx" << int(CommandLineAction::InvalidDrinkID) << 0 << "x.cvx";
    QTest::newRow("other file") << "/tmp/list.cvx.txt" << int(CommandLineAction::Ignore) << 0 << "";
    QTest::newRow("anything else") << "-ID=3" << int(CommandLineAction::Ignore) << 0 << "";
    QTest::newRow("empty") << "" << int(CommandLineAction::Ignore) << 0 << "";
}

void tst_Startup::commandLine()
{
    QFETCH(QString, line);
    QFETCH(int, kind);
    QFETCH(int, id);
    QFETCH(QString, text);
    const CommandLineAction a = ParseCommandLine(line);
    QCOMPARE(int(a.kind), kind);
    QCOMPARE(a.drinkId, id);
    QCOMPARE(a.text, text);
}

void tst_Startup::argument_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("expected");
    QTest::newRow("relative file") << "new/Sours.cvx" << "/work/dir/new/Sours.cvx";
    QTest::newRow("dot dot") << "../Sours.CVX" << "/work/Sours.CVX";
    QTest::newRow("absolute file") << "/tmp/a b/ümlaut.cvx" << "/tmp/a b/ümlaut.cvx";
    QTest::newRow("file address") << "file:///tmp/a%20b/Sours.cvx" << "/tmp/a b/Sours.cvx";
    QTest::newRow("remote address") << "https://host/Sours.cvx" << "https://host/Sours.cvx";
    QTest::newRow("id") << "/ID=12" << "/ID=12";
    QTest::newRow("map key ending like a file") << "/MAP=a.cvx" << "/MAP=a.cvx";
    QTest::newRow("other argument") << "notes.txt" << "notes.txt";
}

void tst_Startup::argument()
{
    QFETCH(QString, argument);
    QFETCH(QString, expected);
    QCOMPARE(commandLineArgument(argument, QStringLiteral("/work/dir")), expected);
}

void tst_Startup::val_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("plain") << "12" << 12.0;
    QTest::newRow("trailing text") << "12abc" << 12.0;
    QTest::newRow("blanks between digits") << " 1 2.5" << 12.5;
    QTest::newRow("no number") << "abc" << 0.0;
    QTest::newRow("sign") << "-3.25oz" << -3.25;
    QTest::newRow("second dot ends") << "1.2.3" << 1.2;
    QTest::newRow("exponent") << "1e2x" << 100.0;
    QTest::newRow("bare exponent letter") << "2e" << 2.0;
    QTest::newRow("hex") << "&H1F" << 31.0;
    QTest::newRow("empty") << "" << 0.0;
}

void tst_Startup::val()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    QCOMPARE(VbConvert::Val(text), value);
}

// The view a start opens, and what the quit after it leaves in the settings file.
void tst_Startup::lastView_data()
{
    QTest::addColumn<QString>("defaultView");
    QTest::addColumn<QString>("lastView"); // "" = no setting
    QTest::addColumn<int>("view");
    QTest::addColumn<QString>("saved"); // "" = no settings file at all
    QTest::newRow("fresh install, view all is A") << "D" << "" << 6 << "A";
    QTest::newRow("most recent") << "D" << "G" << 2 << "G";
    QTest::newRow("most recent, cabinet") << "D" << "L" << 5 << "L";
    QTest::newRow("recent unknown letter") << "D" << "Z" << 6 << "A";
    // A fixed view opens every start, and a quit writes nothing.
    QTest::newRow("fixed default wins") << "P" << "G" << 1 << "G";
    QTest::newRow("fixed marked") << "M" << "" << 4 << "";
    QTest::newRow("fixed unknown letter") << "Q" << "N" << 6 << "N";
    QTest::newRow("small letter is no view") << "n" << "" << 6 << "";
}

void tst_Startup::lastView()
{
    QFETCH(QString, defaultView);
    QFETCH(QString, lastView);
    QFETCH(int, view);
    QFETCH(QString, saved);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("corvane.ini"));
    const CLocalConfig config(file);
    const auto stored = [&] { return config.Load(modCorvane::kSettings, QStringLiteral("LastView"), QString()); };
    if (!lastView.isEmpty())
        config.Save(modCorvane::kSettings, QStringLiteral("LastView"), lastView);
    modCorvane::State s;
    s.defaultView = defaultView;
    modCorvane::LoadLastView(s, config);
    QCOMPARE(s.currentView, view);
    modCorvane::SaveLastView(s, config);
    QCOMPARE(QFile::exists(file), !saved.isEmpty());
    QCOMPARE(stored(), saved);
    // A view outside the list is saved as View All.
    s.currentView = 9;
    modCorvane::SaveLastView(s, config);
    QCOMPARE(stored(), defaultView == u"D" ? QStringLiteral("A") : saved);
}

void tst_Startup::optionsNeedExactY()
{
    QTemporaryDir dir;
    const CLocalConfig config(dir.filePath(QStringLiteral("corvane.ini")));
    modCorvane::State s;
    modCorvane::LoadOptions(s, config);
    QVERIFY(s.useMissingIngColor);
    QVERIFY(!s.useMetric);
    QCOMPARE(s.defaultView, QStringLiteral("D"));
    config.Save(modCorvane::kSettings, QStringLiteral("UseMissingIngColor"), QStringLiteral("y"));
    config.Save(modCorvane::kSettings, QStringLiteral("UseMetric"), QStringLiteral("Y"));
    config.Save(modCorvane::kSettings, QStringLiteral("DefaultView"), QStringLiteral("C"));
    modCorvane::LoadOptions(s, config);
    QVERIFY(!s.useMissingIngColor);
    QVERIFY(s.useMetric);
    QCOMPARE(s.defaultView, QStringLiteral("C"));
}

QTEST_GUILESS_MAIN(tst_Startup)
#include "tst_startup.moc"
