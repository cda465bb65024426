// The scheme colours and the options as they are read, resolved and written: the scheme row of
// the setting or the system colours, the missing ingredient colour in the start order and the
// selected text rule. The options dialog's letters are driven in the colour dialogs' suite.
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/ColorValues.h"
#include "base/Options.h"
#include "base/modCorvane.h"
#include "store/ColorSchemes.h"
#include "store/DrinkStore.h"

#include <QtTest>

using modCorvane::State;

namespace {
// Scheme 64 and a second one; colours chosen so that no two fields are alike.
const QString kRows = QStringLiteral(
    "INSERT INTO ColorSchemes (id, Name, TextColor, HighlightColor, AccentColor, BackgroundColor) VALUES "
    "(64, 'Classic', 3355443, 10053171, 14474460, 15790320), (70, 'Night', 14737632, 65535, 4210752, 2105376);");

void setSetting(const QString &key, const QString &value)
{
    if (!value.isNull())
        CLocalConfig().Save(modCorvane::kSettings, key, value);
}

// A state unlike the defaults, to see what a load replaces.
State scribbled()
{
    State s;
    s.schemeTextColor = s.schemeHighlightColor = s.schemeAccentColor = s.schemeBackgroundColor = 0x123456;
    s.missingIngColor = 0x654321;
    s.colorSchemeID = -5;
    return s;
}
} // namespace

