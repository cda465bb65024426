// The settings file: defaults for what is missing, exact text back for what was saved, and
// the numbered errors for everything else.
#include "TestFiles.h"
#include "base/CLocalConfig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

std::optional<ConfigError> errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const ConfigError &e) {
        return e;
    }
    return std::nullopt;
}

} // namespace

class tst_CLocalConfig : public QObject {
    Q_OBJECT
private slots:
    void readsHandWrittenFile_data();
    void readsHandWrittenFile();
    void saveThenLoad_data();
    void saveThenLoad();
    void saveReplacesAndKeepsOthers();
    void emptyNames_data();
    void emptyNames();
    void writeErrors_data();
    void writeErrors();
    void saveKeepsEveryOtherLine_data();
    void saveKeepsEveryOtherLine();
};

void tst_CLocalConfig::readsHandWrittenFile_data()
{
    QTest::addColumn<QByteArray>("content"); // null: no file, and none is made by reading
    QTest::addColumn<QString>("expected"); // null: the value is no text, and reading it fails
    QTest::newRow("no file") << QByteArray() << "default";
    QTest::newRow("value") << QByteArray("[Corvane]\nSettings\\UseMetric=Y\n") << "Y";
    QTest::newRow("empty value is not the default") << QByteArray("[Corvane]\nSettings\\UseMetric=\n") << "";
    QTest::newRow("quoted commas") << QByteArray("[Corvane]\nSettings\\UseMetric=\"a, b\"\n") << "a, b";
    QTest::newRow("other key") << QByteArray("[Corvane]\nSettings\\LastView=N\n") << "default";
    QTest::newRow("other section") << QByteArray("[Corvane]\nOther\\UseMetric=Y\n") << "default";
    QTest::newRow("list") << QByteArray("[Corvane]\nSettings\\UseMetric=a, b\n") << QString();
    QTest::newRow("byte array") << QByteArray("[Corvane]\nSettings\\UseMetric=@ByteArray(abc)\n") << QString();
    QTest::newRow("rectangle") << QByteArray("[Corvane]\nSettings\\UseMetric=@Rect(1 2 3 4)\n") << QString();
}

void tst_CLocalConfig::readsHandWrittenFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    const QString file = dir.filePath(u"settings.ini"_s);
    if (!content.isNull())
        QVERIFY(writeFile(file, content));
    const CLocalConfig config(file);
    if (expected.isNull()) {
        const auto error = errorOf([&] { config.Load(u"Settings"_s, u"UseMetric"_s, QString()); });
        QVERIFY(error);
        QCOMPARE(error->number(), quint32(0x800407D0));
        QCOMPARE(error->text(), u"Registry data not a string"_s);
        QCOMPARE(QString::fromUtf8(error->what()), error->text());
    } else {
        QCOMPARE(config.Load(u"Settings"_s, u"UseMetric"_s, u"default"_s), expected);
    }
    QCOMPARE(QFile::exists(file), !content.isNull());
}

void tst_CLocalConfig::saveThenLoad_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << "Y";
    QTest::newRow("empty") << "";
    QTest::newRow("windows path") << "C:\\Program Files\\Corvane\\Templates\\Standard.cvt";
    QTest::newRow("commas") << "a, b, c";
    QTest::newRow("quotes and equals") << "say \"x=y\"";
    QTest::newRow("blanks around") << "  padded  ";
    QTest::newRow("at sign first") << "@Variant(x)";
    QTest::newRow("comment marks") << "; not # a comment";
    QTest::newRow("line break") << "two\r\nlines";
    QTest::newRow("non-ascii") << u"Crème „brûlée“ 5 €"_s;
}

void tst_CLocalConfig::saveThenLoad()
{
    QFETCH(QString, value);
    QTemporaryDir dir;
    const QString file = dir.filePath(u"settings.ini"_s);
    CLocalConfig(file).Save(u"Settings"_s, u"TemplatePath"_s, value);
    QCOMPARE(CLocalConfig(file).Load(u"Settings"_s, u"TemplatePath"_s, u"?"_s), value);
}

void tst_CLocalConfig::saveReplacesAndKeepsOthers()
{
    QTemporaryDir dir;
    const CLocalConfig config(dir.filePath(u"settings.ini"_s));
    const QString section = u"Settings"_s;
    config.Save(section, u"LastView"_s, u"N"_s);
    config.Save(section, u"UseMetric"_s, u"Y"_s);
    config.Save(section, u"LastView"_s, u"G"_s);
    config.WriteSetting(u" Corvane "_s, u" Settings "_s, u"ColorScheme"_s, u"12"_s);
    QCOMPARE(config.Load(section, u"LastView"_s, QString()), u"G"_s);
    QCOMPARE(config.Load(section, u"UseMetric"_s, QString()), u"Y"_s);
    QCOMPARE(config.Load(section, u"ColorScheme"_s, QString()), u"12"_s);
    QCOMPARE(config.ReadSetting(u"Other"_s, section, u"LastView"_s, u"-"_s), u"-"_s);
}

void tst_CLocalConfig::emptyNames_data()
{
    QTest::addColumn<QString>("app");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("app blank, checked first") << " " << "" << "" << quint32(0x800403E8)
                                              << "AppName may not be empty";
    QTest::newRow("section empty, before key") << "Corvane" << "" << "" << quint32(0x800403E9)
                                               << "Section may not be empty";
    QTest::newRow("key blank") << "Corvane" << "Settings" << "\t " << quint32(0x800403EA)
                               << "Key may not be empty";
}

