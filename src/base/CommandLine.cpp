#include "base/CommandLine.h"

#include "base/VbConvert.h"

#include <QDir>
#include <QLocale>
#include <QUrl>

namespace {
bool isExchangeFileName(const QString &text)
{
    return text.endsWith(u".cvx", Qt::CaseInsensitive);
}
} // namespace

CommandLineAction ParseCommandLine(const QString &line)
{
    const QString text = line.trimmed();
    CommandLineAction action;
    if (text.left(4).toUpper() == u"/ID=") {
        action.text = text.mid(4);
        bool ok = false;
        double value = QLocale::c().toDouble(action.text.trimmed(), &ok);
        if (!ok)
            value = QLocale::system().toDouble(action.text.trimmed(), &ok);
        const auto id = ok ? VbConvert::CLng(value) : std::nullopt;
        action.kind = id ? CommandLineAction::ShowDrinkByID : CommandLineAction::InvalidDrinkID;
        action.drinkId = id.value_or(0);
    } else if (text.left(5).toUpper() == u"/MAP=") {
        action.kind = CommandLineAction::ShowDrinkByMapID;
        action.text = text.mid(5);
    } else if (isExchangeFileName(text)) {
        action.kind = CommandLineAction::ImportExchangeFile;
        action.text = text;
    }
    return action;
}

QString invalidDrinkIdMessage(const QString &idText)
{
    return QStringLiteral("The Drink ID passed in, %1, is not a valid Corvane Drink ID.").arg(idText);
}

QString commandLineArgument(const QString &argument, const QString &workingDir)
{
    const QString text = argument.trimmed();
    if (!isExchangeFileName(text) || text.left(4).toUpper() == u"/ID=" || text.left(5).toUpper() == u"/MAP=")
        return argument;
    QString path = text;
    if (text.contains(u"://")) {
        const QUrl url(text);
        if (!url.isLocalFile())
            return argument;
        path = url.toLocalFile();
    }
    return QDir::cleanPath(QDir(workingDir).absoluteFilePath(path));
}
