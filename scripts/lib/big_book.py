"""Reads EDICT lines (UTF-8) and writes a table of 100,000 pages: meaning, word, neighbours, no files, no folder."""
import re
import sys

PAGES = 100_000
NEIGHBOUR_UNITS = 572  # length of box 3 on each page; makes the Book about 155 MB
ENTRY = re.compile(r"^(?P<word>\S+)(?: \[(?P<reading>[^]]*)\])? /(?P<meanings>.*)/$")
CATALOGUE_NUMBER = re.compile(r"^EntL\d+X?$")


def read_entries(lines):
    for line in lines:
        match = ENTRY.match(line.rstrip("\n"))
        if match:
            meanings = [m for m in match["meanings"].split("/") if m and not CATALOGUE_NUMBER.match(m)]
            yield match["word"], match["reading"] or match["word"], meanings


def one_line(entry):
    word, reading, meanings = entry
    return f"{word} [{reading}] {' / '.join(meanings)}"


def neighbours(entries, place):
    """The entries around `place`, nearest first, until the box is full."""
    lines, units = [], 0
    for distance in range(1, len(entries)):
        for other in (place - distance, place + distance):
            if 0 <= other < len(entries):
                line = one_line(entries[other])
                units += len(line) + 2
                lines.append(line)
                if units >= NEIGHBOUR_UNITS:
                    return lines
    return lines


def escaped(text):
    return text.replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")


def main():
    sys.stdin.reconfigure(encoding="utf-8")
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    entries = list(read_entries(sys.stdin))
    if len(entries) < PAGES:
        sys.exit(f"big-book: {len(entries)} entries are too few for {PAGES} pages")
    for page in range(PAGES):
        place = page * len(entries) // PAGES
        word, reading, meanings = entries[place]
        boxes = ("\n".join([reading, *meanings]), word, "\n".join(neighbours(entries, place)))
        print(*map(escaped, boxes), "", "", sep="\t")


main()
