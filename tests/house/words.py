"""What may not stand in any file of the project. Usage: words.py ROOT

The patterns are put together from pieces, so that this file passes its own check.
"""

import os
import pathlib
import re
import subprocess
import sys


def absolute(*folders):
    return rb"(?<![\w.~)}>])/(?:" + "|".join(folders).encode() + rb")/"


FORBIDDEN = {
    "a path of one machine": absolute("work", "home", "root", "Users", "mnt", "media"),
    "a path of one Windows machine": rb"[A-Za-z]:\\+" + rb"(?:Users|Documents and Settings)\\",
    "a private key": b"-----BEGIN [A-Z ]*PRIVATE " + b"KEY-----",
    "the marks of an unfinished merge": rb"^(?:<{7} |>{7} |\|{7} )",
}


def files_of(root):
    """What git tracks or would; outside of git, everything but what builds write."""
    listing = subprocess.run(
        ["git", "-c", "safe.directory=*", "-C", str(root), "ls-files", "-z", "-co", "--exclude-standard"],
        capture_output=True)
    if listing.returncode == 0:
        names = [os.fsdecode(name) for name in listing.stdout.split(b"\0") if name]
        return sorted(name for name in names if (root / name).is_file())
    return sorted(
        str(path.relative_to(root)) for path in root.rglob("*")
        if path.is_file() and path.relative_to(root).parts[0] not in ("build", ".git"))


def faults(root, files):
    for name in files:
        data = (root / name).read_bytes()
        for what, pattern in FORBIDDEN.items():
            for match in re.finditer(pattern, data, re.MULTILINE):
                line = data.count(b"\n", 0, match.start()) + 1
                yield f"{name}:{line}: {what}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    files = files_of(root)
    if not files:
        sys.exit("no files found: the check looks in the wrong place")
    found = list(faults(root, files))
    print("\n".join(found) or f"{len(files)} files hold nothing that may not stand in the project")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
