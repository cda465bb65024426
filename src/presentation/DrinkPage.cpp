#include "presentation/DrinkPage.h"

#include "base/ColorValues.h"
#include "base/Currency.h"
#include "base/modCorvane.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/ZipArchive.h"
#include "store/DrinkStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSqlQuery>
#include <stdexcept>
#include <vector>

namespace {
const QString kNothing = QStringLiteral("&nbsp");
const QString kStartIng = QStringLiteral("<!-StartIng>");
const QString kEndIng = QStringLiteral("<!-EndIng>");
const QString kStartCat = QStringLiteral("<!-StartCat>");
const QString kEndCat = QStringLiteral("<!-EndCat>");
constexpr int kUnknownGlassPicture = 24;

QString text(const QVariant &v)
{
    return v.isNull() ? QString() : v.toString();
}

// An end marker before its start marker: the old section arithmetic failed on it, and the
// page went on without that section expanded.
struct SectionError : std::runtime_error {
    SectionError() : std::runtime_error("section end before its start") {}
};

// The steps after the fixed tokens each cost only themselves when they fail.
template <typename Step> void ignoringErrors(Step step)
{
    try {
        step();
    } catch (const std::exception &) {
    }
}

// The old platform's idea of a number: blanks around, a sign, digits with one decimal point,
// an exponent.
bool isNumeric(const QString &value)
{
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eEdD][+-]?\d+)?\s*$)"));
    return number.match(value).hasMatch();
}

// Without a GUI application (tests, tools) the platform's usual values stand in.
quint32 systemColorValue(quint32 index, quint32 fallback)
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return fallback;
    return ColorValues::fromQColor(ColorValues::systemColor(index, QGuiApplication::palette()));
}

// The page shows the glass as a bitmap, which has no transparency: it lies on white.
void saveGlassBitmap(const QString &picturePath, const QString &target)
{
    const QImage picture(picturePath);
    bool saved = false;
    if (!picture.isNull()) {
        QImage bitmap(picture.size(), QImage::Format_RGB32);
        bitmap.fill(Qt::white);
        QPainter painter(&bitmap);
        painter.drawImage(0, 0, picture);
        painter.end();
        saved = bitmap.save(target, "BMP");
    }
    // A file left from an earlier run would show the wrong glass.
    if (!saved)
        QFile::remove(target);
}
} // namespace

namespace DrinkPage {

QString ReplaceToken(const QString &text, const QString &name, const QString &value)
{
    const QString token = QStringLiteral("!#!#") + name + QStringLiteral("!#!#");
    return QString(text).replace(token, value, Qt::CaseInsensitive);
}

quint32 resolveColor(quint32 value)
{
    if (value <= ColorValues::White)
        return value;
    switch (value) {
    case modCorvane::SysWindowText:
        return systemColorValue(8, 0x000000);
    case modCorvane::SysHighlight:
        return systemColorValue(13, 0xD77800);
    case modCorvane::SysButtonFace:
        return systemColorValue(15, 0xF0F0F0);
    case modCorvane::SysButtonShadow:
        return systemColorValue(16, 0xA0A0A0);
    default:
        return ColorValues::White;
    }
}

QString htmlColorDigits(quint32 value)
{
    QString hex = QString::number(value, 16).toUpper();
    if (hex.size() > 6)
        hex = hex.right(6);
    hex = hex.rightJustified(6, u'0');
    return hex.mid(4, 2) + hex.mid(2, 2) + hex.mid(0, 2);
}

QString ColorToHTML(quint32 &color)
{
    color = resolveColor(color);
    return htmlColorDigits(color);
}

} // namespace DrinkPage

using DrinkPage::ColorToHTML;
using DrinkPage::ReplaceToken;

DrinkPageBuilder::DrinkPageBuilder(CDrinkFacade &facade, DrinkStore &store, modCorvane::State &state)
    : m_facade(facade), m_store(store), m_state(state), m_appDir(facade.appDir())
{
}

