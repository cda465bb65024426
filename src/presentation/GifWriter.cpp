#include "GifWriter.h"

#include <QHash>
#include <QIODevice>
#include <QSaveFile>
#include <algorithm>
#include <climits>
#include <vector>

namespace {

constexpr int MaxCodes = 4096;

// Variable-width codes, least significant bit first, in data sub-blocks of up to 255 bytes.
class CodePacker {
  public:
    explicit CodePacker(QByteArray &out) : m_out(out) {}
    void put(int code, int width)
    {
        m_bits |= quint32(code) << m_count;
        m_count += width;
        while (m_count >= 8) {
            byte(char(m_bits & 0xff));
            m_bits >>= 8;
            m_count -= 8;
        }
    }
    void finish()
    {
        if (m_count > 0)
            byte(char(m_bits & 0xff));
        flush();
        m_out.append('\0');
    }

  private:
    void byte(char b)
    {
        m_block.append(b);
        if (m_block.size() == 255)
            flush();
    }
    void flush()
    {
        if (m_block.isEmpty())
            return;
        m_out.append(char(m_block.size()));
        m_out.append(m_block);
        m_block.clear();
    }
    QByteArray &m_out;
    QByteArray m_block;
    quint32 m_bits = 0;
    int m_count = 0;
};

// The code width grows exactly when a decoder's table does: a decoder adds an entry for
// every code but the first after a clear, one step behind the encoder.
void encodeLzw(const QImage &image, int minCodeSize, QByteArray &out)
{
    const int clear = 1 << minCodeSize;
    const int alphabet = clear;
    std::vector<quint16> table(size_t(MaxCodes) * size_t(alphabet), 0);
    CodePacker packer(out);
    int width = minCodeSize + 1;
    int next = clear + 2;
    auto output = [&](int code) {
        packer.put(code, width);
        if (next >= (1 << width) && width < 12)
            ++width;
    };
    packer.put(clear, width);
    int prefix = -1;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            const int pixel = line[x];
            if (prefix < 0) {
                prefix = pixel;
                continue;
            }
            quint16 &entry = table[size_t(prefix) * size_t(alphabet) + size_t(pixel)];
            if (entry != 0) {
                prefix = entry;
                continue;
            }
            output(prefix);
            if (next < MaxCodes - 1) {
                entry = quint16(next++);
            } else {
                packer.put(clear, width);
                std::fill(table.begin(), table.end(), 0);
                width = minCodeSize + 1;
                next = clear + 2;
            }
            prefix = pixel;
        }
    }
    if (prefix >= 0)
        output(prefix);
    packer.put(clear + 1, width);
    packer.finish();
}

void putWord(QByteArray &out, int value)
{
    out.append(char(value & 0xff));
    out.append(char((value >> 8) & 0xff));
}

// Median cut over distinct colours weighted by how often they occur.
struct ColourBox {
    std::vector<std::pair<QRgb, int>> colours;
    int channelRange(int shift) const
    {
        int lo = 255, hi = 0;
        for (const auto &c : colours) {
            const int v = int((c.first >> shift) & 0xff);
            lo = std::min(lo, v);
            hi = std::max(hi, v);
        }
        return hi - lo;
    }
    int widestShift() const
    {
        int best = 16;
        for (int shift : {8, 0}) {
            if (channelRange(shift) > channelRange(best))
                best = shift;
        }
        return best;
    }
    QRgb average() const
    {
        qint64 r = 0, g = 0, b = 0, n = 0;
        for (const auto &c : colours) {
            r += qint64(qRed(c.first)) * c.second;
            g += qint64(qGreen(c.first)) * c.second;
            b += qint64(qBlue(c.first)) * c.second;
            n += c.second;
        }
        return qRgb(int((r + n / 2) / n), int((g + n / 2) / n), int((b + n / 2) / n));
    }
};

QList<QRgb> medianCut(const QHash<QRgb, int> &histogram, int maxColours)
{
    std::vector<ColourBox> boxes(1);
    for (auto it = histogram.cbegin(); it != histogram.cend(); ++it)
        boxes[0].colours.emplace_back(it.key(), it.value());
    std::sort(boxes[0].colours.begin(), boxes[0].colours.end());
    while (int(boxes.size()) < maxColours) {
        auto widest =
            std::max_element(boxes.begin(), boxes.end(), [](const ColourBox &a, const ColourBox &b) {
                return a.channelRange(a.widestShift()) < b.channelRange(b.widestShift());
            });
        if (widest->colours.size() < 2)
            break;
        const int shift = widest->widestShift();
        auto &cs = widest->colours;
        std::sort(cs.begin(), cs.end(), [shift](const auto &a, const auto &b) {
            return ((a.first >> shift) & 0xff) < ((b.first >> shift) & 0xff);
        });
        qint64 total = 0;
        for (const auto &c : cs)
            total += c.second;
        size_t split = 1;
        for (qint64 seen = 0; split < cs.size() - 1; ++split) {
            seen += cs[split - 1].second;
            if (seen * 2 >= total)
                break;
        }
        ColourBox upper;
        upper.colours.assign(cs.begin() + qsizetype(split), cs.end());
        cs.erase(cs.begin() + qsizetype(split), cs.end());
        boxes.push_back(std::move(upper));
    }
    QList<QRgb> palette;
    for (const ColourBox &box : boxes)
        palette << box.average();
    return palette;
}

