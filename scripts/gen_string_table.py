#!/usr/bin/env python3
"""Builds the default-data string table from the files under data/.

Reads the six tab-separated files (cities, announcers, judges, referees,
cornermen, locations), checks every row, and writes the table twice: as a C++
source compiled into the library and as a Windows resource script
(STRINGTABLE) for the COM server. Entry numbers follow docs/default-data.md:
a block's count entry holds its row count, a city row sits at its row number,
and field f of row r of the other blocks sits at r * 10 + f.

On the first fault the script writes nothing, prints "<file>:<line>: <what>"
on standard error and exits with status 1.

Usage: gen_string_table.py --data DIR [--cpp FILE] [--rc FILE]
"""

import argparse
import os
import re
import sys

# What each field of a row holds: a text, or a whole number within a range.
TEXT = "text"


def number(low, high):
    return (low, high)


ZERO = number(0, 0)

# name, count entry, rows, fields. The count entries and row counts are fixed:
# the host reads the rows by these numbers.
BLOCKS = [
    ("cities", 100, 46, [TEXT]),
    ("announcers", 200, 13, [TEXT, TEXT, number(0, 1)]),
    ("judges", 300, 117, [TEXT, TEXT, number(0, 2)]),
    ("referees", 500, 36, [TEXT, TEXT, number(0, 1), number(0, 2), number(0, 2)]),
    ("cornermen", 700, 79,
     [TEXT, TEXT, number(0, 2), number(0, 10), number(2, 13), number(0, 10), ZERO, ZERO, ZERO]),
    ("locations", 900, 137, [TEXT, TEXT, TEXT, number(1, 5), number(10, 70), ZERO]),
]

# The first city row is a placeholder, not a city.
GENERIC_CITY = "<generic>"
# Three judge rows hold a number in the last-name field; the host's data has
# always carried them so, and the rows keep their place.
NUMERIC_JUDGE_LAST_NAMES = 3

WHOLE_NUMBER = re.compile(r"0|-?[1-9][0-9]*")


class DataError(Exception):
    def __init__(self, path, line, message):
        super().__init__(f"{path}:{line}: {message}")


def shown_path(path):
    """The path as people read it: relative to the working folder when inside it."""
    rel = os.path.relpath(path)
    return path if rel.startswith("..") else rel


def text_fault(value):
    """Why a text field cannot be used, or None."""
    if value == "":
        return "is empty"
    if value != value.strip():
        return "has leading or trailing blanks"
    # Saved files (fight cards, tournaments) hold names in Windows-1252; a
    # character outside it would come back as '?'.
    for ch in value:
        try:
            ch.encode("cp1252")
        except UnicodeEncodeError:
            return f"has a character outside Windows-1252 ({ch!r})"
    return None


def read_block(data_dir, name, count_entry, count, fields):
    """The rows of one block, each a list of field texts, checked."""
    path = os.path.join(data_dir, f"{name}.tsv")
    shown = shown_path(path)
    try:
        with open(path, "rb") as f:
            raw_bytes = f.read()
    except OSError as e:
        raise DataError(shown, 0, f"cannot be read ({e.strerror})")
    try:
        content = raw_bytes.decode("utf-8")
    except UnicodeDecodeError as e:
        raise DataError(shown, raw_bytes[:e.start].count(b"\n") + 1, "is not UTF-8 text")
    if content.startswith("\ufeff"):
        content = content[1:]  # a byte-order mark left by an editor

    lines = content.split("\n")
    if lines and lines[-1] == "":
        lines.pop()  # the newline that ends the last line
    rows = []
    for index, raw in enumerate(lines):
        line_no = index + 1
        line = raw[:-1] if raw.endswith("\r") else raw
        if line.startswith("#") or line.strip() == "":
            continue
        if len(rows) == count:
            raise DataError(shown, line_no,
                            f"row {count + 1} is one too many: the block holds {count} rows")
        values = line.split("\t")
        if len(values) != len(fields):
            raise DataError(shown, line_no, f"{len(values)} fields, expected {len(fields)}")
        for f, (value, kind) in enumerate(zip(values, fields), start=1):
            if kind == TEXT:
                fault = text_fault(value)
                if fault:
                    raise DataError(shown, line_no, f"field {f} {fault}")
                continue
            low, high = kind
            if not WHOLE_NUMBER.fullmatch(value):
                raise DataError(shown, line_no, f"field {f} '{value}' is not a whole number")
            if low == high and int(value) != low:
                raise DataError(shown, line_no, f"field {f} '{value}' must be {low}")
            if not low <= int(value) <= high:
                raise DataError(shown, line_no, f"field {f} '{value}' is outside {low}..{high}")
        if name == "cities" and not rows and values[0] != GENERIC_CITY:
            raise DataError(shown, line_no,
                            f"the first city must be the placeholder '{GENERIC_CITY}'")
        rows.append((line_no, values))

    end_line = len(lines) + 1
    if len(rows) != count:
        raise DataError(shown, end_line,
                        f"the file ends after {len(rows)} rows, {count} expected")
    if name == "judges":
        numeric = [line_no for line_no, v in rows if WHOLE_NUMBER.fullmatch(v[1])]
        if len(numeric) != NUMERIC_JUDGE_LAST_NAMES:
            raise DataError(shown, end_line,
                            f"{len(numeric)} rows hold a number as the last name, "
                            f"the block keeps {NUMERIC_JUDGE_LAST_NAMES}")
    return [values for _, values in rows]