QString DrinkPageBuilder::BuildDrinkPage()
{
    const auto field = [this](const char *name) { return m_facade.field(QString::fromLatin1(name)); };
    QString page = m_facade.templateText();
    page = ReplaceToken(page, QStringLiteral("BackgroundColor"), ColorToHTML(m_state.schemeBackgroundColor));
    page = ReplaceToken(page, QStringLiteral("TextColor"), ColorToHTML(m_state.schemeTextColor));
    page = ReplaceToken(page, QStringLiteral("HighlightColor"), ColorToHTML(m_state.schemeHighlightColor));
    page = ReplaceToken(page, QStringLiteral("AccentColor"), ColorToHTML(m_state.schemeAccentColor));
    page = ReplaceToken(page, QStringLiteral("Name"), text(field("Name")));
    page = ReplaceToken(page, QStringLiteral("Recipe"), text(field("Description")));
    page = ReplaceToken(page, QStringLiteral("Garnish"), m_facade.GetGarnishName());
    page = ReplaceToken(page, QStringLiteral("Build"), m_facade.GetBuildName());
    page = ReplaceToken(page, QStringLiteral("Rating"), m_facade.GetRatingName());
    page = ReplaceToken(page, QStringLiteral("Comment"), text(field("Comments")));
    page = ReplaceToken(page, QStringLiteral("Price"), Currency::fromVariant(field("Price")).format());
    page = ReplaceToken(page, QStringLiteral("Cost"), Currency::fromVariant(field("Cost")).format());

    ignoringErrors([&] { page = WriteGlassPicture(page); });
    ignoringErrors([&] {
        // Extraction is the costly step; a template without the picture does without it.
        if (!page.contains(QStringLiteral("!#!#DrinkImagePath!#!#"), Qt::CaseInsensitive))
            return;
        const QString image = GetDrinkImage();
        page = ReplaceToken(page, QStringLiteral("DrinkImagePath"),
                            image.isEmpty() ? m_appDir + QStringLiteral("/spacer.gif") : image);
    });
    ignoringErrors([&] {
        const bool marked = field("Marked").toInt() != 0;
        page = ReplaceToken(page, QStringLiteral("Marked"),
                            marked ? QStringLiteral("Marked") : QStringLiteral("Not Marked"));
        page = ReplaceToken(page, QStringLiteral("MarkedImage"),
                            m_facade.currentHTMLTemplateRoot() +
                                (marked ? QStringLiteral("mrk.gif") : QStringLiteral("unmrk.gif")));
    });
    ignoringErrors([&] { page = ExpandIngredients(page); });
    ignoringErrors([&] { page = ExpandCategories(page); });
    return page;
}

QString DrinkPageBuilder::WriteGlassPicture(QString page)
{
    // Two files in turns, so that the view never shows a picture it cached for the last page.
    QString target;
    if (m_facade.nextGlassIsA) {
        QFile::remove(m_appDir + QStringLiteral("/glassa.bmp"));
        target = m_appDir + QStringLiteral("/glassb.bmp");
        m_facade.nextGlassIsA = false;
    } else {
        QFile::remove(m_appDir + QStringLiteral("/glassb.bmp"));
        target = m_appDir + QStringLiteral("/glassa.bmp");
        m_facade.nextGlassIsA = true;
    }

    const QVariant glassType = m_facade.field(QStringLiteral("GlassType"));
    int glass = glassType.isNull() ? 0 : glassType.toInt();
    if (glass < 1 || glass > 24)
        glass = kUnknownGlassPicture;
    page = ReplaceToken(page, QStringLiteral("Glassware"), m_facade.GetGlassName(glass));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);

    saveGlassBitmap(QStringLiteral("%1/glass/%2.png").arg(m_appDir).arg(glass, 2, 10, QChar(u'0')), target);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);

    return ReplaceToken(page, QStringLiteral("GlassImagePath"), target);
}

QString DrinkPageBuilder::GetDrinkImage()
{
    if (!m_facade.onRecord())
        return {};
    const QString value = text(m_facade.field(QStringLiteral("ImageFilePath")));
    if (value.isEmpty())
        return {};
    // Six-digit numbers name pictures in the archive; anything else is the user's own file.
    if (!(value.size() == 6 && isNumeric(value)))
        return value;
    if (m_facade.imageArchivePath().isEmpty())
        return {};
    const QString member = value + QStringLiteral(".jpg");
    if (ZipArchive::extractMember(m_facade.imageArchivePath(), QString::fromLatin1(ArchivePasswords::ImageArchive),
                                  member, m_appDir) != 0)
        return {};
    return m_appDir + u'/' + member;
}

