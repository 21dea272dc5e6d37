#!/usr/bin/env python3
"""Draws the .ico and .bmp files of this folder from its .svg files. A build uses the results; run this after a change.

Needs rsvg-convert (Debian: librsvg2-bin) and, for the logo's lettering, the DejaVu fonts.

Each icon holds 48, 32 and 16 pixels with alpha, and for systems that know no alpha 32 and 16 pixels in 256 and in 16
colours. name-16.svg, where there is one, is the drawing for 16 pixels. Straight edges of a drawing stand on even
coordinates of its 32 x 32 field: then they meet whole pixels in all three sizes. What the program itself holds is kept
small: its icon has the 48 pixels in 256 colours; the sign of the error dialog is shown with 32 pixels alone, and holds
no others; the logo has 16 colours of its own in each of its two sizes, with run lengths.
"""
import collections
import colorsys
import pathlib
import struct
import subprocess
import zlib

HERE = pathlib.Path(__file__).resolve().parent
IMAGES = ((48, 32), (32, 32), (32, 8), (32, 4), (16, 32), (16, 8), (16, 4))  # sizes with bits a pixel
OWN_IMAGES = {"Tavimor": ((48, 8), *IMAGES[1:]), "Exclamation": ((32, 32), (32, 4))}
LOGO_SIZES = {"Logo": (444, 54), "Logo-192": (888, 108)}  # of the main window's picture at 96 and at 192 DPI

# The colours of a 16-colour screen by hue (red, yellow, green, cyan, blue, purple), dark and bright, and its greys.
DARK = [(128, 0, 0), (128, 128, 0), (0, 128, 0), (0, 128, 128), (0, 0, 128), (128, 0, 128)]
BRIGHT = [(255, 0, 0), (255, 255, 0), (0, 255, 0), (0, 255, 255), (0, 0, 255), (255, 0, 255)]
GREYS = [(0, 0, 0), (128, 128, 128), (192, 192, 192), (255, 255, 255)]
SIXTEEN = GREYS + DARK + BRIGHT


def draw(svg, width, height):
    """The drawing as rows of (red, green, blue, alpha)."""
    png = subprocess.run(["rsvg-convert", "-w", str(width), "-h", str(height), str(svg)], check=True,
                         capture_output=True).stdout
    data, at = b"", 8
    while at < len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        if kind == b"IHDR":
            depth, colours, _, _, interlaced = png[at + 16:at + 21]
            if (depth, interlaced) != (8, 0) or colours not in (2, 6):
                raise SystemExit(f"{svg}: rsvg-convert gave another kind of PNG")
        if kind == b"IDAT":
            data += png[at + 8:at + 8 + length]
        at += 12 + length
    return unfilter(zlib.decompress(data), width, height, 4 if colours == 6 else 3)  # 3: nothing shines through


