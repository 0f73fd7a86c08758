"""Whoever installs the package can use it: installs the build, then configures, builds and runs consumer projects.

Usage: consumer.py --build BUILD --consumer FOLDER... --cmake CMAKE --compiler CXX --build-type TYPE [--flags FLAGS]
                   [--tool]
"""

import argparse
import os
import pathlib
import subprocess
import sys
import tempfile


def run(*command, **options):
    print("+", " ".join(map(str, command)), flush=True)
    return subprocess.run(list(map(str, command)), text=True, stdin=subprocess.DEVNULL, **options)


def configure(options, consumer, prefix, build):
    return run(
        options.cmake, "-S", consumer, "-B", build, "-G", "Ninja",
        f"-DCMAKE_PREFIX_PATH={prefix}", f"-DCMAKE_CXX_COMPILER={options.compiler}",
        f"-DCMAKE_BUILD_TYPE={options.build_type}", f"-DCMAKE_CXX_FLAGS={options.flags}",
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


def check_consumer(options, consumer, prefix, build):
    result = configure(options, consumer, prefix, build)
    print(result.stdout)
    result.check_returncode()
    run(options.cmake, "--build", build, check=True)
    run(build / "consumer", check=True, cwd=build)


def check_unknown_component(options, prefix, work):
    """Asking for what there is not fails, and says so."""
    project = work / "unknown"
    project.mkdir()
    (project / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(Unknown LANGUAGES CXX)\n"
        "find_package(Quillmarker REQUIRED COMPONENTS Nowhere)\n")
    result = configure(options, project, prefix, work / "unknown-build")
    if result.returncode == 0 or 'no component "Nowhere"' not in " ".join(result.stdout.split()):
        print(result.stdout)
        sys.exit("an unknown component was not refused in plain words")


def check_nothing_of_ours_leaks(prefix):
    """The package hands on no warning flags, no sanitizers, and no path of the tree it was built in."""
    for file in prefix.rglob("*.cmake"):
        text = file.read_text()
        for word in ("-Wall", "-Werror", "-fsanitize", "build_options", str(pathlib.Path(__file__).parents[2])):
            if word in text:
                sys.exit(f"{file.name} hands on {word}")


def check_tool(prefix):
    """The installed tool finds the installed library."""
    environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    run(prefix / "bin" / "quillmarker", "--version", check=True, env=environment)


def main():
    parser = argparse.ArgumentParser()
    for name in ("build", "cmake", "compiler", "build-type"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("--consumer", required=True, nargs="+", type=pathlib.Path)
    parser.add_argument("--flags", default="")
    parser.add_argument("--tool", action="store_true")
    options = parser.parse_args()

    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        prefix = work / "prefix"
        run(options.cmake, "--install", options.build, "--prefix", prefix, check=True, stdout=subprocess.DEVNULL)
        for consumer in options.consumer:
            check_consumer(options, consumer, prefix, work / consumer.name)
        check_unknown_component(options, prefix, work)
        check_nothing_of_ours_leaks(prefix)
        if options.tool:
            check_tool(prefix)
    return 0


if __name__ == "__main__":
    sys.exit(main())
