#include "base/AppPaths.h"
#include "shell/InstanceLink.h"
#include "shell/frmMain.h"

#include <QApplication>
#include <QMessageBox>
#include <QStringList>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Corvane"));

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
            rest << args[i];
    }
    const QString commandLine = rest.join(u' ');
    const QString appDir = AppPaths::resolve(explicitDir);

    // A second start with something to show gives it to the copy already running, and ends.
    if (!commandLine.trimmed().isEmpty() && InstanceLink::handOver(appDir, commandLine))
        return 0;

    QString error;
    if (!AppPaths::ensureFilled(appDir, &error)) {
        QMessageBox::critical(nullptr, QStringLiteral("Corvane"), error);
        return 1;
    }
    AppPaths::setAppDir(appDir);

    frmMain window;
    if (!window.Form_Load(commandLine))
        return 1;
    return QApplication::exec();
}
