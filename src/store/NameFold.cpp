#include "store/NameFold.h"

#include <QChar>
#include <QString>
#include <memory>
#include <sqlite3.h>

namespace NameFold {

namespace {

bool isCombiningAccent(char32_t c)
{
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x1AB0 && c <= 0x1AFF) || (c >= 0x1DC0 && c <= 0x1DFF) ||
           (c >= 0x20D0 && c <= 0x20FF) || (c >= 0xFE20 && c <= 0xFE2F);
}

char32_t computeFold(char32_t c)
{
    if (isCombiningAccent(c))
        return 0;
    // The first letter of the canonical decomposition is the plain one: é is e + acute.
    while (QChar::decompositionTag(c) == QChar::Canonical) {
        const QString d = QChar::decomposition(c);
        if (d.isEmpty())
            break;
        c = d.at(0).isHighSurrogate() && d.size() > 1 ? QChar::surrogateToUcs4(d.at(0), d.at(1)) : d.at(0).unicode();
    }
    return QChar::toCaseFolded(c);
}

// The letters of the Basic Multilingual Plane, worked out once: names are compared millions of
// times while a large store is sorted or searched.
const char32_t *bmpTable()
{
    static const std::unique_ptr<char32_t[]> table = [] {
        auto t = std::make_unique<char32_t[]>(0x10000);
        for (char32_t c = 0; c < 0x10000; ++c)
            t[c] = c < 0x80 ? (c >= U'A' && c <= U'Z' ? c + 32 : c) : computeFold(c);
        return t;
    }();
    return table.get();
}

// Reads one code point of UTF-8; a byte that starts no valid sequence stands for itself.
inline char32_t decode(const unsigned char *s, int n, int &i)
{
    const unsigned char b = s[i];
    if (b < 0x80) {
        ++i;
        return b;
    }
    int len = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
    if (len == 1 || i + len > n) {
        ++i;
        return b;
    }
    char32_t cp = len == 4 ? b & 0x07 : len == 3 ? b & 0x0F : b & 0x1F;
    for (int k = 1; k < len; ++k)
        cp = (cp << 6) | (s[i + k] & 0x3F);
    i += len;
    return cp;
}

// The next folded letter of s from i, skipping accents that drop out; -1 at the end, which
// sorts a name before every longer one.
inline qint64 nextFolded(const unsigned char *s, int n, int &i)
{
    while (i < n) {
        const unsigned char b = s[i];
        if (b < 0x80) {
            ++i;
            return b >= 'A' && b <= 'Z' ? b + 32 : b;
        }
        const char32_t f = fold(decode(s, n, i));
        if (f)
            return f;
    }
    return -1;
}

// Between names that fold alike: at the first letter that differs the plain one comes first,
// then the lower code point.
int compareAccents(const unsigned char *a, int na, const unsigned char *b, int nb)
{
    int i = 0, j = 0;
    while (i < na && j < nb) {
        const char32_t ca = QChar::toCaseFolded(decode(a, na, i));
        const char32_t cb = QChar::toCaseFolded(decode(b, nb, j));
        if (ca == cb)
            continue;
        const bool accentA = fold(ca) != ca, accentB = fold(cb) != cb;
        if (accentA != accentB)
            return accentA ? 1 : -1;
        return ca < cb ? -1 : 1;
    }
    return (i < na) - (j < nb);
}

int collate(void *, int na, const void *a, int nb, const void *b)
{
    return compare(static_cast<const unsigned char *>(a), na, static_cast<const unsigned char *>(b), nb);
}

} // namespace

char32_t fold(char32_t c)
{
    if (c < 0x10000)
        return bmpTable()[c];
    return QChar::toCaseFolded(c);
}

QString folded(QStringView text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t c = text[i].unicode();
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        const char32_t f = fold(c);
        if (f >= 0x10000) {
            out += QChar(QChar::highSurrogate(f));
            out += QChar(QChar::lowSurrogate(f));
        } else if (f) {
            out += QChar(char16_t(f));
        }
    }
    return out;
}

int compare(const unsigned char *a, int na, const unsigned char *b, int nb)
{
    int i = 0, j = 0;
    for (;;) {
        // Plain ASCII on both sides, the common case, needs no table.
        if (i < na && j < nb && a[i] < 0x80 && b[j] < 0x80) {
            const unsigned char x = a[i] >= 'A' && a[i] <= 'Z' ? a[i] + 32 : a[i];
            const unsigned char y = b[j] >= 'A' && b[j] <= 'Z' ? b[j] + 32 : b[j];
            if (x != y)
                return x < y ? -1 : 1;
            ++i;
            ++j;
            continue;
        }
        const qint64 x = nextFolded(a, na, i);
        const qint64 y = nextFolded(b, nb, j);
        if (x != y)
            return x < y ? -1 : 1;
        if (x < 0)
            return compareAccents(a, na, b, nb);
    }
}

void registerCollation(sqlite3 *db)
{
    sqlite3_create_collation(db, kCollation, SQLITE_UTF8, nullptr, collate);
}

} // namespace NameFold
