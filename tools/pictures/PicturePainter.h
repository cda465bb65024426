#pragma once

#include "GlassShapes.h"

#include <QColor>
#include <QImage>
#include <QString>

namespace PicturePainter {
// The glass alone as a line drawing on a transparent background, 2:3, any size.
QImage glassPicture(GlassKind kind, QSize size);

constexpr QSize DrinkPictureSize(200, 260);
// The drink in its glass on a bar counter, with a hint of its garnish.
QImage drinkPicture(GlassKind kind, const QColor &drink, const QString &garnish);
} // namespace PicturePainter