class tst_ColorScheme : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { m_ts = std::make_unique<TestStore>(kRows); }

    void init()
    {
        AppPaths::setAppDir(m_ts->appDir());
        QFile::remove(AppPaths::settingsFile());
    }

    void loadColorScheme_data()
    {
        QTest::addColumn<QString>("settingValue"); // null: no setting at all
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("found");
        QTest::newRow("no setting: 64") << QString() << 64 << true;
        QTest::newRow("second scheme") << "70" << 70 << true;
        QTest::newRow("leading number") << "70 Night" << 70 << true;
        QTest::newRow("rounded") << "69.6" << 70 << true;
        QTest::newRow("no such row") << "71" << 71 << false;
        QTest::newRow("not a number") << "Night" << 0 << false;
        QTest::newRow("empty") << "" << 0 << false;
        QTest::newRow("beyond 32 bits") << "99999999999" << 0 << false;
    }

    void loadColorScheme()
    {
        QFETCH(QString, settingValue);
        QFETCH(int, id);
        QFETCH(bool, found);
        setSetting(QStringLiteral("ColorScheme"), settingValue);
        State s = scribbled();
        modCorvane::LoadColorScheme(s, m_ts->store(), CLocalConfig());
        QCOMPARE(s.colorSchemeID, id);
        const State defaults;
        const std::optional<ColorScheme> row = ColorSchemes::find(m_ts->store(), id);
        QCOMPARE(row.has_value(), found);
        QCOMPARE(s.schemeTextColor, found ? row->textColor : defaults.schemeTextColor);
        QCOMPARE(s.schemeHighlightColor, found ? row->highlightColor : defaults.schemeHighlightColor);
        QCOMPARE(s.schemeAccentColor, found ? row->accentColor : defaults.schemeAccentColor);
        QCOMPARE(s.schemeBackgroundColor, found ? row->backgroundColor : defaults.schemeBackgroundColor);
    }

    void missingIngColorAtStart_data()
    {
        QTest::addColumn<QString>("useSetting"); // null: no setting
        QTest::addColumn<QString>("colorSetting");
        QTest::addColumn<QString>("scheme");
        QTest::addColumn<bool>("use");
        QTest::addColumn<quint32>("color");
        auto text = [](const char *t) { return t ? QString::fromLatin1(t) : QString(); };
        auto row = [&](const char *name, const char *use, const char *color, const char *scheme, bool on,
                       quint32 value) {
            QTest::newRow(name) << text(use) << text(color) << text(scheme) << on << value;
        };
        row("defaults: on, black", nullptr, nullptr, "64", true, 0);
        row("on, red", "Y", "255", "64", true, 255);
        row("on, not a number", "Y", "red", "64", true, 0);
        row("on, system value", "Y", "-2147483640", "64", true, 0x80000008u);
        row("off: scheme text", "N", "255", "70", false, 14737632);
        row("small y is off", "y", "255", "64", false, 3355443);
        row("off, no scheme: system text", "N", "255", "0", false, 0x80000008u);
    }

    void missingIngColorAtStart()
    {
        QFETCH(QString, useSetting);
        QFETCH(QString, colorSetting);
        QFETCH(QString, scheme);
        QFETCH(bool, use);
        QFETCH(quint32, color);
        setSetting(QStringLiteral("UseMissingIngColor"), useSetting);
        setSetting(QStringLiteral("MissingIngColor"), colorSetting);
        setSetting(QStringLiteral("ColorScheme"), scheme);
        State s = scribbled();
        const CLocalConfig config;
        modCorvane::LoadOptions(s, config);
        modCorvane::LoadColorScheme(s, m_ts->store(), config);
        modCorvane::LoadMissingIngColor(s, config);
        QCOMPARE(s.useMissingIngColor, use);
        QCOMPARE(s.missingIngColor, color);
    }

    void schemeDialogOkKeepsHighlight()
    {
        // After the colour dialog only the scheme is loaded again: with the highlight on, the
        // colour of missing ingredients stays; with it off, it follows the new text colour.
        setSetting(QStringLiteral("MissingIngColor"), QStringLiteral("255"));
        State s;
        const CLocalConfig config;
        modCorvane::LoadColorScheme(s, m_ts->store(), config);
        modCorvane::LoadMissingIngColor(s, config);
        setSetting(QStringLiteral("ColorScheme"), QStringLiteral("70"));
        modCorvane::LoadColorScheme(s, m_ts->store(), config);
        QCOMPARE(s.missingIngColor, 255u);
        setSetting(QStringLiteral("UseMissingIngColor"), QStringLiteral("N"));
        modCorvane::LoadColorScheme(s, m_ts->store(), config);
        QCOMPARE(s.missingIngColor, 14737632u);
    }

    // The grid's dark grey and system text are seen through the colour dialogs' suite.
    void selectedText_data()
    {
        QTest::addColumn<quint32>("text");
        QTest::addColumn<bool>("inRange");
        QTest::addColumn<quint32>("selected");
        QTest::newRow("white gives black") << 0xFFFFFFu << true << 0u;
        QTest::newRow("black gives white") << 0u << true << 0xFFFFFFu;
        QTest::newRow("each byte on its own") << 0x0000FFu << true << 0xFFFF00u;
        QTest::newRow("other system value overflows") << 0x80000010u << false << 0u;
        QTest::newRow("system button face overflows") << 0x8000000Fu << false << 0u;
    }

    void selectedText()
    {
        QFETCH(quint32, text);
        QFETCH(bool, inRange);
        QFETCH(quint32, selected);
        const std::optional<quint32> value = ColorValues::selectedTextValue(text);
        QCOMPARE(value.has_value(), inRange);
        QPalette platform;
        platform.setColor(QPalette::HighlightedText, QColor(1, 2, 3));
        if (inRange) {
            QCOMPARE(*value, selected);
            QCOMPARE(ColorValues::selectedTextColor(text, platform), ColorValues::toQColor(selected, platform));
        } else {
            // Drawn in the platform's highlight text rather than failing.
            QCOMPARE(ColorValues::selectedTextColor(text, platform), QColor(1, 2, 3));
        }
    }

    void platformValues_data()
    {
        QTest::addColumn<quint32>("value");
        QTest::addColumn<QColor>("color");
        QTest::newRow("red is the low byte") << 0x0000FFu << QColor(255, 0, 0);
        QTest::newRow("green") << 0x00FF00u << QColor(0, 255, 0);
        QTest::newRow("blue is the third byte") << 0xFF0000u << QColor(0, 0, 255);
        QTest::newRow("window text") << 0x80000008u << QColor(10, 0, 0);
        QTest::newRow("highlight") << 0x8000000Du << QColor(20, 0, 0);
        QTest::newRow("highlight text") << 0x8000000Eu << QColor(30, 0, 0);
        QTest::newRow("button face: window") << 0x8000000Fu << QColor(40, 0, 0);
        QTest::newRow("button shadow") << 0x80000010u << QColor(50, 0, 0);
        QTest::newRow("unknown system number") << 0x80000063u << QColor(0, 0, 0);
    }

    void platformValues()
    {
        QFETCH(quint32, value);
        QFETCH(QColor, color);
        QPalette platform;
        platform.setColor(QPalette::WindowText, QColor(10, 0, 0));
        platform.setColor(QPalette::Highlight, QColor(20, 0, 0));
        platform.setColor(QPalette::HighlightedText, QColor(30, 0, 0));
        platform.setColor(QPalette::Window, QColor(40, 0, 0));
        platform.setColor(QPalette::Dark, QColor(50, 0, 0));
        QCOMPARE(ColorValues::toQColor(value, platform), color);
        if (!ColorValues::isSystem(value))
            QCOMPARE(ColorValues::fromQColor(color), value);
    }

    void tableWrites()
    {
        // The dialog's statements as designed; a system colour goes in and out as its 32 bits.
        TestStore ts(kRows);
        const qint32 id = ColorSchemes::add(ts.store(), {0, QStringLiteral("Dusk"), 1, 2, 3, 0x8000000F});
        QVERIFY(id > 70);
        QCOMPARE(ColorSchemes::all(ts.store()).last().backgroundColor, 0x8000000Fu);
        QCOMPARE(
            ColorSchemes::updateStatement({id, QStringLiteral("Dusk"), 1, 4, 3, 0x8000000F}),
            QStringLiteral("UPDATE ColorSchemes SET Name = \"Dusk\", TextColor = 1, BackgroundColor = -2147483633, "
                           "HighlightColor = 4, AccentColor = 3 WHERE ID = %1")
                .arg(id));
        QCOMPARE(ColorSchemes::deleteStatement(id), QStringLiteral("DELETE FROM ColorSchemes WHERE ID = %1").arg(id));
    }

  private:
    // One store for the tests that only read it; each test starts with no settings.
    std::unique_ptr<TestStore> m_ts;
};

QTEST_GUILESS_MAIN(tst_ColorScheme)
#include "tst_colorscheme.moc"
