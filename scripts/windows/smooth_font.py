#!/usr/bin/python3
"""Copies a font file so that its letters are smoothed at every size.

  scripts/windows/smooth_font.py <font file> <new file>

Wine's own Tahoma asks for none of it, and without, thin strokes are left out. What asks are the
table of sizes and the bitmaps for small sizes; the copy gets another table and hides the bitmaps.
"""
import pathlib
import struct
import sys

DIRECTORY, ENTRY = 12, 16  # bytes
GRID_FIT_AND_SMOOTH = 3
BITMAP_TABLES = (b"EBLC", b"EBDT", b"EBSC")


def smooth(font):
    for index in range(struct.unpack_from(">H", font, 4)[0]):
        entry = DIRECTORY + index * ENTRY
        tag, _, offset, _ = struct.unpack_from(">4s3I", font, entry)
        if tag in BITMAP_TABLES:
            font[entry:entry + 4] = tag.lower()
        if tag == b"gasp":
            ranges = struct.unpack_from(">H", font, offset + 2)[0]
            for place in range(offset + 4, offset + 4 + 4 * ranges, 4):
                struct.pack_into(">H", font, place + 2, GRID_FIT_AND_SMOOTH)


def main():
    font = bytearray(pathlib.Path(sys.argv[1]).read_bytes())
    smooth(font)
    pathlib.Path(sys.argv[2]).write_bytes(font)


if __name__ == "__main__":
    main()