QString DrinkPageBuilder::ExpandIngredients(const QString &page)
{
    struct Line {
        QString amount, metricAmount, ingredient;
        bool selected;
    };
    std::vector<Line> lines;
    QSqlQuery rows = m_facade.currentDrinkIngredients();
    while (rows.next())
        lines.push_back({text(rows.value(QStringLiteral("amount"))), text(rows.value(QStringLiteral("MetricAmount"))),
                         text(rows.value(QStringLiteral("Ingredient"))),
                         rows.value(QStringLiteral("Selected")).toInt() != 0});
    if (lines.empty())
        return ReplaceToken(page, QStringLiteral("Ing"), kNothing);

    const qsizetype start = page.indexOf(kStartIng, 0, Qt::CaseInsensitive);
    const qsizetype end = page.indexOf(kEndIng, 0, Qt::CaseInsensitive);
    if (start < 0 || end < 0) {
        // No section: everything in one place, as the oldest templates had it.
        QString all;
        for (const Line &line : lines)
            all += line.amount + u' ' + line.ingredient + QStringLiteral("<br>");
        return ReplaceToken(page, QStringLiteral("Ing"), all);
    }

    // The start marker stays in the page, the end marker goes.
    const qsizetype rowStart = start + kStartIng.size();
    if (end < rowStart)
        throw SectionError();
    const QString rowTemplate = page.mid(rowStart, end - rowStart);
    QString out = page.left(rowStart);
    for (const Line &line : lines) {
        quint32 &color =
            line.selected || !m_state.useMissingIngColor ? m_state.schemeTextColor : m_state.missingIngColor;
        QString row = ReplaceToken(rowTemplate, QStringLiteral("IngColor"), ColorToHTML(color));
        row = ReplaceToken(row, QStringLiteral("Ing"),
                           (m_state.useMetric ? line.metricAmount : line.amount) + u' ' + line.ingredient);
        out += row;
    }
    return out + page.mid(end + kEndIng.size());
}

QString DrinkPageBuilder::ExpandCategories(const QString &page)
{
    QStringList types;
    QSqlQuery rows = m_store.select(QStringLiteral("SELECT * FROM DrinkCategories WHERE DrinkID = ") +
                                    QString::number(m_facade.currentDrinkID()));
    while (rows.next())
        types << text(rows.value(QStringLiteral("Type")));
    if (types.isEmpty())
        return ReplaceToken(page, QStringLiteral("Categories"), kNothing);

    const qsizetype start = page.indexOf(kStartCat, 0, Qt::CaseInsensitive);
    const qsizetype end = page.indexOf(kEndCat, 0, Qt::CaseInsensitive);
    if (start < 0 || end < 0)
        return ReplaceToken(page, QStringLiteral("Categories"),
                            types.join(QStringLiteral("<br>")) + QStringLiteral("<br>"));

    // Unlike the ingredients, each row begins with the start marker itself.
    if (end < start)
        throw SectionError();
    const QString rowTemplate = page.mid(start, end - start);
    QString out = page.left(start);
    for (const QString &type : types)
        out += ReplaceToken(rowTemplate, QStringLiteral("Categories"), type);
    return out + page.mid(end + kEndCat.size());
}

QString DrinkPageBuilder::GetBlankPage()
{
    return QStringLiteral("<html><head><body bgcolor=\"#") + ColorToHTML(m_state.schemeBackgroundColor) +
           QStringLiteral("\">&nbsp</body></html>");
}

QString DrinkPageBuilder::GetNoTemplatePage()
{
    return QStringLiteral("<html><body bgcolor=\"#") + ColorToHTML(m_state.schemeBackgroundColor) +
           QStringLiteral("\">") + QStringLiteral("<h1 align=\"CENTER\"><font face=\"Arial, Helvetica, sans-serif\">") +
           text(m_facade.field(QStringLiteral("Name"))) +
           QStringLiteral("</font></h1>Please select a template (Tools | Templates)</body></html>");
}
