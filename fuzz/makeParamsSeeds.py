#!/usr/bin/env python3
"""Writes the seeds of fuzz/params.cpp into fuzz/corpus/params, from the layouts alone.

One seed per kind of input; the first byte names the kind.
"""
import pathlib
import struct


def text(value):
    if value is None:
        return struct.pack(">I", 0xFFFFFFFF)
    raw = value.encode("utf-16-be")
    return struct.pack(">I", len(raw)) + raw


def raw(value):
    return struct.pack(">I", 0xFFFFFFFF) if value is None else struct.pack(">I", len(value)) + value


def block(payload):
    return struct.pack(">IQ", 0xB10CDA7A, len(payload)) + payload


def param(number, kind, flags, expression, source, values):
    head = struct.pack(">ibbb", number, kind, 4, flags) + text(expression) + text(source)
    return head + struct.pack(">ii", -1, len(values)) + b"".join(text(v) for v in values)


color = struct.pack(">bHHHHH", 1, 0xFFFF, 0x0101, 0x0202, 0x0303, 0)
brush = struct.pack(">B", 1) + color + struct.pack(">9d", 1, 0, 0, 0, 1, 0, 0, 0, 1)
pen = struct.pack(">HBd", 0x16, 1, 2.5) + brush + struct.pack(">dI2ddB", 2.0, 2, 1.0, 2.5, 0.5, 0)
font = text("Sans") + text(None) + struct.pack(">diBHBBBHBiiBB", 9.0, -1, 5, 1, 0, 50, 16, 0, 0, 0, 0, 0, 0)
header = struct.pack("<BBhif", 200, 75, -2, -70000, 2048.0) + b"memo\0rest"

seeds = {
    "bundle": b"b" + block(
        struct.pack(">i", 39) + text("a.spc") + struct.pack(">i", 2)
        + text("spchdr") + text("a.spc") + struct.pack(">q", 0) + raw(header) + text(None)
        + text("datafile") + text("a.spc") + struct.pack(">q", 1234) + raw(None) + text("2001-02-03T04:05:06Z")),
    "params": b"p" + block(
        struct.pack(">i", 2) + param(1001, 0, 1, "=h(string;12;9)", "h", ["memo"])
        + param(2043, 1, 7, None, None, [None, "", "0.5"])),
    "formula": b'f=Str.firstNotEmptyString("", x(a), h(string;12;9), h(float;8), h(int32;4), h(int16;2))\0' + header,
    "field": b"fh(word;2)\0" + header,
    "color": b"C" + color,
    "pen": b"P" + pen,
    "font": b"F" + font,
    "list": b"L" + struct.pack(">i", 2) + text("a") + text(None),
    "map": b"M" + struct.pack(">i", 3) + text("t") + struct.pack(">IBqIbi", 16, 0, 2461043, 3600000, 2, 60)
    + text("k") + struct.pack(">IBd", 6, 0, 1.5)
    + text("l") + struct.pack(">IBi", 9, 0, 1) + struct.pack(">IBi", 2, 0, 7),
}

folder = pathlib.Path(__file__).parent / "corpus" / "params"
folder.mkdir(parents=True, exist_ok=True)
for name, content in seeds.items():
    (folder / name).write_bytes(content)
