#include "cli/CliCommand.h"
#include "store/StoreError.h"

#include <QMessageLogContext>

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>
#include <memory>

namespace {

// One line, whatever line breaks a message of the window carries.
void printErr(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(u'\n', u' ');
    std::fputs((text + u'\n').toUtf8().constData(), stderr);
}

QString overview()
{
    QString text = QStringLiteral("Usage: corvane-cli [--appdir DIR] COMMAND [options]\n\n"
                                  "The recipe book from a terminal, on the same application directory as the window\n"
                                  "(--appdir, else CORVANE_HOME, else the default).\n\nCommands:\n");
    for (const CliCommand *c : CliCommands::all())
        text += QStringLiteral("  %1%2\n").arg(QString::fromLatin1(c->name).leftJustified(10), QLatin1String(c->description));
    return text + QStringLiteral("\n'corvane-cli COMMAND --help' tells the options of a command.\n");
}

QString commandHelp(const CliCommand &c, const QCommandLineParser &parser)
{
    QString options = parser.helpText();
    const qsizetype from = options.indexOf(QLatin1String("Options:"));
    return QStringLiteral("Usage: corvane-cli %1 %2\n\n%3\n\n").arg(QLatin1String(c.name), QLatin1String(c.synopsis),
                                                                   QLatin1String(c.description)) +
           (from >= 0 ? options.mid(from) : options);
}

} // namespace

// Qt's own notes (a missing runtime folder, a font substituted) are no business of a script
// reading standard error; only what stops the program is said.
void quietQt(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        printErr(text);
}

int main(int argc, char **argv)
{
    qInstallMessageHandler(quietQt);
    QStringList args;
    for (int i = 0; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    // The command is the first word that is no option; --appdir may stand before it.
    QStringList rest{args.value(0)};
    QString commandName;
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString &a = args[i];
        if (commandName.isEmpty() && (a == u"--help" || a == u"-h")) {
            std::fputs(overview().toUtf8().constData(), stdout);
            return 0;
        }
        if (commandName.isEmpty() && !a.startsWith(u'-'))
            commandName = a;
        else {
            rest << a;
            if (commandName.isEmpty() && a == u"--appdir" && i + 1 < args.size())
                rest << args[++i];
        }
    }
    if (commandName.isEmpty()) {
        printErr(QStringLiteral("corvane-cli: no command given (see corvane-cli --help)"));
        return 2;
    }
    const CliCommand *command = CliCommands::find(commandName);
    if (!command) {
        printErr(QStringLiteral("corvane-cli: unknown command \"%1\" (see corvane-cli --help)").arg(commandName));
        return 2;
    }

    // With no screen to talk to, the offscreen platform serves the commands that lay out pages;
    // the others stay plain console programs.
    if (command->drawsPages && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> app(command->drawsPages ? new QGuiApplication(argc, argv)
                                                                    : new QCoreApplication(argc, argv));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));

    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows these options.")});
    parser.addOption({QStringLiteral("appdir"), QStringLiteral("The application directory."), QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("Rows as one JSON array of objects.")});
    command->declare(parser);
    const QString where = QStringLiteral("corvane-cli ") + QLatin1String(command->name);
    if (!parser.parse(rest)) {
        printErr(QStringLiteral("%1: %2 (see %1 --help)").arg(where, parser.errorText()));
        return 2;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(commandHelp(*command, parser).toUtf8().constData(), stdout);
        return 0;
    }

    CliContext context(parser, parser.value(QStringLiteral("appdir")));
    try {
        return command->run(context);
    } catch (const UsageError &e) {
        printErr(QStringLiteral("%1: %2 (see %1 --help)").arg(where, e.text()));
        return 2;
    } catch (const UserError &e) {
        printErr(QStringLiteral("corvane-cli: ") + e.text());
    } catch (const StoreError &e) {
        printErr(QStringLiteral("corvane-cli: ") + e.engineText());
    } catch (const std::exception &e) {
        printErr(QStringLiteral("corvane-cli: ") + QString::fromUtf8(e.what()));
    }
    return 1;
}
