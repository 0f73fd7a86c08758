"""What the README shows works: its commands on the sample report, its program with the public headers."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

from tool import SAMPLE, TOOL, ToolTest

ROOT = SAMPLE.parents[1]
README = (ROOT / "README.md").read_text(encoding="utf-8")


def blocks(language):
    found = re.findall(rf"^```{language}\n(.*?)^```", README, re.MULTILINE | re.DOTALL)
    assert found, f"the README has no {language}"
    return found


class Readme(ToolTest):
    def test_its_commands_work_on_the_sample_report(self):
        shutil.copytree(SAMPLE, self.folder, dirs_exist_ok=True)
        path = os.pathsep.join([str(pathlib.Path(TOOL).parent), os.environ["PATH"]])
        for command in "".join(blocks("sh")).splitlines():
            with self.subTest(command):
                result = subprocess.run(["/bin/sh", "-c", command], cwd=self.folder, capture_output=True, text=True,
                                        stdin=subprocess.DEVNULL, env={**os.environ, "PATH": path})
                self.assertEqual(result.returncode, 0, result.stderr)
        self.assertTrue({"report.rtf", "report.txt", "clean.rtf", "out/A-2024-105.rtf"} <= set(self.files()))

    def test_its_programs_compile(self):
        qt = [f"-idirafter{folder}" for folder in os.environ.get("QUILLMARKER_QT_INCLUDES", "").split(",") if folder]
        for number, program in enumerate(blocks("cpp")):
            with self.subTest(number):
                needsQt = "<Q" in program
                if needsQt and not qt:
                    self.skipTest("this build has no Qt widgets")
                self.write("host.cpp", program)
                result = subprocess.run(
                    [os.environ["QUILLMARKER_CXX"], "-std=c++20", "-fsyntax-only", "-fPIC", "-Wall", "-Werror",
                     *(qt if needsQt else []), f"-I{ROOT / 'include'}", "host.cpp"],
                    cwd=self.folder, capture_output=True, text=True)
                self.assertEqual(result.returncode, 0, result.stderr)

    def test_its_links_lead_somewhere(self):
        for target in re.findall(r"\]\(([^)#]+)\)", README):
            with self.subTest(target):
                self.assertTrue((ROOT / target).exists())


if __name__ == "__main__":
    unittest.main()
