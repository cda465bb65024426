#!/usr/bin/env python3
"""Draws the mark pictures of the page templates: mrk.gif (the drink is marked) and
unmrk.gif (it is not), one pair in each template folder under data/Templates.

The drink page shows one of the two through the token MarkedImage, which is the folder of
the chosen template followed by "mrk.gif" or "unmrk.gif". The pictures are committed; the
build does not run this script. Run it again after changing a style below:

    python3 scripts/make_marks.py            # writes into data/Templates
    python3 scripts/make_marks.py --out DIR  # writes into DIR/<folder>/ instead

Standard library only. Each picture is drawn at 8 x 8 samples per pixel; edge pixels are
blended against the template's page colour (GIF has no partial transparency), and pixels
that the shape barely touches stay transparent.
"""

import argparse
import math
import os
import struct
import sys

SAMPLES = 8


# ---------------------------------------------------------------- shapes (unit square)

def star_polygon(cx, cy, outer, inner, points=5):
    """Corners of a star with its first point straight up."""
    corners = []
    for i in range(points * 2):
        radius = outer if i % 2 == 0 else inner
        angle = -math.pi / 2 + i * math.pi / points
        corners.append((cx + radius * math.cos(angle), cy + radius * math.sin(angle)))
    return corners


def inside_polygon(x, y, corners):
    inside = False
    j = len(corners) - 1
    for i in range(len(corners)):
        xi, yi = corners[i]
        xj, yj = corners[j]
        if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
            inside = not inside
        j = i
    return inside


def distance_to_segment(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - (ax + t * dx), py - (ay + t * dy))


def star_layers(filled, rim=0.14):
    """Star: a rim colour around a fill colour (filled) or a rim only (outline); rim is the
    width of the rim at the points, as a share of the picture."""
    outer = star_polygon(0.5, 0.54, 0.48, 0.20)
    inner = star_polygon(0.5, 0.54, 0.48 - rim, 0.20 - rim * 0.45)

    def layer(x, y):
        if not inside_polygon(x, y, outer):
            return None
        if inside_polygon(x, y, inner):
            return "fill" if filled else None
        return "rim"
    return layer


def box_layers(checked):
    """Check box: a square frame, with a tick inside when checked."""
    tick = [(0.24, 0.52), (0.43, 0.72), (0.80, 0.26)]

    def layer(x, y):
        if checked:
            d = min(distance_to_segment(x, y, *tick[0], *tick[1]),
                    distance_to_segment(x, y, *tick[1], *tick[2]))
            if d < 0.085:
                return "mark"
        edge = min(x - 0.06, 0.94 - x, y - 0.06, 0.94 - y)
        if edge < 0:
            return None
        if edge < 0.10:
            return "rim"
        return "fill"
    return layer


def dot_layers(filled):
    """Round lamp: lit (filled) or a ring."""
    def layer(x, y):
        r = math.hypot(x - 0.5, y - 0.5)
        if r > 0.44:
            return None
        if r > 0.32:
            return "rim"
        return "fill" if filled else None
    return layer


# ---------------------------------------------------------------- styles

# Each template folder: the page colour that edges blend into, the size, and the two pictures
# as (shape, colours of its layers).
STYLES = {
    ".": {  # Standard: gold star / grey outline star
        "matte": (0xF0, 0xF0, 0xF0), "size": 16,
        "mrk": (star_layers(True), {"rim": (0xA8, 0x6E, 0x00), "fill": (0xF5, 0xB8, 0x1C)}),
        "unmrk": (star_layers(False, 0.22), {"rim": (0x8C, 0x8C, 0x8C)}),
    },
    "Card": {  # compact card: ticked box / empty box
        "matte": (0xFF, 0xFF, 0xFF), "size": 14,
        "mrk": (box_layers(True), {"rim": (0x2E, 0x6B, 0x30), "fill": (0xFF, 0xFF, 0xFF),
                                   "mark": (0x2E, 0x8B, 0x3A)}),
        "unmrk": (box_layers(False), {"rim": (0x9A, 0x9A, 0x9A), "fill": (0xFF, 0xFF, 0xFF)}),
    },
    "LargePrint": {  # bar-side page: big gold star / big grey outline star
        "matte": (0xFF, 0xFF, 0xFF), "size": 32,
        "mrk": (star_layers(True), {"rim": (0x8A, 0x5A, 0x00), "fill": (0xFF, 0xC0, 0x1E)}),
        "unmrk": (star_layers(False, 0.16), {"rim": (0x80, 0x80, 0x80)}),
    },
    "Night": {  # dark page: lit amber lamp / dim ring
        "matte": (0x1C, 0x1D, 0x24), "size": 16,
        "mrk": (dot_layers(True), {"rim": (0xFF, 0xC8, 0x50), "fill": (0xFF, 0x9F, 0x1A)}),
        "unmrk": (dot_layers(False), {"rim": (0x5A, 0x5C, 0x6E)}),
    },
}


