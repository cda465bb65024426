#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "store/BookCheck.h"

namespace {

void declare(QCommandLineParser &) {}

int run(CliContext &c)
{
    c.expect(0, "");
    const QStringList problems = checkBook(c.store());
    RowWriter out(c.json(), {QStringLiteral("problem")});
    for (const QString &p : problems)
        out.add({p});
    out.finish();
    if (!problems.isEmpty())
        throw UserError(QStringLiteral("%1 problem(s) found.").arg(problems.size()));
    return 0;
}

const CliCommand command{"check", "[--json]",
                         "Checks the file with the engine, then the book's own rules; one problem a line.", declare, run};
const CliCommandEntry entry(command);

} // namespace
