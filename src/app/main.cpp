#include "base/AppPaths.h"
#include "base/CommandLine.h"
#include "shell/InstanceLink.h"
#include "shell/QuitSignals.h"
#include "shell/ShellMessages.h"
#include "shell/frmMain.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QMessageBox>
#include <QStringList>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    // The desktop entry's id links the windows to the menu entry and its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.corvane.Corvane"));
    QIcon icon;
    for (const int size : {16, 32, 48, 256})
        icon.addFile(QStringLiteral(":/corvane/corvane-%1.png").arg(size));
    QApplication::setWindowIcon(icon);

    // A logout, a terminal's Ctrl-C or a kill ends the program as "Exit" does.
    bool quitAsked = false;
    QuitSignals quitSignals;
    QObject::connect(&quitSignals, &QuitSignals::quitRequested, &app, [&quitAsked] {
        quitAsked = true;
        QApplication::exit(0);
    });

    // Everything but "--appdir DIR" is the command line another program hands us ("/ID=12").
    QString explicitDir;
    QStringList rest;
    const QStringList args = QApplication::arguments();
    for (qsizetype i = 1; i < args.size(); ++i) {
        if (args[i] == u"--appdir" && i + 1 < args.size())
            explicitDir = args[++i];
        else if (args[i].startsWith(u"--appdir="))
            explicitDir = args[i].mid(9);
        else
            rest << commandLineArgument(args[i], QDir::currentPath());
    }
    const QString commandLine = rest.join(u' ');
    const QString appDir = AppPaths::resolve(explicitDir);

    // A second start with something to show gives it to the copy already running, and ends.
    if (!commandLine.trimmed().isEmpty()) {
        switch (InstanceLink::handOver(appDir, commandLine)) {
        case InstanceLink::Handled:
            return 0;
        case InstanceLink::NoAnswer:
            QMessageBox::warning(nullptr, QStringLiteral("Corvane"), handOverTimedOutText(commandLine));
            return 1;
        case InstanceLink::NoRunningCopy:
            break;
        }
    }

    QString error;
    if (!AppPaths::ensureFilled(appDir, &error)) {
        QMessageBox::critical(nullptr, QStringLiteral("Corvane"), error);
        return 1;
    }
    AppPaths::setAppDir(appDir);

    frmMain window;
    if (!window.Form_Load(commandLine))
        return 1;
    if (quitAsked)
        return 0;
    return QApplication::exec();
}
