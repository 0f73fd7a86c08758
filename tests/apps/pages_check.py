"""quillmarker convert and build to PDF and PNG: paper, margins, resolution, pages, properties, and what goes wrong."""

import json
import os
import pathlib
import signal
import struct
import subprocess
import time
import unittest

from tool import SAMPLE, TOOL, ToolTest

RTF = (rb"{\rtf1\ansi{\fonttbl{\f0 Liberation Serif;}}{\info{\title Gr\'fc\'dfe \'e4\'f6\'fc}{\author J. M\'fcller}"
       rb"{\subject Blood}{\keywords one, two}}\f0\fs24 first page\page second {\v hidden }page\page third page\par}")
A4 = "595 x 842 pts (A4)"
LETTER = "612 x 792 pts (letter)"


def sized(width, height):
    """A document on paper of so many twips."""
    return b"{\\rtf1\\paperw%d\\paperh%d\\margl300\\margr300\\margt300\\margb300 text\\par}" % (width, height)


class Pages(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("a.rtf", RTF)

    def poppler(self, *command):
        result = subprocess.run(command, cwd=self.folder, capture_output=True, check=True, timeout=60)
        self.assertEqual(result.stderr, b"", command)
        return result.stdout.decode()

    def info(self, name):
        return dict(line.split(":", 1) for line in self.poppler("pdfinfo", name).splitlines())

    def size(self, name):
        """Pixels of a PNG, and dots a metre."""
        data = self.read(name)
        self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
        at = data.index(b"pHYs") + 4
        return struct.unpack(">II", data[16:24]), struct.unpack(">I", data[at:at + 4])[0]

    def test_a_pdf_has_the_pages_with_their_text(self):
        self.expect(0, "convert", "a.rtf", "a.pdf", stdout="", stderr="")
        pages = self.poppler("pdftotext", "a.pdf", "-").split("\f")
        self.assertEqual([page.split() for page in pages],
                         [["first", "page"], ["second", "page"], ["third", "page"], []])
        self.assertEqual(self.files(), ["a.pdf", "a.rtf"])

    def test_a_pdf_says_what_the_document_says_of_itself(self):
        self.expect(0, "convert", "a.rtf", "a.pdf")
        info = {key: value.strip() for key, value in self.info("a.pdf").items()}
        self.assertEqual({key: info[key] for key in ("Title", "Author", "Subject", "Keywords", "Pages")},
                         {"Title": "Gr\u00fc\u00dfe \u00e4\u00f6\u00fc", "Author": "J. M\u00fcller", "Subject": "Blood",
                          "Keywords": "one, two", "Pages": "3"})

    def test_standard_streams_take_and_give_pages(self):
        pdf = self.expect(0, "convert", "-", "-", "--format", "pdf", stdin=RTF, stderr="").stdout
        self.assertTrue(pdf.startswith(b"%PDF-"))
        self.write("b.pdf", pdf)
        self.assertIn("third page", self.poppler("pdftotext", "b.pdf", "-"))
        png = self.expect(0, "convert", "-", "-", "--format", "png", stdin=RTF, stderr="").stdout
        self.expect(0, "convert", "a.rtf", "a.png")
        self.assertEqual(png, self.read("a.png"))

    def test_the_paper_is_the_documents_or_what_is_wished_for(self):
        self.write("a4.rtf", sized(11906, 16838))
        self.write("wide.rtf", sized(16838, 11906))
        for name, options, paper in [
                ("a.rtf", [], LETTER), ("a4.rtf", [], A4), ("a.rtf", ["--paper", "a4"], A4),
                ("a4.rtf", ["--paper", "Letter"], LETTER), ("wide.rtf", [], "842 x 595 pts (A4)"),
                ("wide.rtf", ["--paper", "Letter"], "792 x 612 pts (letter)"),
                ("a.rtf", ["--paper", "100mmx4in"], "283 x 288 pts"),
                ("wide.rtf", ["--paper", "210mmx297mm"], A4)]:
            with self.subTest(name=name, options=options):
                self.expect(0, "convert", name, "o.pdf", *options, stderr="")
                self.assertEqual(self.info("o.pdf")["Page size"].strip(), paper)

    def test_margins_move_the_text(self):
        def corner(*options):
            self.expect(0, "convert", "a.rtf", "o.pdf", *options, stderr="")
            self.poppler("pdftotext", "-bbox", "o.pdf", "o.html")
            word = next(line for line in self.read("o.html").decode().splitlines() if ">first<" in line)
            return [float(word.split(f'{name}="')[1].split('"')[0]) for name in ("xMin", "yMin")]

        left, top = corner("--margins", "0")
        self.assertLess(abs(left), 1)
        for options, right, down in [(["--margins", "72pt"], 72, 72), (["--margins", "1in,2in"], 144, 72),
                                     (["--margins", "1440tw,1in,1in,2.54cm"], 72, 72), ([], 90, 72)]:
            with self.subTest(options):
                x, y = corner(*options)
                self.assertAlmostEqual(x, left + right, delta=0.1)
                self.assertAlmostEqual(y, top + down, delta=0.1)

    def test_margins_that_leave_no_room_are_refused(self):
        self.expect_complaint(1, "the margins leave no room", "convert", "a.rtf", "o.pdf", "--margins", "11cm")
        self.assertEqual(self.files(), ["a.rtf"])

    def test_an_image_is_as_large_as_the_paper_at_its_resolution(self):
        for options, pixels, perMetre in [([], (816, 1056), 3780), (["--dpi", "150"], (1275, 1650), 5906),
                                          (["--dpi", "72", "--paper", "A4"], (595, 842), 2835),
                                          (["--dpi", "1"], (9, 11), 39)]:
            with self.subTest(options):
                self.expect(0, "convert", "a.rtf", "o.png", *options, stdout="", stderr="")
                self.assertEqual(self.size("o.png"), (pixels, perMetre))

    def test_an_image_is_of_the_page_that_is_asked_for(self):
        for page in (1, 2, 3):
            self.expect(0, "convert", "a.rtf", f"{page}.png", "--page", page)
        self.expect(0, "convert", "a.rtf", "all.png", "--page", "all", stdout="", stderr="")
        self.assertEqual(self.files(), ["1.png", "2.png", "3.png", "a.rtf", "all-1.png", "all-2.png", "all-3.png"])
        for page in (1, 2, 3):
            self.assertEqual(self.read(f"{page}.png"), self.read(f"all-{page}.png"))
        self.assertEqual(len({self.read(f"{page}.png") for page in (1, 2, 3)}), 3)
        self.expect_complaint(1, "there is no page 4; the last one is 3", "convert", "a.rtf", "4.png", "--page", "4")
        self.assertNotIn("4.png", self.files())

    def test_an_image_that_is_too_large_is_refused(self):
        self.write("large.rtf", sized(30000, 30000))
        self.expect_complaint(1, "too large; say less for --dpi", "convert", "large.rtf", "o.png", "--dpi", "2400")
        self.assertEqual(self.files(), ["a.rtf", "large.rtf"])

    def test_what_cannot_be_written_is_told_and_leaves_nothing(self):
        self.write("old.pdf", "old")
        for name in ("a.rtf/o.pdf", "none/o.pdf", "none/o.png"):
            with self.subTest(name):
                self.expect_complaint(1, f"{name}: the folder does not exist", "convert", "a.rtf", name)
        self.expect_complaint(1, "none.rtf: the file does not exist", "convert", "none.rtf", "old.pdf")
        self.assertEqual(self.read("old.pdf"), b"old")
        self.assertEqual(self.files(), ["a.rtf", "old.pdf"])

    def test_no_display_is_needed_and_nothing_is_heard_of_it(self):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR")}
        result = self.run_tool("convert", "a.rtf", "a.pdf", env=environment)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))

    def test_the_sample_report_becomes_a_pdf(self):
        self.expect(0, "build", SAMPLE / "template.rtf", SAMPLE / "data.json", "-o", "r.pdf", stdout="", stderr="")
        self.assertEqual(self.info("r.pdf")["Title"].strip(), "Laboratory report")
        self.assertEqual(self.info("r.pdf")["Page size"].strip(), A4)
        text = self.poppler("pdftotext", "-raw", "r.pdf", "-")
        for words in ("M\u00fcller, J\u00f6rg", "1. to look for a source of chronic bleeding,"):
            self.assertIn(words, text)
        self.assertNotIn("[", text)

    def test_a_batch_makes_pdfs_and_images_side_by_side(self):
        self.write("t.rtf", rb"{\rtf1\ansi Dear {\b [NAME]},\par\page [TEXT]\par}")
        rows = [{"[NAME]": f"Name{i}", "[TEXT]": f"text {i}", "id": i} for i in range(24)]
        self.write("d.jsonl", "".join(json.dumps(row) + "\n" for row in rows))
        self.expect(0, "build", "--batch", "d.jsonl", "t.rtf", "-o", "out/{id}.pdf", "--jobs", "8", "--paper", "A4")
        self.expect(0, "build", "--batch", "d.jsonl", "t.rtf", "-o", "out/{id}.png", "--jobs", "8", "--page", "2")
        self.assertEqual(len(self.files()), 3 + 2 * len(rows))
        for i in range(len(rows)):
            self.assertEqual(self.poppler("pdftotext", f"out/{i}.pdf", "-").split(),
                             ["Dear", f"Name{i},", "text", str(i)])
        self.write("one.json", json.dumps(rows[7]))
        self.expect(0, "build", "--allow-missing", "t.rtf", "one.json", "-o", "one.png", "--page", "2")
        self.assertEqual(self.read("one.png"), self.read("out/7.png"))

    def test_a_line_of_a_batch_without_the_page_is_told(self):
        self.write("t.rtf", rb"{\rtf1\ansi [TEXT]\par}")
        self.write("d.jsonl", '{"[TEXT]": {"rtf": "{\\\\rtf1 a\\\\page b}"}}\n{"[TEXT]": "b"}\n')
        result = self.expect(1, "build", "--batch", "d.jsonl", "t.rtf", "-o", "{line}.png", "--page", "2")
        self.assertIn("d.jsonl:2: there is no page 2; the last one is 1\n", result.stderr.decode())
        self.assertEqual(self.files(), ["1.png", "a.rtf", "d.jsonl", "t.rtf"])

    def test_an_interrupted_pdf_leaves_the_old_file_whole(self):
        self.write("long.rtf", b"{\\rtf1 " + b"some words of text \\par " * 400_000 + b"}")
        self.write("long.pdf", "old")
        process = subprocess.Popen([TOOL, "convert", "long.rtf", "long.pdf"], cwd=self.folder, stderr=subprocess.PIPE)
        # When it takes the signal for itself, it is at the pages.
        caught = 1 << (signal.SIGINT - 1)
        deadline = time.monotonic() + 60
        while time.monotonic() < deadline:
            status = pathlib.Path(f"/proc/{process.pid}/status").read_text(encoding="ascii")
            if int(status.split("SigCgt:")[1].split()[0], 16) & caught:
                break
            time.sleep(0.01)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.communicate(timeout=60)[1], b"quillmarker: stopped by a signal\n")
        self.assertEqual(process.returncode, 128 + signal.SIGINT)
        self.assertEqual(self.read("long.pdf"), b"old")
        self.assertEqual(self.files(), ["a.rtf", "long.pdf", "long.rtf"])

    def test_check_puts_documents_on_pages(self):
        lines = self.expect(0, "check", "--pages", "a.rtf", SAMPLE / "template.rtf", stderr="").stdout.decode()
        self.assertIn("2 ok, 0 differ", lines)

    def test_text_shows_the_numbers_of_lists_where_asked(self):
        self.write("l.rtf", rb"{\rtf1\ansi x\par{\pntext 1.\tab}{\*\pn\pnlvlbody\pndec\pnstart2{\pntxta .}}one\par "
                            rb"{\pntext 2.\tab}two\par\pard y}")
        self.expect(0, "text", "l.rtf", stdout="x\none\ntwo\ny\n")
        self.expect(0, "text", "--numbers", "l.rtf", stdout="x\n2.\tone\n3.\ttwo\ny\n")


if __name__ == "__main__":
    unittest.main()