# ---------------------------------------------------------------- raster

def render(layer, colours, size, matte):
    """Pixels as RGB tuples or None (transparent), row by row."""
    pixels = []
    for py in range(size):
        for px in range(size):
            counts = {}
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    name = layer((px + (sx + 0.5) / SAMPLES) / size, (py + (sy + 0.5) / SAMPLES) / size)
                    counts[name] = counts.get(name, 0) + 1
            total = SAMPLES * SAMPLES
            covered = total - counts.get(None, 0)
            if covered * 3 < total:  # under a third covered: leave it transparent
                pixels.append(None)
                continue
            rgb = [0.0, 0.0, 0.0]
            for name, n in counts.items():
                colour = matte if name is None else colours[name]
                for c in range(3):
                    rgb[c] += colour[c] * n / total
            # a few levels per channel keep the palette small
            pixels.append(tuple(min(255, int(round(v / 17.0)) * 17) for v in rgb))
    return pixels


# ---------------------------------------------------------------- GIF89a writer

def lzw_encode(indices, min_code_size):
    clear = 1 << min_code_size
    end = clear + 1
    out = bytearray()
    bit_buffer = 0
    bit_count = 0

    def emit(code, width):
        nonlocal bit_buffer, bit_count
        bit_buffer |= code << bit_count
        bit_count += width
        while bit_count >= 8:
            out.append(bit_buffer & 0xFF)
            bit_buffer >>= 8
            bit_count -= 8

    def reset():
        return {(i,): i for i in range(clear)}, end + 1, min_code_size + 1

    table, next_code, width = reset()
    emit(clear, width)
    current = ()
    for index in indices:
        candidate = current + (index,)
        if candidate in table:
            current = candidate
            continue
        emit(table[current], width)
        if next_code < 4096:
            table[candidate] = next_code
            next_code += 1
            if next_code > (1 << width) and width < 12:
                width += 1
        else:
            emit(clear, width)
            table, next_code, width = reset()
        current = (index,)
    if current:
        emit(table[current], width)
    emit(end, width)
    if bit_count:
        out.append(bit_buffer & 0xFF)
    return bytes(out)


def gif_bytes(pixels, size):
    palette = [(0xFF, 0xFF, 0xFF)]  # entry 0: transparent
    index_of = {}
    indices = []
    for p in pixels:
        if p is None:
            indices.append(0)
            continue
        if p not in index_of:
            index_of[p] = len(palette)
            palette.append(p)
        indices.append(index_of[p])
    if len(palette) > 256:
        raise ValueError("too many colours for one GIF palette")
    bits = max(1, (len(palette) - 1).bit_length())
    while len(palette) < (1 << bits):
        palette.append((0, 0, 0))
    min_code_size = max(2, bits)

    data = bytearray(b"GIF89a")
    data += struct.pack("<HHBBB", size, size, 0x80 | ((bits - 1) << 4) | (bits - 1), 0, 0)
    for rgb in palette:
        data += bytes(rgb)
    data += b"\x21\xF9\x04\x01\x00\x00\x00\x00"  # graphic control: entry 0 is transparent
    data += b"\x2C" + struct.pack("<HHHHB", 0, 0, size, size, 0)
    data.append(min_code_size)
    encoded = lzw_encode(indices, min_code_size)
    for start in range(0, len(encoded), 255):
        chunk = encoded[start:start + 255]
        data.append(len(chunk))
        data += chunk
    data += b"\x00\x3B"
    return bytes(data)


def main(argv):
    here = os.path.dirname(os.path.abspath(__file__))
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", default=os.path.join(here, "..", "data", "Templates"),
                        help="the Templates folder to write into")
    args = parser.parse_args(argv)
    for folder, style in STYLES.items():
        target = os.path.normpath(os.path.join(args.out, folder))
        os.makedirs(target, exist_ok=True)
        for name in ("mrk", "unmrk"):
            layer, colours = style[name]
            pixels = render(layer, colours, style["size"], style["matte"])
            path = os.path.join(target, name + ".gif")
            with open(path, "wb") as f:
                f.write(gif_bytes(pixels, style["size"]))
            print("wrote", path)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
