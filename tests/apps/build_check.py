"""quillmarker build: one report of a template and its data."""

import json
import resource
import shutil
import signal
import unittest

from tool import SAMPLE, ToolTest

TEMPLATE = rb"{\rtf1\ansi Dear [NAME],\par your [THING] is {\b [STATE]}.\par}"
DATA = '{"[NAME]": "J\u00f6rg", "[THING]": 7.50, "[STATE]": {"rtf": "{\\\\rtf1\\\\i ready}"}}'
TEXT = "Dear J\u00f6rg,\r\nyour 7.50 is ready."


class Build(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("t.rtf", TEMPLATE)
        self.write("d.json", DATA)

    def test_the_sample_report_is_filled(self):
        self.expect(0, "build", SAMPLE / "template.rtf", SAMPLE / "data.json", "-o", "report.rtf", stdout="", stderr="")
        text = self.expect(0, "text", "report.rtf", stderr="").stdout.decode()
        self.assertNotIn("[", text)
        for part in ("Laboratory report 2024001\n", "Patient\tM\u00fcller, J\u00f6rg\tBorn\t2 May 1961\t\n",
                     "Haemoglobin\tL 10.9\tg/dl\t13.5 \u2013 17.5\t\n", "C-reactive protein\t< 5.0\tmg/l\t< 5.0\t\n",
                     "order 4711", "fits an iron deficiency anaemia. We suggest\n", "by telephone.\n"):
            self.assertIn(part, text)
        visible = self.expect(0, "text", "--visible", "report.rtf").stdout.decode()
        self.assertNotIn("order 4711", visible)
        self.assertIn("on 14 March 2024.\n", visible)
        self.expect(0, "check", "report.rtf")
        self.assertTrue(self.read("report.rtf").isascii())
        self.assertIn(b"\\pngblip", self.read("report.rtf"))
        self.assertEqual(self.files(), ["d.json", "report.rtf", "t.rtf"])

    def test_the_output_is_rtf_or_text_by_its_name_or_as_said(self):
        as_rtf, as_text = ["--format", "rtf"], ["--format", "txt"]
        for name, options, is_text in [("o.rtf", [], False), ("o.TXT", [], True), ("o", as_text, True),
                                       ("o.txt", as_rtf, False), ("o.rtf.bak", as_rtf, False)]:
            with self.subTest(name):
                self.expect(0, "build", "t.rtf", "d.json", "-o", name, *options, stdout="", stderr="")
                content = self.read(name)
                if is_text:
                    self.assertEqual(content.decode(), TEXT)
                else:
                    self.assertTrue(content.startswith(b"{\\rtf1"), content)

    def test_template_and_data_may_come_from_standard_input(self):
        self.expect(0, "build", "-", "d.json", "-o", "1.rtf", stdin=TEMPLATE)
        self.expect(0, "build", "t.rtf", "-", "-o", "2.rtf", stdin=DATA.encode())
        self.expect(0, "build", "t.rtf", "d.json", "-o", "3.rtf")
        self.assertEqual(self.read("1.rtf"), self.read("3.rtf"))
        self.assertEqual(self.read("2.rtf"), self.read("3.rtf"))

    def test_standard_output_gets_what_a_file_would(self):
        for kind in ("rtf", "txt"):
            self.expect(0, "build", "t.rtf", "d.json", "-o", f"o.{kind}")
            written = self.expect(0, "build", "t.rtf", "d.json", "-o", "-", "--format", kind, stderr="").stdout
            self.assertEqual(written, self.read(f"o.{kind}"))
        self.assertEqual(self.expect(0, "build", "t.rtf", "d.json", "-o", "-").stdout, self.read("o.rtf"))

    def test_missing_markers_are_told_and_the_report_is_written(self):
        self.write("more.json", '{"[A]": 1, "[NAME]": "x", "[B]": {"hidden": "y"}, "[C]": []}')
        self.expect(3, "build", "t.rtf", "more.json", "-o", "o.txt", stdout="",
                    stderr="".join(f'quillmarker: t.rtf: marker "[{name}]" is not in the template\n' for name in "ABC"))
        self.assertIn(b"Dear x,", self.read("o.txt"))
        self.expect(0, "build", "--allow-missing", "t.rtf", "more.json", "-o", "p.txt", stdout="", stderr="")
        self.assertEqual(self.read("p.txt"), self.read("o.txt"))

    def test_a_marker_in_a_value_is_filled_if_it_comes_later(self):
        self.write("order.json", '{"[NAME]": "[THING]", "[THING]": "x", "[STATE]": "[NAME]"}')
        self.expect(0, "build", "t.rtf", "order.json", "-o", "-", "--format", "txt",
                    stdout="Dear x,\r\nyour x is [NAME].")

    def test_files_are_found_beside_the_data(self):
        self.write("deep/d.json", '{"[NAME]": {"file": "n.rtf"}, "[THING]": {"file": "more/n.txt"}}')
        self.write("deep/n.rtf", rb"{\rtf1 from {\b rtf}}")
        self.write("deep/more/n.txt", "from text \u00e4\n")
        self.expect(0, "build", "t.rtf", "deep/d.json", "-o", "-", "--format", "txt",
                    stdout="Dear from rtf,\r\nyour from text \u00e4 is [STATE].")
        beside = (self.folder / "deep/d.json").read_bytes()
        self.expect_complaint(1, 'standard input: marker "[NAME]": n.rtf: the file does not exist',
                              "build", "t.rtf", "-", "-o", "o.txt", stdin=beside)

    def test_bad_data_is_told_with_its_place(self):
        for content, text in [('{"[NAME]": 1', "bad.json:1:12: "), ("", "bad.json:1:1: "), ("[]", "bad.json:1:1: "),
                              ('{\n "[NAME]": null}', 'bad.json:2:15: marker "[NAME]": null is not possible; allowed'),
                              ('{"[NAME]": {"file": "none.rtf"}}', 'marker "[NAME]": none.rtf: the file does not exist'),
                              ('{"[NAME]": {"file": "d.json"}}', 'bad.json: marker "[NAME]": d.json is no RTF'),
                              ('{"[NAME]": {"rtf": "x"}}', 'marker "[NAME]": the value of "rtf" is no RTF')]:
            with self.subTest(content):
                self.write("bad.json", content)
                self.expect_complaint(1, text, "build", "t.rtf", "bad.json", "-o", "o.rtf")
        self.assertNotIn("o.rtf", self.files())

    def test_what_cannot_be_read_or_written_is_told(self):
        self.expect_complaint(1, "none.rtf: the file does not exist", "build", "none.rtf", "d.json", "-o", "o.rtf")
        self.expect_complaint(1, "none.json: the file does not exist", "build", "t.rtf", "none.json", "-o", "o.rtf")
        self.expect_complaint(1, "none/o.rtf: the folder does not exist",
                              "build", "t.rtf", "d.json", "-o", "none/o.rtf")
        self.expect_complaint(1, ".: it cannot be read", "build", ".", "d.json", "-o", "o.rtf")
        self.expect_complaint(1, ".: it cannot be read", "build", "t.rtf", ".", "-o", "o.rtf")
        self.assertEqual(self.files(), ["d.json", "t.rtf"])

    def test_a_failure_leaves_the_old_report(self):
        self.write("o.rtf", "old")
        self.write("bad.json", '{"[NAME]": {"file": "none"}}')
        self.expect(1, "build", "t.rtf", "bad.json", "-o", "o.rtf")
        self.assertEqual(self.read("o.rtf"), b"old")

        def fill_the_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (100, 100))

        result = self.run_tool("build", "t.rtf", "d.json", "-o", "o.rtf", preexec_fn=fill_the_disk)
        self.assertEqual((result.returncode, result.stderr), (1, b"quillmarker: o.rtf: the disk is full\n"))
        self.assertEqual(self.read("o.rtf"), b"old")
        self.assertEqual(self.files(), ["bad.json", "d.json", "o.rtf", "t.rtf"])

    def test_a_report_may_take_the_template_s_place(self):
        self.expect(0, "build", "t.rtf", "d.json", "-o", "t.rtf")
        self.expect(0, "text", "t.rtf", stdout=TEXT.replace("\r\n", "\n") + "\n")

    def test_names_and_values_in_any_script(self):
        name = "\u0434\u0430\u043d\u043d\u044b\u0435 \u2013 \u4f50\u85e4.json"
        person = "\u4f50\u85e4 \U0001F9EA \u0639\u0631\u0628\u064a"
        self.write(name, json.dumps({"[NAME]": person, "[THING]": "\\{}\\par", "[STATE]": ""}))
        self.expect(0, "build", "t.rtf", name, "-o", "\u00e4.rtf")
        self.expect(0, "text", "\u00e4.rtf", stdout=f"Dear {person},\nyour \\{{}}\\par is .\n")

    def test_the_sample_folder_stays_as_it_is(self):
        shutil.copytree(SAMPLE, self.folder / "sample")
        before = self.files()
        self.expect(0, "build", "sample/template.rtf", "sample/data.json", "-o", "sample/report.rtf")
        self.assertEqual(self.files(), sorted([*before, "sample/report.rtf"]))


if __name__ == "__main__":
    unittest.main()
