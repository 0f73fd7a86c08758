"""Help, version and bad usage; the manual pages."""

import os
import subprocess
import unittest

from tool import TOOL, ToolTest

COMMANDS = ["build", "text", "convert", "dump", "check"]

# Arguments, and what the one line should say.
BAD_USAGE = [
    ([], "the command is missing: build, text, convert, dump, check"),
    (["bogus"], 'there is no command "bogus": build, text, convert, dump, check'),
    (["--bogus"], "there is no option --bogus"),
    (["build", "--bogus"], "there is no option --bogus"),
    (["build"], "TEMPLATE is required"),
    (["build", "t.rtf", "d.json"], "--output is required"),
    (["build", "t.rtf", "d.json", "-o"], "--output"),
    (["build", "t.rtf", "d.json", "x", "-o", "o.rtf"], 'nothing to do with "x"'),
    (["build", "t.rtf", "-o", "o.rtf"], "the data is missing"),
    (["build", "t.rtf", "d.json", "-o", "o.doc"], '"o.doc" should end in .rtf, .txt, .pdf or .png'),
    (["build", "t.rtf", "d.json", "-o", "o"], '"o" should end in .rtf, .txt, .pdf or .png'),
    (["build", "t.rtf", "d.json", "-o", "o", "--format", "doc"], "doc not in {rtf,txt,pdf,png}"),
    (["build", "-", "-", "-o", "o.rtf"], "cannot both be standard input"),
    (["build", "-", "--batch", "-", "-o", "{line}.rtf"], "cannot both be standard input"),
    (["build", "t.rtf", "d.json", "--batch", "b.jsonl", "-o", "{line}.rtf"], "two data files"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "-"], "a batch cannot go to standard output"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "o.rtf"], "the same file for each line"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "{.rtf"], "a { without a key"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "{id}"], "should end in .rtf, .txt, .pdf or .png"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "{id}.rtf", "-j", "0"], "not in range 1 to 1024"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "{id}.rtf", "-j", "many"], "not in range"),
    (["text"], "IN is required"),
    (["text", "a", "b"], 'nothing to do with "b"'),
    (["convert", "a"], "OUT is required"),
    (["convert", "a", "b.html"], '"b.html" should end in .rtf, .txt, .pdf or .png'),
    (["convert", "a", "b.rtf", "--paper", "A4"], "--paper goes with PDF and PNG"),
    (["convert", "a", "b.txt", "--margins", "2cm"], "--margins goes with PDF and PNG"),
    (["convert", "a", "b.pdf", "--dpi", "96"], "--dpi goes with PNG"),
    (["convert", "a", "b.pdf", "--page", "2"], "--page goes with PNG; a PDF holds all pages"),
    (["convert", "a", "b.rtf", "--page", "2"], "--page goes with PNG"),
    (["convert", "a", "b.pdf", "--paper", "A99"], 'there is no paper "A99"; say A4, Letter'),
    (["convert", "a", "b.pdf", "--paper", "1mmx1mm"], 'there is no paper "1mmx1mm"'),
    (["convert", "a", "b.pdf", "--paper", "210mmx"], 'there is no paper "210mmx"'),
    (["convert", "a", "b.pdf", "--margins", "2"], 'the margins "2" should be one, two or four lengths'),
    (["convert", "a", "b.pdf", "--margins", "-2cm"], 'the margins "-2cm" should be'),
    (["convert", "a", "b.pdf", "--margins", "1cm,1cm,1cm"], "should be one, two or four lengths"),
    (["convert", "a", "b.png", "--page", "0"], 'the page "0" should be a number from 1 on, or all'),
    (["convert", "a", "b.png", "--page", "last"], 'the page "last" should be'),
    (["convert", "a", "b.png", "--dpi", "0"], '--dpi "0" should be a number from 1 to 2400'),
    (["convert", "a", "b.png", "--dpi", "2401"], '--dpi "2401" should be a number'),
    (["convert", "a", "b.png", "--dpi", "nan"], '--dpi "nan" should be a number'),
    (["convert", "a", "-", "--format", "png", "--page", "all"], "only one page can go to standard output"),
    (["build", "t.rtf", "--batch", "b.jsonl", "-o", "{id}.png", "--page", "all"], "an image of one page of each report"),
    (["dump"], "IN is required"),
    (["check"], "FILE is required"),
    (["text", "a\nb", "c\nd"], 'nothing to do with "c d"'),
]


class Usage(ToolTest):
    def test_each_bad_usage_is_one_line_that_says_what_to_do(self):
        for arguments, text in BAD_USAGE:
            with self.subTest(arguments):
                self.expect_complaint(2, text, *arguments)
                message = self.run_tool(*arguments).stderr.decode()
                command = " ".join(["quillmarker", *(name for name in arguments[:1] if name in COMMANDS)])
                self.assertIn(f"(see: {command} --help)", message)

    def test_bad_usage_writes_no_file(self):
        for arguments, _ in BAD_USAGE:
            self.run_tool(*arguments)
        self.assertEqual(self.files(), [])

    def test_every_command_has_help_and_knows_its_version(self):
        version = self.expect(0, "--version", stderr="").stdout.decode()
        self.assertRegex(version, r"^quillmarker \d+\.\d+\.\d+\n$")
        for command in COMMANDS:
            with self.subTest(command):
                text = self.expect(0, command, "--help", stderr="").stdout.decode()
                self.assertIn(f"Usage: quillmarker {command} ", text)
                self.assertIn("Example", text)
                self.assertEqual(self.expect(0, command, "-h").stdout.decode(), text)
                self.expect(0, command, "--version", stdout=version, stderr="")

    def test_the_help_lists_the_commands(self):
        text = self.expect(0, "--help", stderr="").stdout.decode()
        everything = self.expect(0, "--help-all", stderr="").stdout.decode()
        for command in COMMANDS:
            self.assertRegex(text, rf"(?m)^  {command} ")
            self.assertRegex(everything, rf"(?m)^{command}$")

    def test_the_help_of_build_says_that_order_matters(self):
        self.assertIn("order matters", self.expect(0, "build", "--help").stdout.decode())

    def test_no_line_of_help_is_wider_than_a_page(self):
        for command in [[], *([command] for command in COMMANDS)]:
            for line in self.run_tool(*command, "--help").stdout.decode().splitlines():
                self.assertLessEqual(len(line), 120, line)

    @unittest.skipUnless(os.environ.get("QUILLMARKER_HELP2MAN"), "there is no help2man here")
    def test_manual_pages_can_be_made_of_the_help(self):
        for command in ["", *COMMANDS]:
            with self.subTest(command):
                page = subprocess.run(
                    [os.environ["QUILLMARKER_HELP2MAN"], "--no-info", "--name=x", "--version-string=1",
                     f"./{os.path.basename(TOOL)} {command}".strip()],
                    capture_output=True, text=True, cwd=os.path.dirname(TOOL))
                self.assertEqual((page.returncode, page.stderr), (0, ""))
                self.assertIn(".SH SYNOPSIS", page.stdout)
                self.assertIn(".SH OPTIONS", page.stdout)


if __name__ == "__main__":
    unittest.main()
