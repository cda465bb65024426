#pragma once

#include "GlassShapes.h"

class QPainter;

// A hint of the garnish, chosen from words in its name ("Lime Wheel", "Olive", "Mint Sprig").
// Inside goes behind the glass's front (picks, straws), Outside in front of it.
enum class GarnishLayer { Inside, Outside };
void paintGarnish(QPainter &p, const GlassShape &shape, GlassKind kind, const QString &garnish,
                  GarnishLayer layer);