void tst_CLocalConfig::emptyNames()
{
    QFETCH(QString, app);
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(quint32, number);
    QFETCH(QString, text);
    QTemporaryDir dir;
    const CLocalConfig config(dir.filePath(u"settings.ini"_s));
    const auto readError = errorOf([&] { config.ReadSetting(app, section, key, QString()); });
    const auto writeError = errorOf([&] { config.WriteSetting(app, section, key, u"x"_s); });
    QVERIFY(readError && writeError);
    QCOMPARE(readError->number(), number);
    QCOMPARE(readError->text(), text);
    QCOMPARE(writeError->number(), number);
    QCOMPARE(writeError->text(), text);
    QVERIFY(QDir(dir.path()).isEmpty());
}

void tst_CLocalConfig::writeErrors_data()
{
    QTest::addColumn<QString>("relativePath");
    // Tests run as root, where permission bits stop nothing; paths that cannot exist do.
    QTest::newRow("directory missing") << "missing/settings.ini";
    QTest::newRow("parent is a file") << "plain.txt/settings.ini";
}

void tst_CLocalConfig::writeErrors()
{
    QFETCH(QString, relativePath);
    QTemporaryDir dir;
    QVERIFY(writeFile(dir.filePath(u"plain.txt"_s), "x"));
    const CLocalConfig config(dir.filePath(relativePath));

    const auto error = errorOf([&] { config.Save(u"Settings"_s, u"Key"_s, u"v"_s); });
    QVERIFY(error);
    QCOMPARE(error->number(), quint32(0x800407D5));
    QCOMPARE(error->text(), u"Could not open/create registry section"_s);
    QVERIFY(!QFileInfo::exists(dir.filePath(u"missing"_s)));
    QCOMPARE(config.Load(u"Settings"_s, u"Key"_s, u"default"_s), u"default"_s);
}

// A save changes its own line and keeps every other line as it stood, whatever the reader
// makes of them; a file with lines that are no settings is also copied once to ".bad". A file
// that cannot be read is said once, reads as defaults, and keeps its bytes.
void tst_CLocalConfig::saveKeepsEveryOtherLine_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QString>("notice"); // empty: none
    QTest::addColumn<bool>("readable");
    const QString bad = u"has lines that are not settings"_s;
    QTest::newRow("broken section") << QByteArray("[Corvane]\nSettings\\Key=x\n[Broken\nkept=1\n")
                                    << QByteArray("[Corvane]\nSettings\\Key=y\n[Broken\nkept=1\n") << bad << true;
    QTest::newRow("garbage line, comment, CR LF")
        << QByteArray("; mine\r\ngarbage line\r\n[Corvane]\r\nSettings\\Other=1\r\n\r\n[Later]\r\na=b\r\n")
        << QByteArray("; mine\r\ngarbage line\r\n[Corvane]\r\nSettings\\Other=1\r\nSettings\\Key=y\r\n\r\n"
                      "[Later]\r\na=b\r\n")
        << bad << true;
    QTest::newRow("no section, no final line end") << QByteArray("# only a comment")
                                                   << QByteArray("# only a comment\n[Corvane]\nSettings\\Key=y\n")
                                                   << QString() << true;
    QTest::newRow("binary bytes") << QByteArray("\x01\xff\xfe\n", 4)
                                  << QByteArray("\x01\xff\xfe\n[Corvane]\nSettings\\Key=y\n") << bad << true;
    QTest::newRow("unreadable") << QByteArray("[Corvane]\nSettings\\Key=mine\n")
                                << QByteArray("[Corvane]\nSettings\\Key=mine\n") << u"cannot be read"_s << false;
}

void tst_CLocalConfig::saveKeepsEveryOtherLine()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, expected);
    QFETCH(QString, notice);
    QFETCH(bool, readable);
    QTemporaryDir dir;
    const QString file = dir.filePath(u"settings.ini"_s);
    QVERIFY(writeFile(file, content));
    if (!readable)
        QVERIFY(QFile::setPermissions(file, QFileDevice::WriteOwner));
    QStringList notices;
    CLocalConfig::setNoticeHandler([&](const QString &text) { notices << text; });
    const CLocalConfig config(file);
    config.Save(u"Settings"_s, u"Key"_s, u"y"_s);
    config.Save(u"Settings"_s, u"Key"_s, u"y"_s);
    CLocalConfig::setNoticeHandler({});
    QCOMPARE(config.Load(u"Settings"_s, u"Key"_s, u"default"_s), readable ? u"y"_s : u"default"_s);
    QVERIFY(QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    QCOMPARE(readFile(file), expected);
    QCOMPARE(readFile(file + u".bad"_s), notice.contains(u"not settings"_s) ? content : QByteArray());
    QCOMPARE(notices.size(), notice.isEmpty() ? 0 : 1);
    if (!notice.isEmpty())
        QVERIFY2(notices.value(0).contains(notice), qPrintable(notices.value(0)));
}

QTEST_GUILESS_MAIN(tst_CLocalConfig)
#include "tst_clocalconfig.moc"
