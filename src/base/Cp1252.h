#pragma once

#include <QByteArray>
#include <QString>

// Text files the program shares with the world (templates, exchange files, the map file,
// shopping lists) are 8-bit Windows-1252 with CR LF, so files of older installations read.
namespace Cp1252 {
QString decode(const QByteArray &bytes);
// Characters with no Windows-1252 byte become '?'.
QByteArray encode(const QString &text);
}
