"""Core prints nothing and ends no process: its binaries may not need the functions that do.

Usage: core_is_silent.py [--asserts] --nm NM BINARY...    --asserts: a build in which assert() is on

Writing to a file of one's own (fwrite, ofstream, write) is fine; the standard streams cannot be named without a symbol
of theirs, and those are on the list.
"""

import argparse
import re
import subprocess
import sys

FORBIDDEN = re.compile(
    # the standard streams of C and C++, and the object that every user of <iostream> starts
    r"stdin|stdout|stderr"
    r"|_ZSt[34]?(?:w?cin|w?cout|w?cerr|w?clog)|_ZNSt8ios_base4InitC[12]Ev"
    # what prints without naming a stream
    r"|v?w?printf|__v?w?printf_chk|puts|putchar|putchar_unlocked|putwchar|perror|psignal|psiginfo"
    r"|v?syslog|__v?syslog_chk|openlog|v?warnx?|v?errx?|error|error_at_line"
    # what ends the process
    r"|exit|_exit|_Exit|quick_exit|abort|raise|kill")
ASSERT = re.compile(r"__assert_fail|__assert_perror_fail|_ZSt\d+__glibcxx_assert_fail\w+")

# Every C++ program of any size asks for memory; if nothing does, we are looking at nothing.
EVER_PRESENT = "_Znwm"


def needed_symbols(nm, binary):
    dynamic = [] if binary.endswith((".a", ".o")) else ["-D"]
    lines = subprocess.run(
        [nm, "-u", *dynamic, binary], check=True, capture_output=True, text=True).stdout.splitlines()
    return {line.split()[-1].split("@")[0] for line in lines if " U " in line or " w " in line}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--nm", required=True)
    parser.add_argument("--asserts", action="store_true")
    parser.add_argument("binaries", nargs="+")
    options = parser.parse_args()

    status = 0
    for binary in options.binaries:
        needed = needed_symbols(options.nm, binary)
        if EVER_PRESENT not in needed:
            print(f"{binary}: not even operator new is needed; are these the objects of Core?")
            status = 1
        for symbol in sorted(needed):
            if FORBIDDEN.fullmatch(symbol) or (ASSERT.fullmatch(symbol) and not options.asserts):
                print(f"{binary}: needs {symbol}")
                status = 1
    if status == 0:
        print("Core is silent")
    return status


if __name__ == "__main__":
    sys.exit(main())
