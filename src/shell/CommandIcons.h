#pragma once

#include <QColor>
#include <QPixmap>

// The pictures of the seven command groups, drawn rather than shipped so they stay sharp at
// any screen scale. Each group has three: at rest, pressed (its pop-up open), under the mouse.
namespace CommandIcons {
enum State { Rest, Pressed, Hover };
QPixmap groupPicture(int group, State state, const QColor &ink, const QColor &back, int size = 44);
}
