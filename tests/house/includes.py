"""The includes of our own files, found where the build would find them."""

import pathlib
import re

SUFFIXES = {".h", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"(?P<quoted>[^"]+)"|<(?P<angled>[^>]+)>)', re.MULTILINE)


def sources_below(root, folders):
    """Our C++ files in these folders, as paths relative to the root."""
    return sorted(
        path.relative_to(root)
        for folder in folders
        for path in (root / folder).rglob("*")
        if path.suffix in SUFFIXES)


def includes_of(root, source):
    """(line, name, target) of each include; target is the included file of ours, or None if it is not ours.

    A name in angle brackets is looked for in include/; a quoted one also beside the file and in src/."""
    text = (root / source).read_text(encoding="utf-8")
    for match in INCLUDE.finditer(text):
        line = text.count("\n", 0, match.start(match.lastgroup)) + 1
        name = match[match.lastgroup]
        places = [root / "include"]
        if match.lastgroup == "quoted":
            places = [root / source.parent, root / "src", root / "include"]
        yield line, name, first_found(root, places, name)


def first_found(root, places, name):
    for place in places:
        file = (place / name).resolve()
        if file.is_file() and file.is_relative_to(root):
            return file.relative_to(root)
    return None


def folder_of(source, folders):
    """The row of a table of folders that this file belongs to: the longest that fits, or None."""
    fits = [folder for folder in folders if source.is_relative_to(folder)]
    return max(fits, key=len, default=None)


def resolved(root):
    return pathlib.Path(root).resolve()
