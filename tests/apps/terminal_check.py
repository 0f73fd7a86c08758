"""The progress bar of a batch: on a terminal, and only there."""

import fcntl
import json
import os
import pty
import re
import struct
import subprocess
import termios
import time
import unittest

from tool import TOOL, ToolTest

COLUMNS = 70


class Terminal(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("t.rtf", rb"{\rtf1 [A]}")
        self.write("d.jsonl", "".join(json.dumps({"[A]": i}) + "\n" for i in range(300)) + "bad\n")
        self.arguments = [TOOL, "build", "--batch", "d.jsonl", "t.rtf", "-o", "out/{line}.rtf"]

    def on_terminal(self, arguments, stdin=None):
        """All that the program draws on a terminal that is its standard error, and how long it took."""
        ours, its = pty.openpty()
        fcntl.ioctl(its, termios.TIOCSWINSZ, struct.pack("HHHH", 24, COLUMNS, 0, 0))
        start = time.monotonic()
        process = subprocess.Popen(arguments, cwd=self.folder, stdin=stdin or subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=its)
        os.close(its)
        drawn = b""
        try:
            while part := os.read(ours, 65536):
                drawn += part
        except OSError:  # how a terminal says that its other side is closed
            pass
        os.close(ours)
        self.assertEqual(process.stdout.read(), b"")
        process.stdout.close()
        return process.wait(), drawn.decode(), time.monotonic() - start

    def test_a_terminal_shows_a_bar_that_fits_and_goes_away(self):
        code, drawn, seconds = self.on_terminal(self.arguments)
        self.assertEqual(code, 1)
        bars = re.findall(r"\r\x1b\[K(\[#*-*\] +\d+%  \d+ reports, [\d.]+/s, [\d:?]+ left)", drawn)
        self.assertGreaterEqual(len(bars), 1)
        self.assertLessEqual(len(bars), seconds * 10 + 1)
        for bar in bars:
            self.assertLess(len(bar), COLUMNS)
        end = drawn[drawn.rindex("\x1b[K") + 3:]
        self.assertRegex(end, r"^(quillmarker: d\.jsonl:301:.*\r\n)?quillmarker: 300 reports, 1 failed, \d+\.\d s\r\n$")
        self.assertRegex(drawn, r"\x1b\[Kquillmarker: d\.jsonl:301:1: |\nquillmarker: d\.jsonl:301:1: ")

    def test_there_is_no_bar_where_there_is_no_terminal(self):
        result = subprocess.run(self.arguments, cwd=self.folder, capture_output=True)
        self.assertNotIn(b"\x1b", result.stderr)
        self.assertNotIn(b"\r", result.stderr)
        self.assertEqual(result.stderr.count(b"\n"), 2)

    def test_lines_that_come_from_a_pipe_have_a_count_but_no_bar(self):
        with subprocess.Popen(["cat", "d.jsonl"], cwd=self.folder, stdout=subprocess.PIPE) as cat:
            arguments = ["-" if argument == "d.jsonl" else argument for argument in self.arguments]
            code, drawn, _ = self.on_terminal(arguments, cat.stdout)
        self.assertEqual(code, 1)
        self.assertRegex(drawn, r"\r\x1b\[K\d+ reports, [\d.]+/s")
        self.assertNotIn("%", drawn)

    def test_a_single_report_shows_no_bar(self):
        self.write("d.json", '{"[A]": 1}')
        self.assertEqual(self.on_terminal([TOOL, "build", "t.rtf", "d.json", "-o", "o.rtf"])[:2], (0, ""))

    def test_a_long_pdf_shows_its_pages_and_leaves_the_terminal_clean(self):
        self.write("long.rtf", b"{\\rtf1 " + b"words of a paragraph of more than a line, broken where it ends, and so on, "
                               b"as long as it takes to see how far it is \\par " * 60_000 + b"}")
        code, drawn, _ = self.on_terminal([TOOL, "convert", "long.rtf", "long.pdf"])
        self.assertEqual(code, 0)
        self.assertRegex(drawn, r"\r\x1b\[K(\[#*-*\])? +\d+%  \d+ pages, \d+(\.\d)?/s, [\d:?]+ left")
        self.assertEqual(drawn[drawn.rindex("\x1b[K") + 3:], "")


if __name__ == "__main__":
    unittest.main()
