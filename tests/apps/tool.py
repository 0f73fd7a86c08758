"""What the scripts here share: the program, a folder of its own for each test, and the sample report."""

import os
import pathlib
import subprocess
import tempfile
import unittest

TOOL = os.environ["QUILLMARKER_TOOL"]
SAMPLE = pathlib.Path(__file__).resolve().parents[2] / "examples" / "report"


class ToolTest(unittest.TestCase):
    """Runs the program in an empty folder."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def read(self, name):
        return (self.folder / name).read_bytes()

    def run_tool(self, *arguments, stdin=b"", **options):
        return subprocess.run([TOOL, *map(str, arguments)], input=stdin, capture_output=True, cwd=self.folder,
                              timeout=120, **options)

    def expect(self, code, *arguments, stdin=b"", stdout=None, stderr=None):
        """Runs the program; `stdout` and `stderr` are what it should write, as text, if that matters."""
        result = self.run_tool(*arguments, stdin=stdin)
        told = f"{arguments}\n{result.stdout[:2000]!r}\n{result.stderr.decode()[:2000]}"
        self.assertEqual(result.returncode, code, told)
        if stdout is not None:
            self.assertEqual(result.stdout.decode(), stdout, told)
        if stderr is not None:
            self.assertEqual(result.stderr.decode(), stderr, told)
        return result

    def expect_complaint(self, code, text, *arguments, stdin=b""):
        """The program writes nothing but one line on standard error, which holds `text`."""
        result = self.expect(code, *arguments, stdin=stdin, stdout="")
        message = result.stderr.decode()
        self.assertIn(text, message)
        self.assertTrue(message.startswith("quillmarker: "), message)
        self.assertEqual(message.count("\n"), 1, message)
        self.assertTrue(message.endswith("\n"), message)

    def files(self):
        """The names of all files below the test's folder, hidden ones too."""
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*") if path.is_file())
