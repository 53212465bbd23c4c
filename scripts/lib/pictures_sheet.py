"""Draws all pictures on every background they are used on, normal and enlarged, as one PNG."""
import base64
import re
import subprocess

from pictures_raster import Picture, png

ZOOM = 4
WIDTH = 1500
MARGIN = 20
MENU_COLORS = {"white": "#ffffff", "light": "#f0f0f0", "dark": "#2b2b2b", "highlight": "#0078d7"}
ICON_COLORS = {"white": "#ffffff", "light": "#dfe6ee", "dark": "#202020"}
THEMES = ("Standard", "Sepia", "Dark", "Pink", "Green", "Blue")
# The sizes of the buttons that show a picture; all others have BUTTON_SIZE.
BUTTON_SIZES = {"loupe": (22, 22), "clear": (18, 22), "topfile": (17, 22), "btmfile": (17, 22), "reload": (24, 20),
                "web_zoomin": (20, 20), "web_zoomout": (20, 20), "add_files": (45, 45), "add_pages": (45, 45)}
BUTTON_SIZE = (18, 26)


class Sheet:
    def __init__(self):
        self.parts = []
        self.y = MARGIN

    def rect(self, x, y, width, height, fill, stroke="none", radius=0):
        half = 0.5 if stroke != "none" else 0
        self.parts.append(f'<rect x="{x + half}" y="{y + half}" width="{width - 2 * half}" height="{height - 2 * half}"'
                          f' rx="{radius}" fill="{fill}" stroke="{stroke}"/>')

    def text(self, x, y, words, size=11, fill="#202020", weight="normal"):
        self.parts.append(f'<text x="{x}" y="{y}" font-family="DejaVu Sans" font-size="{size}" font-weight="{weight}"'
                          f' fill="{fill}">{words}</text>')

    def picture(self, x, y, picture, zoom=1):
        data = base64.b64encode(png(enlarged(picture, zoom))).decode()
        self.parts.append(f'<image x="{x}" y="{y}" width="{picture.width * zoom}" height="{picture.height * zoom}"'
                          f' href="data:image/png;base64,{data}"/>')

    def title(self, words):
        self.text(MARGIN, self.y + 14, words, 15, weight="bold")
        self.y += 26

    def svg(self):
        height = self.y + MARGIN
        return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}">'
                f'<rect width="{WIDTH}" height="{height}" fill="#ffffff"/>{"".join(self.parts)}</svg>')


def enlarged(picture, zoom):
    rows = b""
    for y in range(picture.height):
        row = picture.row(y)
        rows += b"".join(bytes(row[i:i + 4]) * zoom for i in range(0, len(row), 4)) * zoom
    return Picture(picture.width * zoom, picture.height * zoom, rows)


def without_key(picture):
    """The picture as TransparentBlt draws it: without the pixels in the key colour."""
    keys = {32: (255, 0, 255), 24: (0, 0, 0), 9: (255, 255, 255)}
    key = keys[picture.width]
    return picture.mapped(lambda r, g, b, a: (r, g, b, 0 if (r, g, b) == key else a))


def channels(color):
    return [int(color[i:i + 2], 16) for i in (1, 3, 5)]


def shade(color, delta):
    """Same arithmetic as Color::shade."""
    rest = 255 - min(abs(delta), 255)
    lift = 255 * (256 - rest) if delta > 0 else 0
    return "#" + "".join(f"{(c * rest + lift) >> 8:02x}" for c in channels(color))


def theme_colors(source):
    """The colours of every theme, read from the program's own table."""
    themes = [{} for _ in THEMES]
    for name, values in re.findall(r"&ThemePalette::(\w+), \{([^}]*)\}", source.read_text(encoding="utf-8")):
        for theme, value in zip(themes, re.findall(r"0x([0-9A-F]{6})", values)):
            theme[name] = "#" + (value[4:6] + value[2:4] + value[0:2]).lower()
    return dict(zip(THEMES, themes))


def menus(sheet, pictures):
    sheet.title("Menu pictures on " + ", ".join(MENU_COLORS) + "; 16 by 16")
    cell, row = 365, 98
    for number, (name, picture) in enumerate(pictures.items()):
        x, y = MARGIN + number % 4 * cell, sheet.y + number // 4 * row
        sheet.text(x, y + 11, name)
        for column, color in enumerate(MENU_COLORS.values()):
            sheet.rect(x, y + 16 + 18 * column, 24, 18, color)
            sheet.picture(x + 4, y + 17 + 18 * column, picture)
            sheet.rect(x + 26 + 72 * column, y + 16, 72, 72, color)
            sheet.picture(x + 30 + 72 * column, y + 20, picture, ZOOM)
        sheet.rect(x - 1, y + 15, 26, 74, "none", "#c0c0c0")
        sheet.rect(x + 25, y + 15, 290, 74, "none", "#c0c0c0")
    sheet.y += (len(pictures) + 3) // 4 * row + MARGIN


