#pragma once

#include <QImage>
#include <QString>

class QIODevice;

// Writes GIF89a files, which Qt reads but cannot write: the glass pictures for printing and
// the spacer picture of the drink page.
namespace GifWriter {
// An 8-bit palette picture (Format_Indexed8) as one LZW-coded frame; transparentIndex is the
// palette entry shown as transparent, or -1 for none.
bool write(const QImage &indexed, QIODevice *out, int transparentIndex = -1);

// Reduces any picture to a palette: pixels less than half opaque become the transparent
// entry (returned through transparentIndex, -1 when there is none), the others are laid
// over matte. Up to 255 distinct colours are kept exactly, more are reduced by median cut.
QImage toIndexed(const QImage &image, QRgb matte, int *transparentIndex);

// toIndexed() then write(), to a file replaced only when the whole file is written.
bool save(const QImage &image, const QString &path, QRgb matte = qRgb(255, 255, 255));
} // namespace GifWriter
