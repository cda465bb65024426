#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "store/StoreBackup.h"

namespace {

void declare(QCommandLineParser &) {}

int run(CliContext &c)
{
    const QString target = c.expect(1, "the file to write").at(0);
    const QString failure = backupStore(c.store(), target);
    if (!failure.isEmpty())
        throw UserError(failure);
    printLine(QStringLiteral("The book was copied to %1.").arg(target));
    return 0;
}

const CliCommand command{"backup", "FILE",
                         "Copies the book to FILE, consistently, also while the window has it open.", declare, run};
const CliCommandEntry entry(command);

} // namespace
