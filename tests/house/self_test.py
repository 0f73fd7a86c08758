"""Each check of the house can fail: given a tree with one fault, it must name it; given a good one, it must pass."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

HOUSE = pathlib.Path(__file__).resolve().parent
ROOT = HOUSE.parent.parent
COMPILER = os.environ.get("CXX_FOR_SELF_TEST", "c++")
NM = os.environ.get("NM_FOR_SELF_TEST", "nm")
CMAKE = os.environ.get("CMAKE_FOR_SELF_TEST", "cmake")


class Tree(unittest.TestCase):
    """A tiny tree in a temporary folder, good until a test adds its fault."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        self.write("include/quillmarker/report.h", "#pragma once\n#include <string>\n")
        self.write("src/engine/document/tree.h", "#pragma once\n#include <quillmarker/report.h>\n")
        self.write("src/engine/rtf/reader.cpp", '#include "engine/document/tree.h"\n')
        self.write("src/content/insertion.cpp", '#include "engine/document/tree.h"\n#include <unicode/uchar.h>\n')
        self.write("apps/quillmarker/main.cpp", "#include <quillmarker/report.h>\n")

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def run_check(self, script, *arguments):
        return subprocess.run([sys.executable, str(HOUSE / script), *map(str, arguments)],
                              capture_output=True, text=True)

    def expect_pass(self, script, *arguments):
        result = self.run_check(script, *(arguments or [self.root]))
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def expect_fault(self, words, script, *arguments):
        result = self.run_check(script, *(arguments or [self.root]))
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertIn(words, result.stdout)


class IncludeDirection(Tree):
    script = "include_direction.py"

    def test_passes_a_good_tree(self):
        self.expect_pass(self.script)

    def test_fails_when_the_document_includes_the_reader(self):
        self.write("src/engine/rtf/reader.h", "")
        self.write("src/engine/document/tree.cpp", '\n#include "engine/rtf/reader.h"\n')
        self.expect_fault("src/engine/document/tree.cpp:2: src/engine/document may not include src/engine/rtf/reader.h",
                          self.script)

    def test_fails_when_the_way_round_is_spelled_with_dots(self):
        self.write("src/engine/rtf/reader.h", "")
        self.write("src/engine/document/tree.cpp", '#  include "../rtf/reader.h"\n')
        self.expect_fault("may not include src/engine/rtf/reader.h", self.script)

    def test_fails_when_one_subsystem_includes_another(self):
        self.write("src/ruler/stops.h", "")
        self.write("src/content/insertion.h", '#include "ruler/stops.h"\n')
        self.expect_fault("src/content may not include src/ruler/stops.h", self.script)

    def test_fails_when_a_public_header_includes_a_private_one(self):
        self.write("include/quillmarker/box.h", '#include "engine/document/tree.h"\n')
        self.expect_fault("include/quillmarker may not include src/engine/document/tree.h", self.script)

    def test_fails_when_a_public_header_includes_a_library(self):
        self.write("include/quillmarker/box.h", "#include <unicode/uchar.h>\n")
        self.expect_fault("a public header includes unicode/uchar.h", self.script)

    def test_fails_when_the_tool_reaches_inside(self):
        self.write("apps/quillmarker/check.cpp", '#include "engine/document/tree.h"\n')
        self.expect_fault("apps/quillmarker may not include src/engine/document/tree.h", self.script)

    def test_fails_when_an_include_is_not_there(self):
        self.write("src/engine/rtf/writer.cpp", '#include "engine/document/gone.h"\n')
        self.expect_fault("engine/document/gone.h is not there", self.script)

    def test_fails_when_a_folder_has_no_row(self):
        self.write("src/helpers/misc.h", "")
        self.expect_fault("src/helpers/misc.h: its folder has no row", self.script)


class NoQt(Tree):
    script = "no_qt.py"

    def test_passes_a_good_tree(self):
        self.expect_pass(self.script)

    def test_passes_qt_where_it_may_be(self):
        self.write("src/engine/view/caret.cpp", "#include <QWidget>\n")
        self.expect_pass(self.script)

    def test_fails_on_every_spelling(self):
        for name in ("QString", "QtCore", "QtGui/QFont", "qglobal.h"):
            with self.subTest(name):
                self.write("src/content/insertion.cpp", f"#include <{name}>\n")
                self.expect_fault(f"src/content/insertion.cpp:1 -> {name}", self.script)

    def test_fails_when_qt_comes_through_another_header(self):
        self.write("src/engine/platform/clipboard.h", "#include <QClipboard>\n")
        self.write("src/content/insertion.cpp", '#include "engine/platform/clipboard.h"\n')
        self.expect_fault("src/content/insertion.cpp:1 -> src/engine/platform/clipboard.h:1 -> QClipboard", self.script)


