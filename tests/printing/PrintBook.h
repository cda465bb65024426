#pragma once

#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

// Three drinks of one glass with their lines, builds and garnishes; the Kir is marked.
inline QString printBookSql()
{
    return QString::fromUtf8(R"(
INSERT INTO Glassware (GlassID, Name) VALUES (3, 'Cocktail');
INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Gin'), (2, 'Dry Vermouth'), (3, 'Rye Whiskey'),
  (4, 'Sweet Vermouth'), (5, 'Crème de Cassis'), (6, 'Champagne');
INSERT INTO Garnish (id, Name) VALUES (1, 'Olive'), (2, 'Cherry');
INSERT INTO Build (id, Name) VALUES (1, 'Stirred'), (2, 'Built');
INSERT INTO Drinks (id, Name, GlassType, Description, BuildID, GarnishID, Marked) VALUES
  (10, 'Martini', 3, 'Stir with ice and strain.', 1, 1, 0),
  (11, 'Manhattan', 3, 'Stir, strain into a chilled glass.', 1, 2, 0),
  (12, 'Kir "Royal" Élysée', 3, 'Pour the cassis, top with champagne.', 2, NULL, 1);
INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES
  (10, 1, 1, '2 oz', '6 cl', 2), (10, 2, 2, '1/2 oz', '1.5 cl', 0.5),
  (11, 3, 1, '2 oz', '6 cl', 2), (11, 4, 2, '1 oz', '3 cl', 1),
  (12, 5, 1, '1/2 oz', '1.5 cl', 0.5), (12, 6, 2, '4 oz', '12 cl', 4);
)");
}

// The standard output of a tool that must succeed.
inline QString runTool(const QString &program, const QStringList &args)
{
    QProcess p;
    p.start(program, args);
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        qFatal("%s failed", qPrintable(program));
    return QString::fromUtf8(p.readAllStandardOutput());
}

inline int pdfPages(const QString &path)
{
    const auto match =
        QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(runTool(QStringLiteral("pdfinfo"), {path}));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

inline QString pdfText(const QString &path)
{
    return runTool(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
}
