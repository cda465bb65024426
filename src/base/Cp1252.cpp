#include "base/Cp1252.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>

namespace {

// Bytes 0x80 to 0x9F. The five bytes Windows leaves undefined keep their own code point,
// so that any byte survives a decode and encode unchanged.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98-9F
};

constexpr std::array<char16_t, 256> makeDecodeTable()
{
    std::array<char16_t, 256> table{};
    for (int b = 0; b < 256; ++b)
        table[b] = static_cast<char16_t>(b);
    for (int i = 0; i < 32; ++i)
        table[0x80 + i] = kHigh[i];
    return table;
}

constexpr std::array<char16_t, 256> kDecode = makeDecodeTable();

// The byte for a character outside Latin-1's printable ranges, or '?'.
char encodeHigh(char16_t c)
{
    for (int i = 0; i < 32; ++i) {
        if (kHigh[i] == c)
            return static_cast<char>(0x80 + i);
    }
    return '?';
}

} // namespace

namespace Cp1252 {

QString decode(const QByteArray &bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char b : bytes)
        *out++ = QChar(kDecode[static_cast<unsigned char>(b)]);
    return text;
}

QByteArray encode(const QString &text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *out = bytes.data();
    const char16_t *in = reinterpret_cast<const char16_t *>(text.constData());
    const char16_t *end = in + text.size();
    while (in < end) {
        const char16_t c = *in++;
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            *out++ = static_cast<char>(c);
        } else {
            // A character beyond the basic plane is one '?', not two.
            if (QChar::isHighSurrogate(c) && in < end && QChar::isLowSurrogate(*in))
                ++in;
            *out++ = encodeHigh(c);
        }
    }
    bytes.truncate(out - bytes.data());
    return bytes;
}

} // namespace Cp1252

QString Cp1252::decodeFile(const QByteArray &bytes)
{
    const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
    if (!ascii) {
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = utf8.decode(bytes);
        if (!utf8.hasError())
            return text;
    }
    return decode(bytes);
}