def build_entries(data_dir):
    """Every entry of the table as (number, text), in ascending order."""
    entries = []
    for name, count_entry, count, fields in BLOCKS:
        rows = read_block(data_dir, name, count_entry, count, fields)
        entries.append((count_entry, str(count)))
        for r, values in enumerate(rows, start=count_entry + 1):
            if len(fields) == 1:
                entries.append((r, values[0]))
            else:
                entries.extend((r * 10 + f, v) for f, v in enumerate(values, start=1))
    entries.sort()
    numbers = [n for n, _ in entries]
    assert len(set(numbers)) == len(numbers), "two entries share a number"
    assert numbers[-1] <= 32767, "entry numbers are 16-bit"
    return entries


def c_literal(text):
    """A C++ string literal holding the UTF-8 bytes of `text`."""
    out = []
    for byte in text.encode("utf-8"):
        ch = chr(byte)
        if ch in '"\\':
            out.append("\\" + ch)
        elif 0x20 <= byte < 0x7F and ch != "?":  # '?' could start a trigraph
            out.append(ch)
        else:
            out.append(f"\\{byte:03o}")  # octal stops after three digits
    return '"' + "".join(out) + '"'


def rc_literal(text):
    """A resource-compiler string: quotes doubled, backslashes escaped, UTF-8."""
    return '"' + text.replace("\\", "\\\\").replace('"', '""') + '"'


HEADER = "Generated by scripts/gen_string_table.py from the files under data/; do not edit."


def write_cpp(path, entries):
    lines = [
        f"// {HEADER}",
        "",
        '#include "store/DefaultDataTable_impl.h"',
        "",
        "namespace ringbook::detail {",
        "namespace {",
        "",
        f"constexpr DefaultDataEntry kEntries[{len(entries)}] = {{",
    ]
    lines += [f"    {{{n}, {c_literal(t)}}}," for n, t in entries]
    lines += [
        "};",
        "",
        "}  // namespace",
        "",
        "std::span<const DefaultDataEntry> DefaultDataEntries() { return kEntries; }",
        "",
        "}  // namespace ringbook::detail",
        "",
    ]
    write_file(path, "\n".join(lines))


def write_rc(path, entries):
    lines = [
        f"// {HEADER}",
        "// The default rows of the game world, read by the host by string number.",
        "#pragma code_page(65001)",
        "",
        "STRINGTABLE",
        "BEGIN",
    ]
    lines += [f"    {n}, {rc_literal(t)}" for n, t in entries]
    lines += ["END", ""]
    write_file(path, "\r\n".join(lines))


def write_file(path, content):
    """Writes through a temporary file, so a failed run leaves no half table."""
    data = content.encode("utf-8")
    folder = os.path.dirname(path)
    if folder:
        os.makedirs(folder, exist_ok=True)
    temporary = path + ".tmp"
    with open(temporary, "wb") as f:
        f.write(data)
    os.replace(temporary, path)


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--data", required=True, help="folder of the six .tsv files")
    parser.add_argument("--cpp", help="C++ source to write")
    parser.add_argument("--rc", help="resource script to write")
    args = parser.parse_args(argv)
    try:
        entries = build_entries(args.data)
    except DataError as e:
        print(e, file=sys.stderr)
        return 1
    if args.cpp:
        write_cpp(args.cpp, entries)
    if args.rc:
        write_rc(args.rc, entries)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