class CoreIsSilent(Tree):
    script = "core_is_silent.py"
    memory = "int* NewNumber() { return new int; }\n"

    def object_of(self, text):
        self.write("core.cpp", text)
        made = self.root / "core.o"
        # Against any hardening the surroundings ask for, which renames printf: both names are forbidden.
        subprocess.run([COMPILER, "-std=c++20", "-O1", "-c", str(self.root / "core.cpp"), "-o", str(made)], check=True)
        return made

    def test_passes_what_only_formats_and_writes_files(self):
        made = self.object_of(self.memory + "#include <cstdio>\n"
                              "void Save(std::FILE* file, char* text) { std::snprintf(text, 9, \"%d\", *text);"
                              " std::fwrite(text, 1, 9, file); }\n")
        self.expect_pass(self.script, "--nm", NM, made)

    def test_fails_on_what_prints_or_exits(self):
        for symbol, text in {
                "stderr": '#include <cstdio>\nvoid Bad() { std::fputs("x", stderr); }',
                "puts": '#include <cstdio>\nvoid Bad() { std::puts("x"); }',
                "printf": '#include <cstdio>\nvoid Bad(int x) { std::printf("%d", x); }',
                "_ZSt4cout": '#include <iostream>\nvoid Bad() { std::cout << 1; }',
                "_ZSt4cerr": '#include <iostream>\nvoid Bad() { std::cerr << 1; }',
                "_ZSt4clog": '#include <iostream>\nvoid Bad() { std::clog << 1; }',
                "exit": '#include <cstdlib>\nvoid Bad() { std::exit(1); }',
                "_exit": '#include <unistd.h>\nvoid Bad() { _exit(1); }',
                "quick_exit": '#include <cstdlib>\nvoid Bad() { std::quick_exit(1); }',
                "abort": '#include <cstdlib>\nvoid Bad() { std::abort(); }',
                "syslog": '#include <syslog.h>\nvoid Bad() { syslog(1, "x"); }',
                "__assert_fail": '#undef NDEBUG\n#include <cassert>\nvoid Bad(int x) { assert(x); }',
        }.items():
            with self.subTest(symbol):
                self.expect_fault(f"needs {symbol}", self.script, "--nm", NM, self.object_of(self.memory + text + "\n"))

    def test_passes_an_assert_where_asserts_are_on(self):
        made = self.object_of(self.memory + "#undef NDEBUG\n#include <cassert>\nvoid Check(int x) { assert(x); }\n")
        self.expect_pass(self.script, "--asserts", "--nm", NM, made)

    def test_fails_when_there_is_nothing_to_look_at(self):
        self.expect_fault("not even operator new", self.script, "--nm", NM, self.object_of("int x;\n"))


class Words(Tree):
    script = "words.py"

    def test_passes_a_good_tree(self):
        for folder in ("work", "home"):
            with self.subTest(folder):
                self.write("docs/a.md", f"See docs/{folder}/b.md, ~/{folder}/x and example.org/{folder}/.\n")
                self.expect_pass(self.script)

    def test_fails_on_paths_of_one_machine(self):
        for folder in ("work", "home", "root", "Users"):
            with self.subTest(folder):
                self.write("docs/a.md", f"one\nsee /{folder}/x\n")
                self.expect_fault("docs/a.md:2: a path of one machine", self.script)

    def test_fails_inside_a_file_that_is_not_text(self):
        (self.root / "sample.bin").write_bytes(b"\0\xff\n/" + b"home/\xfe")
        self.expect_fault("sample.bin:2: a path of one machine", self.script)

    def test_fails_on_the_marks_of_a_merge(self):
        self.write("docs/a.md", "<" * 7 + " HEAD\n")
        self.expect_fault("docs/a.md:1: the marks of an unfinished merge", self.script)

    def test_looks_only_at_what_git_tracks_or_would(self):
        subprocess.run(["git", "init", "-q", str(self.root)], check=True)
        self.write(".gitignore", "/build/\n")
        self.write("build/log.txt", "/" + "home/\n")
        self.expect_pass(self.script)
        self.write("new.txt", "/" + "home/\n")
        self.expect_fault("new.txt:1", self.script)


class HeadersAlone(Tree):
    def build(self):
        self.write("CMakeLists.txt",
                   "cmake_minimum_required(VERSION 3.25)\nproject(Alone LANGUAGES CXX)\n"
                   f'include("{ROOT}/cmake/QuillmarkerHeadersAlone.cmake")\n'
                   'quillmarker_headers_alone(alone HEADERS "${PROJECT_SOURCE_DIR}/include" '
                   'INCLUDES "${PROJECT_SOURCE_DIR}/include")\n')
        build = self.root / "build"
        subprocess.run([CMAKE, "-S", str(self.root), "-B", str(build), "-G", "Ninja",
                        f"-DCMAKE_CXX_COMPILER={COMPILER}"], check=True, capture_output=True)
        return subprocess.run([CMAKE, "--build", str(build)], capture_output=True, text=True)

    def test_passes_headers_that_name_what_they_need(self):
        result = self.build()
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_fails_on_a_header_that_leans_on_another(self):
        self.write("include/quillmarker/leaning.h", "#pragma once\nstd::string Name();\n")
        result = self.build()
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("leaning.h:2", result.stdout)

    def test_fails_on_a_header_without_a_guard(self):
        self.write("include/quillmarker/twice.h", "struct Once {};\n")
        result = self.build()
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("twice.h:1", result.stdout)


if __name__ == "__main__":
    unittest.main(verbosity=2)
