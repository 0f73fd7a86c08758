"""Standard streams that are closed, full or read by somebody who has enough."""

import os
import signal
import subprocess
import unittest

from tool import TOOL, ToolTest


class Streams(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("a.rtf", b"{\\rtf1 " + b"a long line of text \\par " * 50000 + b"}")
        self.write("t.rtf", b"{\\rtf1 [A]}")
        self.write("d.json", '{"[A]": "x"}')

    def through_shell(self, command, **environment):
        return subprocess.run(["/bin/sh", "-c", command], capture_output=True, text=True, cwd=self.folder,
                              stdin=subprocess.DEVNULL, timeout=120, env={**os.environ, "TOOL": TOOL, **environment})

    def test_a_reader_that_has_enough_ends_the_output_quietly(self):
        for handler in (signal.SIG_DFL, signal.SIG_IGN):
            process = subprocess.Popen(
                [TOOL, "text", self.folder / "a.rtf"], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                preexec_fn=lambda: signal.signal(signal.SIGPIPE, handler))
            self.assertEqual(process.stdout.read(6), b"a long")
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            process.stderr.close()
            self.assertEqual(process.wait(), 0)

    def test_a_closed_standard_output_is_quiet(self):
        result = self.through_shell('"$TOOL" text a.rtf >&-')
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_a_full_disk_is_told(self):
        result = self.through_shell('"$TOOL" text a.rtf >/dev/full')
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, r"^quillmarker: standard output: .+\n$")

    def test_messages_do_not_get_into_a_report_when_standard_error_is_closed(self):
        self.write("more.json", '{"[A]": "x", "[B]": "missing"}')
        result = self.through_shell('"$TOOL" build t.rtf more.json -o o.txt 2>&- >&- <&-')
        self.assertEqual(result.returncode, 3)
        self.assertEqual(self.read("o.txt"), b"x")

    def test_a_closed_standard_input_is_empty(self):
        result = self.through_shell('"$TOOL" text - <&-')
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_messages_and_text_do_not_depend_on_the_locale(self):
        command = '"$TOOL" build t.rtf d.json -o - --format txt; "$TOOL" text none'
        texts = {self.through_shell(command, LC_ALL=name).stderr for name in ("C", "C.UTF-8", "none_such")}
        self.assertEqual(texts, {"quillmarker: none: the file does not exist\n"})

    def test_output_may_be_appended(self):
        result = self.through_shell('echo first >o; "$TOOL" build t.rtf d.json -o - --format txt >>o')
        self.assertEqual(result.returncode, 0)
        self.assertEqual(self.read("o"), b"first\nx")


if __name__ == "__main__":
    unittest.main()
