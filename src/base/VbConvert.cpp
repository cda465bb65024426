#include "base/VbConvert.h"

#include <QLocale>
#include <cmath>
#include <limits>

namespace VbConvert {

double Val(QStringView text)
{
    QString digits;
    qsizetype i = 0;
    auto skipBlanks = [&] {
        while (i < text.size() && (text[i] == u' ' || text[i] == u'\t' || text[i] == u'\n' || text[i] == u'\r'))
            ++i;
    };
    skipBlanks();
    if (i + 1 < text.size() && text[i] == u'&') {
        const QChar radixChar = text[i + 1].toUpper();
        const int radix = radixChar == u'H' ? 16 : radixChar == u'O' ? 8 : 0;
        if (radix) {
            i += 2;
            QString n;
            while (i < text.size() && QString(text[i]).toInt(nullptr, radix) >= 0 &&
                   (text[i].isDigit() || (radix == 16 && QStringLiteral("abcdefABCDEF").contains(text[i])))) {
                if (radix == 8 && text[i] > u'7')
                    break;
                n += text[i++];
            }
            bool ok = false;
            const qlonglong v = n.toLongLong(&ok, radix);
            return ok ? double(v) : 0.0;
        }
    }
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        digits += text[i++];
    bool seenDot = false, seenDigit = false;
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u' ' || c == u'\t')
            continue;
        if (c.isDigit() && c.unicode() < 128) {
            digits += c;
            seenDigit = true;
        } else if (c == u'.' && !seenDot) {
            digits += c;
            seenDot = true;
        } else {
            break;
        }
    }
    if (!seenDigit)
        return 0.0;
    // An exponent counts only when digits follow it.
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E' || text[i] == u'd' || text[i] == u'D')) {
        qsizetype j = i + 1;
        QString exp = QStringLiteral("e");
        if (j < text.size() && (text[j] == u'-' || text[j] == u'+'))
            exp += text[j++];
        const qsizetype firstDigit = j;
        while (j < text.size() && text[j].isDigit() && text[j].unicode() < 128)
            exp += text[j++];
        if (j > firstDigit)
            digits += exp;
    }
    return QLocale::c().toDouble(digits);
}

std::optional<qint32> CLng(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    const double r = std::nearbyint(value); // the default rounding mode sends halves to even
    if (r < double(std::numeric_limits<qint32>::min()) || r > double(std::numeric_limits<qint32>::max()))
        return std::nullopt;
    return qint32(r);
}

} // namespace VbConvert
