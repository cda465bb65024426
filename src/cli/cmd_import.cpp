#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "exchange/CvxImport.h"
#include "store/DrinkStore.h"

namespace {

void declare(QCommandLineParser &) {}

int run(CliContext &c)
{
    const QString file = c.expect(1, "the exchange file to import").at(0);
    int added = 0, ignored = 0;
    const CvxImportResult result = importCvxFile(c.store(), file, [&](CvxImporter::Outcome outcome) {
        ++(outcome == CvxImporter::Added ? added : ignored);
    });
    // The counters stand for what was stored, also when a bad record stopped the import.
    const bool counted = result.status == CvxImportResult::Done || result.status == CvxImportResult::StoppedAtBadRecord;
    if (counted) {
        RowWriter out(c.json(), {QStringLiteral("added"), QStringLiteral("ignored")});
        out.add({added, ignored});
        out.finish();
    }
    if (!result.message.isEmpty())
        throw UserError(result.message);
    return 0;
}

const CliCommand command{"import", "FILE [--json]",
                         "Adds the drinks of an exchange file; drinks already in the book are ignored.", declare, run};
const CliCommandEntry entry(command);

} // namespace
