"""Renders res/svg into the pictures that the program loads, checks the committed ones, or draws all on one sheet.

The folder decides the format of an SVG's picture:
  menu/    a 32-bit BMP, premultiplied
  button/  a PNG, normal at the left, disabled at the right
  key/     a 24-bit BMP with a transparent colour, which the SVG itself contains
  icon/    an image of app/wnd/pagewick.ico
"""
import pathlib
import subprocess
import sys

import pictures_sheet
from pictures_raster import bmp, ico, png, premultiplied, read_png

ROOT = pathlib.Path(__file__).resolve().parents[2]
RES = ROOT / "res"
ICON = ROOT / "app/wnd/pagewick.ico"
SHEET = ROOT / "docs/images/pictures.png"
DISABLED_ALPHA = 0.4


def render(svg):
    style = RES / "svg/style.css"
    run = subprocess.run(["rsvg-convert", "--stylesheet", style, svg], check=True, capture_output=True)
    return read_png(run.stdout)


def rendered(folder):
    return {svg.stem: render(svg) for svg in sorted((RES / "svg" / folder).glob("*.svg"))}


def disabled(r, g, b, a):
    grey = (299 * r + 587 * g + 114 * b + 500) // 1000
    return grey, grey, grey, round(a * DISABLED_ALPHA)


def sheet_of_states(picture):
    return picture.beside(picture.mapped(disabled))


def all_pictures():
    return {folder: rendered(folder) for folder in ("menu", "button", "key", "icon")}


def files_of(pictures):
    """The paths and bytes of all files to write."""
    files = {RES / f"{name}.bmp": bmp(picture.mapped(premultiplied), 32) for name, picture in pictures["menu"].items()}
    files |= {RES / f"{name}.png": png(sheet_of_states(picture)) for name, picture in pictures["button"].items()}
    files |= {RES / f"{name}.bmp": bmp(picture, 24) for name, picture in pictures["key"].items()}
    files[ICON] = ico(sorted(pictures["icon"].values(), key=lambda picture: picture.width))
    return files


def committed():
    return {*RES.glob("*.bmp"), *RES.glob("*.png"), ICON}


def write(files):
    for path in committed() - files.keys():
        path.unlink(missing_ok=True)
    for path, data in files.items():
        path.write_bytes(data)
    print(f"{len(files)} files written")


def check(files):
    """Prints every file that differs from its SVG; returns 0 if there is none."""
    different = [path for path, data in files.items() if not path.exists() or path.read_bytes() != data]
    orphans = sorted(committed() - files.keys())
    for path in different:
        print(f"differs from its SVG: {path.relative_to(ROOT)}")
    for path in orphans:
        print(f"without an SVG: {path.relative_to(ROOT)}")
    print(f"{len(files) - len(different)} of {len(files)} files match their SVGs")
    return 1 if different or orphans else 0


def main(mode):
    pictures = all_pictures()
    if mode == "--check":
        return check(files_of(pictures))
    if mode == "--sheet":
        SHEET.write_bytes(pictures_sheet.rendered(pictures, disabled, ROOT / "look/theme.cpp"))
    else:
        write(files_of(pictures))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1] if len(sys.argv) > 1 else ""))
