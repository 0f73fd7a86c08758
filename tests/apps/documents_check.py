"""quillmarker text, convert, dump and check."""

import re
import unittest

from tool import SAMPLE, ToolTest

RTF = rb"{\rtf1\ansi a{\v hidden}b\line c\par \trowd\cellx1000\cellx2000\intbl d\cell e\cell\row\pard f\page g\'e4\par}"
TEXT = "ahiddenb\nc\nd\te\t\nf\fg\u00e4\n"


class Documents(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("a.rtf", RTF)

    def test_text_is_printed_with_lf_tab_and_form_feed(self):
        self.expect(0, "text", "a.rtf", stdout=TEXT, stderr="")
        self.expect(0, "text", "-", stdin=RTF, stdout=TEXT, stderr="")
        self.expect(0, "text", "--visible", "a.rtf", stdout=TEXT.replace("hidden", ""), stderr="")

    def test_text_of_nothing_is_nothing(self):
        self.expect(0, "text", "-", stdin=b"", stdout="", stderr="")
        self.expect(0, "text", "-", stdin=b"{\\rtf1}", stdout="", stderr="")

    def test_text_of_a_long_file_or_pipe_is_whole(self):
        source = b"{\\rtf1 " + b"a long line of text \\par " * 20000 + b"}"
        self.write("long.rtf", source)
        text = "a long line of text \n" * 20000
        self.expect(0, "text", "long.rtf", stdout=text, stderr="")
        self.expect(0, "text", "-", stdin=source, stdout=text, stderr="")

    def test_text_of_plain_text_is_that_text(self):
        self.expect(0, "text", "-", stdin="plain \u00e4\r\ntext".encode(), stdout="plain \u00e4\ntext\n")

    def test_convert_writes_rtf_and_text(self):
        self.expect(0, "convert", "a.rtf", "b.rtf", stdout="", stderr="")
        self.expect(0, "text", "b.rtf", stdout=TEXT)
        self.assertEqual(self.expect(0, "convert", "a.rtf", "-").stdout, self.read("b.rtf"))
        self.assertEqual(self.expect(0, "convert", "-", "-", stdin=RTF).stdout, self.read("b.rtf"))
        self.expect(0, "convert", "a.rtf", "b.txt", stdout="", stderr="")
        self.assertEqual(self.read("b.txt").decode(), "ahiddenb\vc\r\nd\te\t\r\nf\fg\u00e4")
        self.assertEqual(self.expect(0, "convert", "a.rtf", "-", "--format", "txt").stdout, self.read("b.txt"))
        self.assertEqual(self.files(), ["a.rtf", "b.rtf", "b.txt"])

    def test_convert_twice_changes_nothing_more(self):
        for source in (SAMPLE / "template.rtf", "a.rtf"):
            self.expect(0, "convert", source, "1.rtf")
            self.expect(0, "convert", "1.rtf", "2.rtf")
            self.assertEqual(self.read("1.rtf"), self.read("2.rtf"))

    def test_convert_may_replace_its_own_input(self):
        self.expect(0, "convert", "a.rtf", "a.rtf")
        self.expect(0, "text", "a.rtf", stdout=TEXT)
        self.assertEqual(self.files(), ["a.rtf"])

    def test_dump_shows_the_structure(self):
        dump = self.expect(0, "dump", "a.rtf", stderr="").stdout.decode()
        self.assertIn("hidden", dump)
        self.assertRegex(dump, r"(?m)^row depth=1")
        self.assertEqual(self.expect(0, "dump", "-", stdin=RTF).stdout.decode(), dump)

    def test_check_tells_each_file_and_a_summary(self):
        lines = self.expect(0, "check", "a.rtf", SAMPLE / "template.rtf", stderr="").stdout.decode().splitlines()
        self.assertRegex(lines[0], rf"^a\.rtf: {len(RTF)} bytes, \d+\.\d\d\d s: ok$")
        self.assertRegex(lines[1], r"template\.rtf: \d+ bytes, \d+\.\d\d\d s: ok$")
        self.assertRegex(lines[2], r"^2 files: \d+ bytes, \d+\.\d\d\d s: 2 ok, 0 differ, 0 could not be read$")
        self.assertEqual(len(lines), 3)

    def test_check_goes_on_behind_a_file_that_cannot_be_read(self):
        result = self.expect(1, "check", "none.rtf", "a.rtf", ".")
        self.assertEqual(result.stderr.decode(), "quillmarker: none.rtf: the file does not exist\n"
                                                 "quillmarker: .: it cannot be read or written as a file\n")
        self.assertIn(b"a.rtf: ", result.stdout)
        self.assertIn(b": 1 ok, 0 differ, 2 could not be read\n", result.stdout)

    def test_a_quiet_check_prints_the_summary_only(self):
        text = self.expect(0, "check", "-q", "a.rtf", "a.rtf", stderr="").stdout.decode()
        self.assertTrue(re.fullmatch(r"2 files: .*\n", text), text)

    def test_check_reads_standard_input_and_what_is_no_rtf(self):
        self.assertIn(b"standard input: 4 bytes", self.expect(0, "check", "-", stdin=b"text").stdout)
        self.expect(0, "check", "-", stdin=bytes(range(256)))

    def test_files_that_cannot_be_read_are_told(self):
        for arguments in (["text", "none"], ["dump", "none"], ["convert", "none", "o.rtf"]):
            with self.subTest(arguments):
                self.expect_complaint(1, "none: the file does not exist", *arguments)
        self.expect_complaint(1, "a.rtf/x.rtf: the folder does not exist", "convert", "a.rtf", "a.rtf/x.rtf")
        self.assertEqual(self.files(), ["a.rtf"])


if __name__ == "__main__":
    unittest.main()
