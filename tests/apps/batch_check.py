"""quillmarker build --batch: a report for each line."""

import json
import signal
import subprocess
import unittest

from tool import SAMPLE, TOOL, ToolTest

TEMPLATE = rb"{\rtf1\ansi Dear {\b [NAME]},\par [TEXT]\par}"


def line_of(**values):
    return json.dumps({("[" + key + "]" if key.isupper() else key): value for key, value in values.items()}) + "\n"


class Batch(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("t.rtf", TEMPLATE)

    def batch(self, code, lines, *options, output="out/{id}.rtf"):
        """The lines of standard error, without the tool's name."""
        self.write("d.jsonl", lines)
        result = self.expect(code, "build", "--batch", "d.jsonl", "t.rtf", "-o", output, *options, stdout="")
        return [line.removeprefix("quillmarker: ") for line in result.stderr.decode().splitlines()]

    def test_the_sample_batch_is_filled(self):
        result = self.expect(0, "build", "--batch", SAMPLE / "batch.jsonl", SAMPLE / "template.rtf",
                             "-o", "out/{id}.rtf")
        self.assertRegex(result.stderr.decode(), r"^quillmarker: 5 reports, 0 failed, \d+\.\d s\n$")
        reports = [f"out/A-2024-10{i}.rtf" for i in range(1, 6)]
        self.assertEqual(self.files(), [*reports, "t.rtf"])
        for name in reports:
            self.assertNotIn("[", self.expect(0, "text", name).stdout.decode())
        self.expect(0, "check", *reports)

    def test_many_reports_are_the_same_as_each_alone(self):
        rows = [{"[NAME]": {"rtf": f"{{\\rtf1{{\\fonttbl{{\\f0 Font {i % 7};}}}}\\f0\\fs{20 + i % 11} n{i}}}"},
                 "[TEXT]": [f"text {i}\nand more", {"hidden": f"h{i}"}, "end"], "id": i} for i in range(200)]
        self.batch(0, "".join(json.dumps(row) + "\n" for row in rows), "--jobs", "8")
        self.assertEqual(len(self.files()), 202)
        for i in range(0, 200, 9):
            self.write("one.json", json.dumps(rows[i]))
            self.expect(0, "build", "--allow-missing", "t.rtf", "one.json", "-o", "one.rtf")
            self.assertEqual(self.read("one.rtf"), self.read(f"out/{i}.rtf"), i)
        self.batch(0, "".join(json.dumps(row) + "\n" for row in rows), "--jobs", "1", output="alone/{id}.rtf")
        for i in range(200):
            self.assertEqual(self.read(f"alone/{i}.rtf"), self.read(f"out/{i}.rtf"), i)

    def test_a_bad_line_is_told_and_the_rest_goes_on(self):
        told = self.batch(1, line_of(NAME="a", TEXT="b", id=1) + "{bad\n" + "\n" + line_of(NAME=None, TEXT="", id=2) +
                          line_of(NAME={"file": "none.rtf"}, TEXT="", id=3) + line_of(NAME="c", TEXT="d", id=4))
        self.assertEqual(len(told), 4)
        self.assertRegex("\n".join(sorted(told)), r'd\.jsonl:2:2: syntax error.*\n'
                         r'd\.jsonl:4:\d+: marker "\[NAME\]": null.*\n'
                         r'd\.jsonl:5: marker "\[NAME\]": none\.rtf: the file does not exist')
        self.assertRegex(told[-1], r"^2 reports, 3 failed, \d+\.\d s$")
        self.assertEqual(self.files(), ["d.jsonl", "out/1.rtf", "out/4.rtf", "t.rtf"])

    def test_missing_markers_are_told_once_each(self):
        lines = line_of(NAME="a", TEXT="b", id=1) + line_of(NAME="a", TEXT="b", id=2, MORE="x") + \
            line_of(NAME="a", TEXT="b", id=3, MORE="y", OTHER="z")
        told = self.batch(3, lines)
        self.assertEqual(told[:-1], ['d.jsonl:2: marker "[MORE]" is not in the template (2 lines, this is the first)',
                                     'd.jsonl:3: marker "[OTHER]" is not in the template'])
        self.assertRegex(told[-1], "^3 reports, 0 failed")
        self.assertEqual(len(self.batch(0, lines, "--allow-missing", output="again/{id}.rtf")), 1)

    def test_a_failure_outweighs_a_missing_marker(self):
        self.batch(1, line_of(id=1, MORE="x") + "bad\n")

    def test_the_later_of_two_lines_with_one_name_is_refused(self):
        lines = "".join(line_of(NAME=str(i), TEXT="", id="same" if i % 10 == 3 else i) for i in range(40))
        told = self.batch(1, lines, "--jobs", "8", output="{id}.txt")
        self.assertEqual(sorted(told[:-1]),
                         [f'd.jsonl:{n}: line 4 has the same output "same.txt"' for n in (14, 24, 34)])
        self.assertIn(b"Dear 3,", self.read("same.txt"))

    def test_names_may_hold_the_number_of_the_line_and_several_keys(self):
        self.batch(0, line_of(NAME="a", TEXT="b", x="p") + "\n" + line_of(NAME="a", TEXT="b", x="q"), "--allow-missing",
                   output="{x}/{line}-{[NAME]}.txt")
        self.assertEqual(self.files(), ["d.jsonl", "p/1-a.txt", "q/3-a.txt", "t.rtf"])

    def test_no_value_leads_out_of_the_folder(self):
        for value in ("../x", "/x", "a/b", "..", "", "a\0b"):
            with self.subTest(value):
                told = self.batch(1, line_of(NAME="a", TEXT="b", id=value), output="out/{id}/r.rtf")
                self.assertRegex(told[0], r'^d\.jsonl:1: "id" ')
        self.assertIn('there is no "id"', self.batch(1, line_of(NAME="a", TEXT="b"))[0])
        self.assertEqual(self.files(), ["d.jsonl", "t.rtf"])

    def test_a_folder_that_cannot_be_made_is_told(self):
        self.write("out", "a file")
        told = self.batch(1, line_of(NAME="a", TEXT="b", id=1))
        self.assertIn("d.jsonl:1: out: ", told[0])

    def test_lines_may_come_from_standard_input_with_any_line_end(self):
        lines = (line_of(NAME="a", TEXT="b", id=1) + line_of(NAME="a", TEXT="b", id=2)).replace("\n", "\r\n").rstrip()
        result = self.expect(0, "build", "--batch", "-", "t.rtf", "-o", "{id}.rtf", stdin=lines.encode())
        self.assertIn("2 reports, 0 failed", result.stderr.decode())
        self.assertEqual(self.files(), ["1.rtf", "2.rtf", "t.rtf"])

    def test_no_lines_are_no_reports(self):
        for lines in ("", "\n\n", " \r\n"):
            self.assertRegex(self.batch(0, lines)[0], "^0 reports, 0 failed")

    def test_lines_that_cannot_be_read_are_told(self):
        for name, text in [("none.jsonl", "none.jsonl: the file does not exist"), (".", ".: it cannot be read")]:
            self.expect_complaint(1, text, "build", "--batch", name, "t.rtf", "-o", "{id}.rtf")

    def test_a_signal_ends_the_batch_between_reports(self):
        process = subprocess.Popen([TOOL, "build", "--batch", "-", "t.rtf", "-o", "{id}.rtf"], cwd=self.folder,
                                   stdin=subprocess.PIPE, stderr=subprocess.PIPE)
        for i in range(50):
            process.stdin.write(line_of(NAME="a", TEXT="b", id=i).encode())
        process.stdin.flush()
        while not (self.folder / "0.rtf").exists():
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        _, told = process.communicate(line_of(NAME="a", TEXT="b", id="last").encode())
        self.assertEqual(process.returncode, 128 + signal.SIGINT)
        self.assertIn("stopped by a signal", told.decode())
        reports = [name for name in self.files() if name != "t.rtf"]
        self.assertEqual([name for name in reports if not name.endswith(".rtf")], [])
        self.assertIn(f"quillmarker: {len(reports)} reports, 0 failed", told.decode())
        self.expect(0, "check", "-q", *reports)


if __name__ == "__main__":
    unittest.main()
