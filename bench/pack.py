"""pack.py TEXT-FILE OUTPUT: makes the Palm database as a short script would."""
import struct
import sys

WIDTH, DATE = 71, 0xBBF81E02
with open(sys.argv[1], "rb") as text:
    lines = [line.ljust(WIDTH, b"\0") for line in text.read().split(b"\n") if line.strip() and len(line) <= WIDTH]
sets = len(lines) // 3
with open(sys.argv[2], "wb") as out:
    out.write(struct.pack(">32s2H6L4s4s2LH", b"Celestrix Satellite", 0x0808, 3, DATE, DATE, DATE, 0, 0, 0,
                          b"pl12", b"RZQ4", 0, 0, sets & 0xFFFF))
    for k in range(sets):
        out.write(struct.pack(">2L", 78 + 8 * sets + 3 * WIDTH * k, 0))
    out.write(b"".join(lines[:3 * sets]))
