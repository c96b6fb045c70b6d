"""bundle_icon FILE SCRIPT: checks that the stored icon has all sizes, and that SCRIPT created it from the current drawings."""

import struct
import subprocess
import sys
import tempfile
from pathlib import Path

file, script = map(Path, sys.argv[1:])
PLAIN = {b"is32": 16, b"il32": 32}  # run-length encoded colours; each has a mask with one byte per pixel
MASKS = {b"s8mk": 16, b"l8mk": 32}
PNG = {b"ic11": 32, b"ic12": 64, b"ic07": 128, b"ic13": 256, b"ic08": 256, b"ic14": 512, b"ic09": 512, b"ic10": 1024}


def entries(data):
    kind, length = struct.unpack(">4sI", data[:8])
    assert kind == b"icns" and length == len(data), "the header is not that of an icon of this length"
    at = 8
    while at < len(data):
        kind, length = struct.unpack(">4sI", data[at : at + 8])
        assert 8 < length <= len(data) - at, f"{kind} is longer than the file"
        yield kind, data[at + 8 : at + length]
        at += length


def unpacked_size(data):
    # A byte of 0x80 or more repeats the next byte. A smaller byte counts the literal bytes that follow.
    size = at = 0
    while at < len(data):
        repeats = data[at] >= 0x80
        size += data[at] - 125 if repeats else data[at] + 1
        at += 2 if repeats else data[at] + 2
    return size


def png_size(data):
    assert data[:8] == b"\x89PNG\r\n\x1a\n", "not a PNG"
    return struct.unpack(">II", data[16:24])


def check(icon):
    found = dict(entries(icon.read_bytes()))
    assert found.keys() == PLAIN.keys() | MASKS.keys() | PNG.keys(), sorted(found)
    for kind, pixels in PLAIN.items():
        assert unpacked_size(found[kind]) == 3 * pixels * pixels, kind
    for kind, pixels in MASKS.items():
        assert len(found[kind]) == pixels * pixels, kind
    for kind, pixels in PNG.items():
        assert png_size(found[kind]) == (pixels, pixels), kind


check(file)
with tempfile.TemporaryDirectory() as folder:
    made = Path(folder) / "made.icns"
    subprocess.run([script, made], check=True)
    check(made)
    if made.with_suffix(".drawings").read_text() != file.with_suffix(".drawings").read_text():
        sys.exit(f"{file.name} was created from older drawings: run scripts/{script.name}")
