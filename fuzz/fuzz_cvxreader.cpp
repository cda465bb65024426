// Any bytes at all go through the exchange file reader as an import would read them: no
// crash, no endless loop, and every refusal names a line inside the file.
#include "base/Cp1252.h"
#include "exchange/CvxReader.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString text = Cp1252::decodeFile(bytes);
    CvxReader reader(text);
    if (reader.readHead() != CvxReader::HeadOk)
        return 0;
    const qsizetype lines = text.count(u'\n') + text.count(u'\r') + 1;
    CvxRecord record;
    try {
        while (reader.next(record)) {
            if (record.glass < 1 || record.glass > 24 || record.categories.isEmpty())
                std::abort();
        }
    } catch (const CvxError &e) {
        if (e.line() < 1 || e.line() > lines)
            std::abort();
        return 0;
    }
    if (reader.stopLine() < 0 || reader.stopLine() > lines)
        std::abort();
    return 0;
}
