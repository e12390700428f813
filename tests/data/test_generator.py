#!/usr/bin/env python3
"""Checks that the string-table generator rejects faulty data files, naming
the file and line, and writes both outputs from good ones."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE_DIR = os.environ.get(
    "RINGBOOK_SOURCE_DIR", os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
GENERATOR = os.path.join(SOURCE_DIR, "scripts", "gen_string_table.py")
DATA_DIR = os.path.join(SOURCE_DIR, "data")


class GeneratorTest(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.mkdtemp(prefix="ringbook-data-")
        self.data = os.path.join(self.tmp, "data")
        shutil.copytree(DATA_DIR, self.data)
        self.cpp = os.path.join(self.tmp, "out", "Table.cpp")
        self.rc = os.path.join(self.tmp, "out", "Table.rc")

    def tearDown(self):
        shutil.rmtree(self.tmp)

    def restore(self):
        """Puts back the shipped data files, undoing earlier edits."""
        shutil.rmtree(self.data)
        shutil.copytree(DATA_DIR, self.data)

    def run_generator(self):
        # Run from the temporary folder so that paths read "data/<file>".
        return subprocess.run(
            [sys.executable, GENERATOR, "--data", "data", "--cpp", self.cpp, "--rc", self.rc],
            cwd=self.tmp, capture_output=True, text=True, encoding="utf-8")

    def lines(self, name):
        with open(os.path.join(self.data, name), encoding="utf-8") as f:
            return f.read().split("\n")

    def write(self, name, lines):
        with open(os.path.join(self.data, name), "w", encoding="utf-8") as f:
            f.write("\n".join(lines))

    def edit_line(self, name, line_no, edit):
        """Replaces line `line_no` (from 1) of a data file with edit(old fields)."""
        lines = self.lines(name)
        lines[line_no - 1] = "\t".join(edit(lines[line_no - 1].split("\t")))
        self.write(name, lines)

    def set_field(self, name, line_no, field, value):
        def edit(fields):
            fields[field - 1] = value
            return fields
        self.edit_line(name, line_no, edit)

    def assert_fails(self, message):
        result = self.run_generator()
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertEqual(result.stderr.strip(), message)
        self.assertFalse(os.path.exists(self.cpp), "a faulty run must write no table")
        self.assertFalse(os.path.exists(self.rc))

    def entries(self):
        with open(self.cpp, encoding="utf-8") as f:
            return [(int(n), t) for n, t in re.findall(r'^    \{(\d+), (".*")\},$', f.read(), re.M)]

    def test_shipped_data_gives_every_entry_once_in_order(self):
        result = self.run_generator()
        self.assertEqual(result.returncode, 0, result.stderr)
        entries = self.entries()
        numbers = [n for n, _ in entries]
        self.assertEqual(numbers, sorted(set(numbers)))
        # count entries plus rows times fields, per block
        self.assertEqual(len(entries), (1 + 46) + (1 + 13 * 3) + (1 + 117 * 3) + (1 + 36 * 5) +
                         (1 + 79 * 9) + (1 + 137 * 6))
        self.assertEqual(entries[:2], [(100, '"46"'), (101, '"<generic>"')])
        self.assertEqual(entries[-1][0], 10376)
        with open(self.rc, encoding="utf-8", newline="") as f:
            rc = f.read()
        self.assertIn("#pragma code_page(65001)\r\n", rc)
        self.assertIn('STRINGTABLE\r\nBEGIN\r\n    100, "46"\r\n    101, "<generic>"\r\n', rc)
        self.assertEqual(rc.count("\r\n    "), len(entries))
        self.assertTrue(rc.endswith("END\r\n"))

    def test_wrong_row_counts(self):
        lines = self.lines("judges.tsv")
        del lines[40]
        self.write("judges.tsv", lines)
        self.assert_fails("data/judges.tsv:118: the file ends after 116 rows, 117 expected")

        self.restore()
        lines = self.lines("announcers.tsv")
        lines.insert(5, "Extra\tAnnouncer\t0")
        self.write("announcers.tsv", lines)
        self.assert_fails("data/announcers.tsv:15: row 14 is one too many: the block holds 13 rows")

    def test_missing_and_extra_fields(self):
        self.edit_line("referees.tsv", 7, lambda f: f[:-1])
        self.assert_fails("data/referees.tsv:7: 4 fields, expected 5")

        self.restore()
        self.edit_line("cities.tsv", 9, lambda f: f + ["USA"])
        self.assert_fails("data/cities.tsv:9: 2 fields, expected 1")

    def test_numbers_out_of_range_or_malformed(self):
        cases = [
            ("judges.tsv", 12, 3, "7", "field 3 '7' is outside 0..2"),
            ("cornermen.tsv", 20, 5, "1", "field 5 '1' is outside 2..13"),
            ("cornermen.tsv", 20, 5, "14", "field 5 '14' is outside 2..13"),
            ("locations.tsv", 50, 5, "71", "field 5 '71' is outside 10..70"),
            ("locations.tsv", 50, 6, "1", "field 6 '1' must be 0"),
            ("cornermen.tsv", 3, 8, "2", "field 8 '2' must be 0"),
            ("referees.tsv", 4, 4, "-1", "field 4 '-1' is outside 0..2"),
            ("announcers.tsv", 2, 3, "x", "field 3 'x' is not a whole number"),
            ("announcers.tsv", 2, 3, "01", "field 3 '01' is not a whole number"),
            ("announcers.tsv", 2, 3, "", "field 3 '' is not a whole number"),
        ]
        for name, line, field, value, message in cases:
            with self.subTest(file=name, value=value):
                self.restore()
                self.set_field(name, line, field, value)
                self.assert_fails(f"data/{name}:{line}: {message}")

    def test_unusable_texts(self):
        cases = [
            ("judges.tsv", 5, 1, "", "field 1 is empty"),
            ("locations.tsv", 9, 2, "", "field 2 is empty"),
            ("cornermen.tsv", 4, 2, "Yates ", "field 2 has leading or trailing blanks"),
            ("locations.tsv", 9, 1, "Atlas Arena Łódź",
             "field 1 has a character outside Windows-1252 ('Ł')"),
            ("cities.tsv", 2, 1, "Springfield", "the first city must be the placeholder '<generic>'"),
        ]
        for name, line, field, value, message in cases:
            with self.subTest(file=name, value=value):
                self.restore()
                self.set_field(name, line, field, value)
                self.assert_fails(f"data/{name}:{line}: {message}")

    def test_judges_keep_three_numeric_last_names(self):
        lines = self.lines("judges.tsv")
        numeric = [i for i, l in enumerate(lines) if re.fullmatch(r"[^\t]+\t\d+\t\d", l)]
        self.assertEqual(len(numeric), 3)
        self.set_field("judges.tsv", numeric[0] + 1, 2, "Okoro")
        self.assert_fails("data/judges.tsv:119: 2 rows hold a number as the last name, "
                          "the block keeps 3")

    def test_comments_blank_lines_and_crlf_are_accepted(self):
        lines = self.lines("referees.tsv")
        lines = [lines[0], "# another note", ""] + [l + "\r" for l in lines[1:] if l]
        self.write("referees.tsv", lines)
        self.assertEqual(self.run_generator().returncode, 0)
        self.assertIn((5011, '"Duncan"'), self.entries())

    def test_texts_are_escaped_for_both_outputs(self):
        self.set_field("cities.tsv", 3, 1, 'The "Big" C:\\Town?? é')
        result = self.run_generator()
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn((102, r'"The \"Big\" C:\\Town\077\077 \303\251"'), self.entries())
        with open(self.rc, encoding="utf-8") as f:
            self.assertIn('    102, "The ""Big"" C:\\\\Town?? é"', f.read())

    def test_missing_file(self):
        os.remove(os.path.join(self.data, "cornermen.tsv"))
        result = self.run_generator()
        self.assertEqual(result.returncode, 1)
        self.assertTrue(result.stderr.startswith("data/cornermen.tsv:0: cannot be read"),
                        result.stderr)


if __name__ == "__main__":
    unittest.main()
