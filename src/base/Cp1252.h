#pragma once

#include <QByteArray>
#include <QString>

// Text files the program shares with the world (templates, exchange files, the map file,
// shopping lists) are 8-bit Windows-1252 with CR LF, so files of older installations read.
namespace Cp1252 {
QString decode(const QByteArray &bytes);
// A file written by a newer editor may be UTF-8: bytes that are valid UTF-8 and hold any
// non-ASCII character are read as UTF-8, all others as Windows-1252.
QString decodeFile(const QByteArray &bytes);
// Characters with no Windows-1252 byte become '?'.
QByteArray encode(const QString &text);
}