def unfilter(data, width, height, channels):
    stride, above, rows = channels * width, bytearray(channels * width), []
    for y in range(height):
        kind, row = data[y * (stride + 1)], bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for x in range(stride):
            left, up = (row[x - channels] if x >= channels else 0), above[x]
            corner = above[x - channels] if x >= channels else 0
            guess = left + up - corner
            paeth = min((left, up, corner), key=lambda value: abs(guess - value))
            row[x] = row[x] + (0, left, up, (left + up) // 2, paeth)[kind] & 255
        rows.append([(*row[x:x + 3], row[x + 3] if channels == 4 else 255) for x in range(0, stride, channels)])
        above = row
    return rows


def distance(one, other):
    return sum((a - b) ** 2 for a, b in zip(one, other))


def nearest(colour, palette):
    return min(range(len(palette)), key=lambda i: distance(colour, palette[i]))


def of_sixteen(colour):
    """A blue has to stay blue: by distance alone most blues would turn teal."""
    if max(colour) - min(colour) < 72:
        return nearest(colour, GREYS)
    hue, _, value = colorsys.rgb_to_hsv(*(c / 255 for c in colour))
    return SIXTEEN.index((BRIGHT if value >= 0.8 else DARK)[round(6 * hue) % 6])


def palette_of(rows):
    """At most 255 colours of the opaque pixels, black first; similar ones fall together when there are more."""
    for step in (1, 4, 8, 16, 32):
        seen = {tuple(min(255, (c + step // 2) // step * step) for c in p[:3])
                for row in rows for p in row if p[3] >= 128}
        if len(seen | {(0, 0, 0)}) <= 256:
            return [(0, 0, 0)] + sorted(seen - {(0, 0, 0)})
    raise SystemExit("too many colours")


def packed(indexes, bits):
    """Rows of pixel numbers, bottom row first, each row filled up to four bytes."""
    out = b""
    for row in reversed(indexes):
        number = 0
        for index in row:
            number = number << bits | index
        length = len(row) * bits
        padding = -length % 32
        out += (number << padding).to_bytes((length + padding) // 8, "big")
    return out


def palette_bytes(palette, bits):
    table = b"".join(struct.pack("BBBB", b, g, r, 0) for r, g, b in palette)
    return table + bytes(4 * (1 << bits) - len(table))


def image(rows, bits):
    """One image of an icon: header, colours, XOR mask, AND mask."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, bits, 0, 0, 0, 0, 0, 0)
    if bits == 32:
        # Systems without alpha go by the AND mask. The faint rim belongs to the outside for them, and has to be
        # black there, or it would be mixed with what is below.
        solid = [[p if p[3] >= 32 else (0, 0, 0, 0) for p in row] for row in rows]
        colours = b"".join(struct.pack("BBBB", p[2], p[1], p[0], p[3]) for row in reversed(solid) for p in row)
        return header + colours + packed([[int(p[3] == 0) for p in row] for row in solid], 1)
    palette = SIXTEEN if bits == 4 else palette_of(rows)
    number = (lambda p: of_sixteen(p[:3])) if bits == 4 else (lambda p: nearest(p[:3], palette))
    indexes = [[number(p) if p[3] >= 128 else 0 for p in row] for row in rows]
    mask = [[int(p[3] < 128) for p in row] for row in rows]
    return header + palette_bytes(palette, bits) + packed(indexes, bits) + packed(mask, 1)


def icon(svg, wanted):
    small = svg.with_name(svg.stem + "-16.svg")
    drawn = {size: draw(small if size == 16 and small.exists() else svg, size, size) for size, _ in wanted}
    images = [(size, bits, image(drawn[size], bits)) for size, bits in wanted]
    head, offset = struct.pack("<HHH", 0, 1, len(images)), 6 + 16 * len(images)
    for size, bits, data in images:
        head += struct.pack("<BBBBHHII", size, size, 16 if bits == 4 else 0, 0, 1, bits, len(data), offset)
        offset += len(data)
    return head + b"".join(data for _, _, data in images)


def runs(indexes):
    """Run lengths (BI_RLE4), bottom row first. What changes with every pixel is stored as it is, from three pixels on."""
    out = b""
    for row in reversed(indexes):
        loose, at = [], 0

        def store_loose():
            nonlocal out, loose
            while loose:
                some, loose = loose[:254], loose[254:]
                if len(some) < 3:
                    out += bytes((len(some), some[0] << 4 | some[-1]))
                else:
                    halves = some + [0] * (-len(some) % 4)
                    out += bytes((0, len(some))) + bytes(a << 4 | b for a, b in zip(halves[::2], halves[1::2]))

        while at < len(row):
            length = 2  # of a run of two colours by turns, most often the same one
            while at + length < len(row) and length < 255 and row[at + length] == row[at + length - 2]:
                length += 1
            length = min(length, len(row) - at)
            if length >= (8 if loose else 5):
                store_loose()
                out += bytes((length, row[at] << 4 | row[at + 1]))
                at += length
            else:
                loose.append(row[at])
                at += 1
        store_loose()
        out += b"\0\0"
    return out[:-2] + b"\0\1"


def bitmap(svg, width, height):
    """In 16 colours: the commonest, and one by one those that stand for most of what is still far from all of them."""
    rows = draw(svg, width, height)
    counts = collections.Counter(p[:3] for row in rows for p in row)
    palette = []
    while len(palette) < 16:
        palette.append(max(counts, key=lambda c: counts[c] * min((distance(c, known) for known in palette), default=1)))
    known = {colour: nearest(colour, palette) for colour in counts}
    pixels = runs([[known[p[:3]] for p in row] for row in rows])
    colours = palette_bytes(palette, 4)
    start = 14 + 40 + len(colours)
    return (struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start) +
            struct.pack("<IiiHHIIiiII", 40, width, height, 1, 4, 2, len(pixels), 3780, 3780, 16, 0) + colours + pixels)


for drawing in sorted(HERE.glob("*.svg")):
    if drawing.stem == "Logo":
        for name, size in LOGO_SIZES.items():
            drawing.with_name(name + ".bmp").write_bytes(bitmap(drawing, *size))
    elif not drawing.stem.endswith("-16"):
        drawing.with_suffix(".ico").write_bytes(icon(drawing, OWN_IMAGES.get(drawing.stem, IMAGES)))