def button_states(theme):
    face, accent = theme["button_face"], theme["accent"]
    return (("face", face, 0, False), ("accent", accent, 0, False), ("face, pressed", shade(face, 80), 1, False),
            ("accent, pressed", shade(accent, 80), 1, False), ("disabled", face, 0, True))


def button(sheet, x, y, name, picture, fill, border, shift):
    width, height = BUTTON_SIZES.get(name, BUTTON_SIZE)
    sheet.rect(x, y + (88 - height) // 2, width, height, fill, border, 4)
    inside = (width - picture.width) // 2 + shift, (height - picture.height) // 2 + shift
    sheet.picture(x + inside[0], y + (88 - height) // 2 + inside[1], picture)
    return x + width + 5


def buttons(sheet, pictures, disabled, name, theme):
    states = button_states(theme)
    sheet.title(f"Buttons in {name}")
    sheet.rect(0, sheet.y - 4, WIDTH, 88 * len(states) + 8, theme["panel_back"])
    for state, fill, shift, is_disabled in states:
        shown = {key: p.mapped(disabled) if is_disabled else p for key, p in pictures.items()}
        sheet.text(MARGIN, sheet.y + 48, state, fill=theme["list_text"])
        x = MARGIN + 110
        for key, picture in shown.items():
            x = button(sheet, x, sheet.y, key, picture, fill, shade(theme["button_face"], -130), shift)
        for key, picture in shown.items():
            width, height = (picture.width + 2) * ZOOM, (picture.height + 1) * ZOOM
            sheet.rect(x, sheet.y + 44 - height // 2, width, height, fill)
            sheet.picture(x + ZOOM + ZOOM * shift, sheet.y + 44 - height // 2 + ZOOM * shift, picture, ZOOM)
            x += width + 2
        sheet.y += 88
    sheet.y += 12


def thumbnail(width, height):
    """A substitute for a photograph: sky over land."""
    made = Picture(width, height)
    return Picture(width, height, b"".join(
        bytes((110 + 3 * y, 170 + 2 * y, 240, 255)) if y < height * 0.6 else bytes((60 + x * 3, 120 + x, 60, 255))
        for y in range(made.height) for x in range(made.width)))


def key_pictures(sheet, pictures, themes):
    sheet.title("Pictures with a transparent colour: perfo over a thumbnail, files at the corner of a picture, "
                "indicator on the page bar")
    perfo, files, indicator = (without_key(pictures[name]) for name in ("perfo", "files", "indicator"))
    x = MARGIN
    for zoom in (1, ZOOM):
        sheet.picture(x, sheet.y, thumbnail(32, 32), zoom)
        sheet.picture(x, sheet.y, perfo, zoom)
        x += 32 * zoom + 12
    for zoom in (1, ZOOM):
        for color in ("#ffffff", "#202020", "#d05050", None):
            if color:
                sheet.rect(x, sheet.y, 32 * zoom, 32 * zoom, color, "#c0c0c0" if color == "#ffffff" else "none")
            else:
                sheet.picture(x, sheet.y, thumbnail(32, 32), zoom)
            sheet.picture(x + 8 * zoom, sheet.y, files, zoom)
            x += 32 * zoom + 4
        x += 8
    sheet.y += 32 * ZOOM + 12
    page_bars(sheet, Picture(9, 16, indicator.pixels[4 * 9 * 5:]), themes)


def page_bars(sheet, seen, themes):
    """A piece of the page bar in every theme: plain, selected, pasted, in view."""
    x, step = MARGIN, 15
    for zoom in (1, ZOOM):
        for theme in themes.values():
            for place, color in enumerate((theme["bar_back"], theme["selected_bar"], theme["pasted_bar"], "#60d060")):
                left = x + place % 2 * step * zoom
                top = sheet.y + place // 2 * (16 * zoom + 4)
                sheet.rect(left, top, step * zoom, 16 * zoom, color)
                sheet.picture(left + 3 * zoom, top, seen, zoom)
            x += 2 * step * zoom + 8
    sheet.y += 32 * ZOOM + 4 + MARGIN


def icons(sheet, pictures):
    sheet.title("The program's icon; 16, 24, 32, 48 and 256")
    by_size = sorted(pictures.values(), key=lambda picture: picture.width)
    for color in ICON_COLORS.values():
        sheet.rect(MARGIN, sheet.y, WIDTH - 2 * MARGIN, 264, color, "#c0c0c0")
        x = MARGIN + 12
        for picture, zoom in [(p, 1) for p in by_size] + [(p, ZOOM) for p in by_size[:-1]]:
            sheet.picture(x, sheet.y + 4, picture, zoom)
            x += picture.width * zoom + 12
        sheet.y += 268


def rendered(pictures, disabled, theme_source):
    sheet, themes = Sheet(), theme_colors(theme_source)
    menus(sheet, pictures["menu"])
    for name, theme in themes.items():
        buttons(sheet, pictures["button"], disabled, name, theme)
    key_pictures(sheet, pictures["key"], themes)
    icons(sheet, pictures["icon"])
    run = subprocess.run(["rsvg-convert", "--unlimited"], input=sheet.svg().encode(), check=True, capture_output=True)
    return run.stdout
