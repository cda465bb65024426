#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <memory>
#include <stdexcept>
#include <vector>

class CDrinkFacade;
class DrinkStore;

// A problem with what the user asked for (a missing drink, a bad file): one line on standard
// error and exit status 1.
class UserError : public std::runtime_error {
public:
    explicit UserError(const QString &text) : std::runtime_error(text.toStdString()), m_text(text) {}
    QString text() const { return m_text; }

private:
    QString m_text;
};

// A command line that does not make sense: the message, a pointer to --help, exit status 2.
class UsageError : public UserError {
public:
    using UserError::UserError;
};

// What a command gets: its parsed options and arguments, and the book, opened on first use
// under the same directory rules as the window.
class CliContext {
public:
    CliContext(QCommandLineParser &parser, QString appDirOption);
    ~CliContext();

    QCommandLineParser &args;
    bool json() const { return args.isSet(QStringLiteral("json")); }
    QStringList positional() const { return args.positionalArguments(); }
    // The positional arguments, exactly n of them, else a usage error naming what is missing.
    QStringList expect(int n, const char *what) const;
    QString value(const char *option) const { return args.value(QString::fromLatin1(option)); }
    bool isSet(const char *option) const { return args.isSet(QString::fromLatin1(option)); }

    DrinkStore &store();
    CDrinkFacade &facade();

private:
    QString m_appDirOption;
    std::unique_ptr<DrinkStore> m_store;
    std::unique_ptr<CDrinkFacade> m_facade;
};

// One command of the program: its name, one line for the list of commands, the options it
// takes, and what it does. Each command lives in a file of its own and adds itself to the
// table with a CliCommandEntry.
struct CliCommand {
    const char *name;
    const char *synopsis;    // the arguments, as --help shows them
    const char *description; // one line
    void (*declare)(QCommandLineParser &parser);
    int (*run)(CliContext &context);
    // Lays out pages (cards, a printed list), so it needs the fonts of a GUI application.
    bool drawsPages = false;
};

namespace CliCommands {
const std::vector<const CliCommand *> &all();
const CliCommand *find(const QString &name);
bool add(const CliCommand *command);
}

// Adds a command to the table when the program starts.
struct CliCommandEntry {
    explicit CliCommandEntry(const CliCommand &command) { CliCommands::add(&command); }
};

// Reads a list of drink ids as typed after --ids: "1,2,3".
std::vector<qint32> parseIdList(const QString &text);
// The drinks a command works on: --marked, --ids or (where allowed) --all, exactly one of them.
std::vector<qint32> selectedDrinks(CliContext &context, bool allowAll);
