"""Pictures as pixels: reads the renderer's PNG and writes PNG, BMP and ICO.

With Python's standard library only, so that scripts/pictures needs no package but the renderer.
"""
import struct
import zlib

PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"
RGBA = 6  # PNG's colour type
CHANNELS = {2: 3, RGBA: 4}


class Picture:
    """Rows from the top, four bytes per pixel: red, green, blue, alpha; not premultiplied."""

    def __init__(self, width, height, pixels=None):
        self.width, self.height = width, height
        self.pixels = bytearray(pixels) if pixels is not None else bytearray(4 * width * height)

    def at(self, x, y):
        start = 4 * (y * self.width + x)
        return tuple(self.pixels[start:start + 4])

    def row(self, y):
        return self.pixels[4 * y * self.width:4 * (y + 1) * self.width]

    def mapped(self, change):
        """A copy in which every pixel is replaced by `change(r, g, b, a)`."""
        made = Picture(self.width, self.height)
        for start in range(0, len(self.pixels), 4):
            made.pixels[start:start + 4] = bytes(change(*self.pixels[start:start + 4]))
        return made

    def beside(self, other):
        rows = b"".join(bytes(self.row(y) + other.row(y)) for y in range(self.height))
        return Picture(self.width + other.width, self.height, rows)


def chunks_of(data):
    at = len(PNG_SIGNATURE)
    while at < len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        yield kind, data[at + 8:at + 8 + length]
        at += 12 + length


def paeth(left, up, corner):
    estimate = left + up - corner
    return min((left, up, corner), key=lambda value: abs(estimate - value))


def unfiltered(kind, line, above, channels):
    """Undoes a PNG row filter: each byte is stored as the difference from a guess by its neighbours."""
    row = bytearray(line)
    for i in range(len(row)):
        left = row[i - channels] if i >= channels else 0
        corner = above[i - channels] if i >= channels else 0
        guess = (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[kind]
        row[i] = (row[i] + guess) & 0xFF
    return row


def read_png(data):
    parts = {}
    for kind, body in chunks_of(data):
        parts[kind] = parts.get(kind, b"") + body
    width, height, depth, color, _, _, interlaced = struct.unpack(">IIBBBBB", parts[b"IHDR"])
    if depth != 8 or color not in CHANNELS or interlaced:
        raise ValueError("not a plain PNG of 8-bit RGB or RGBA")
    channels = CHANNELS[color]
    data, stride = zlib.decompress(parts[b"IDAT"]), channels * width
    row, pixels = bytearray(stride), bytearray()
    for y in range(height):
        start = y * (stride + 1)
        row = unfiltered(data[start], data[start + 1:start + 1 + stride], row, channels)
        for x in range(0, stride, channels):
            pixels += row[x:x + channels] + b"\xff" * (4 - channels)
    return Picture(width, height, pixels)


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def png(picture):
    rows = b"".join(b"\0" + bytes(picture.row(y)) for y in range(picture.height))
    header = struct.pack(">IIBBBBB", picture.width, picture.height, 8, RGBA, 0, 0, 0)
    return PNG_SIGNATURE + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


def premultiplied(r, g, b, a):
    return tuple((c * a + 127) // 255 for c in (r, g, b)) + (a,)


def rows_upward(picture, channels):
    """Blue, green, red and, with four channels, alpha; rows from the bottom, each padded to 32 bits."""
    body = b""
    for y in reversed(range(picture.height)):
        row = b"".join(bytes((b, g, r, a)[:channels])
                       for r, g, b, a in (picture.at(x, y) for x in range(picture.width)))
        body += row + bytes(-len(row) % 4)
    return body


def dib_header(width, height, bits, size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, size, 0, 0, 0, 0)


def bmp(picture, bits):
    body = rows_upward(picture, bits // 8)
    header = dib_header(picture.width, picture.height, bits, len(body))
    offset = 14 + len(header)
    return struct.pack("<2sIHHI", b"BM", offset + len(body), 0, 0, offset) + header + body


def icon_image(picture):
    """A bitmap with a mask below 256 pixels, which every reader of icons supports, and a PNG from there on."""
    if picture.width >= 256:
        return png(picture)
    mask_stride = (picture.width + 31) // 32 * 4
    mask = bytearray(mask_stride * picture.height)
    for y in range(picture.height):
        for x in range(picture.width):
            if picture.at(x, picture.height - 1 - y)[3] == 0:
                mask[y * mask_stride + x // 8] |= 0x80 >> x % 8
    body = rows_upward(picture, 4)
    return dib_header(picture.width, 2 * picture.height, 32, len(body) + len(mask)) + body + bytes(mask)


def ico(pictures):
    images = [icon_image(picture) for picture in pictures]
    offset, directory = 6 + 16 * len(images), b""
    for picture, image in zip(pictures, images):
        directory += struct.pack("<BBBBHHII", picture.width % 256, picture.height % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return struct.pack("<HHH", 0, 1, len(images)) + directory + b"".join(images)