int nearest(const QList<QRgb> &palette, QRgb c)
{
    int best = 0, bestDistance = INT_MAX;
    for (int i = 0; i < palette.size(); ++i) {
        const int dr = qRed(palette[i]) - qRed(c), dg = qGreen(palette[i]) - qGreen(c),
                  db = qBlue(palette[i]) - qBlue(c);
        const int d = dr * dr + dg * dg + db * db;
        if (d < bestDistance) {
            bestDistance = d;
            best = i;
        }
    }
    return best;
}

} // namespace

namespace GifWriter {

bool write(const QImage &indexed, QIODevice *out, int transparentIndex)
{
    if (indexed.format() != QImage::Format_Indexed8 || indexed.isNull() || indexed.width() > 0xffff ||
        indexed.height() > 0xffff || transparentIndex > 255)
        return false;
    int used = std::max<int>(indexed.colorCount(), transparentIndex + 1);
    for (int y = 0; y < indexed.height(); ++y) {
        const uchar *line = indexed.constScanLine(y);
        used = std::max<int>(used, *std::max_element(line, line + indexed.width()) + 1);
    }
    int tableBits = 1;
    while ((1 << tableBits) < used)
        ++tableBits;

    QByteArray gif("GIF89a");
    putWord(gif, indexed.width());
    putWord(gif, indexed.height());
    gif.append(char(0x80 | ((tableBits - 1) << 4) | (tableBits - 1)));
    gif.append('\0'); // background colour
    gif.append('\0'); // pixel aspect ratio
    const QList<QRgb> colours = indexed.colorTable();
    for (int i = 0; i < (1 << tableBits); ++i) {
        const QRgb c = i < colours.size() ? colours[i] : qRgb(0, 0, 0);
        gif.append(char(qRed(c)));
        gif.append(char(qGreen(c)));
        gif.append(char(qBlue(c)));
    }
    if (transparentIndex >= 0) {
        gif.append("\x21\xf9\x04\x01", 4); // graphic control: transparency flag
        putWord(gif, 0);
        gif.append(char(transparentIndex));
        gif.append('\0');
    }
    gif.append('\x2c');
    putWord(gif, 0);
    putWord(gif, 0);
    putWord(gif, indexed.width());
    putWord(gif, indexed.height());
    gif.append('\0'); // no local table, not interlaced
    const int minCodeSize = std::max(2, tableBits);
    gif.append(char(minCodeSize));
    encodeLzw(indexed, minCodeSize, gif);
    gif.append('\x3b');
    return out->write(gif) == gif.size();
}

QImage toIndexed(const QImage &image, QRgb matte, int *transparentIndex)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    auto flatten = [matte](QRgb p) {
        const int a = qAlpha(p);
        auto mix = [a](int c, int m) { return (c * a + m * (255 - a) + 127) / 255; };
        return qRgb(mix(qRed(p), qRed(matte)), mix(qGreen(p), qGreen(matte)), mix(qBlue(p), qBlue(matte)));
    };
    QHash<QRgb, int> histogram;
    QList<QRgb> firstSeen;
    bool anyTransparent = false;
    for (int y = 0; y < argb.height(); ++y) {
        const QRgb *line = reinterpret_cast<const QRgb *>(argb.constScanLine(y));
        for (int x = 0; x < argb.width(); ++x) {
            if (qAlpha(line[x]) < 128) {
                anyTransparent = true;
                continue;
            }
            int &count = histogram[flatten(line[x])];
            if (count++ == 0)
                firstSeen << flatten(line[x]);
        }
    }
    const int room = anyTransparent ? 255 : 256;
    const QList<QRgb> palette = firstSeen.size() <= room ? firstSeen : medianCut(histogram, room);
    QHash<QRgb, int> lookup;
    for (auto it = histogram.cbegin(); it != histogram.cend(); ++it)
        lookup.insert(it.key(), nearest(palette, it.key()));

    QImage indexed(argb.size(), QImage::Format_Indexed8);
    QList<QRgb> table = palette;
    const int clearIndex = anyTransparent ? int(table.size()) : -1;
    if (anyTransparent)
        table << qRgba(0, 0, 0, 0);
    if (table.isEmpty())
        table << matte;
    indexed.setColorTable(table);
    for (int y = 0; y < argb.height(); ++y) {
        const QRgb *in = reinterpret_cast<const QRgb *>(argb.constScanLine(y));
        uchar *outLine = indexed.scanLine(y);
        for (int x = 0; x < argb.width(); ++x)
            outLine[x] = uchar(qAlpha(in[x]) < 128 ? clearIndex : lookup.value(flatten(in[x])));
    }
    if (transparentIndex)
        *transparentIndex = clearIndex;
    return indexed;
}

bool save(const QImage &image, const QString &path, QRgb matte)
{
    int transparent = -1;
    const QImage indexed = toIndexed(image, matte, &transparent);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !write(indexed, &file, transparent))
        return false;
    return file.commit();
}

} // namespace GifWriter
