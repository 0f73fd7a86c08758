"""Includes point one way. Usage: include_direction.py ROOT

document <- rtf <- box <- {layout <- view}, platform <- content, format, ruler, print <- control <- apps
Public headers include public headers and the standard library only; the apps live on public headers, like any host.
"""

import re
import sys

from includes import folder_of, includes_of, resolved, sources_below

PUBLIC = "include/quillmarker"
PAGES = PUBLIC + "/pages"
WIDGETS = PUBLIC + "/widgets"
CONTROL = PUBLIC + "/rich_text_editor.h"
ENGINE = ["src/engine/document", "src/engine/rtf", "src/engine/box"]
SCREEN = ENGINE + [PAGES, WIDGETS, "src/engine/layout", "src/engine/view", "src/engine/platform"]
SUBSYSTEMS = ["src/content", "src/format", "src/ruler", "src/print"]

# What each folder may include beside itself and the public headers. The four subsystems know nothing of each other.
ALLOWED = {
    PUBLIC: [],
    PAGES: [PUBLIC],
    WIDGETS: [PUBLIC, PAGES],
    CONTROL: [WIDGETS],
    "src/engine/document": [],
    "src/engine/rtf": ENGINE[:1],
    "src/engine/box": ENGINE[:2],
    "src/engine/layout": ENGINE + [PAGES],
    "src/engine/view": ENGINE + ["src/engine/layout", "src/engine/platform", PAGES, WIDGETS],
    "src/engine/platform": ENGINE + [PAGES, WIDGETS],
    "src/content": SCREEN,
    "src/format": SCREEN,
    "src/ruler": SCREEN,
    "src/print": SCREEN,
    "src/control": SCREEN + SUBSYSTEMS + [CONTROL],
    "apps/quillmarker": [PAGES],
    "apps/report-desk": [PAGES, WIDGETS, CONTROL],
}

STANDARD_HEADER = re.compile(r"[a-z0-9_]+")


def faults(root):
    for source in sources_below(root, ["include", "src", "apps"]):
        home = folder_of(source, ALLOWED)
        if home is None:
            yield f"{source}: its folder has no row in the table of tests/house/include_direction.py"
            continue
        for line, name, target in includes_of(root, source):
            if target is None:
                if home == PUBLIC and not STANDARD_HEADER.fullmatch(name):
                    yield f"{source}:{line}: a public header includes {name}"
                elif name.startswith(("engine/", "quillmarker/", "../")):
                    yield f"{source}:{line}: {name} is not there"
                continue
            there = folder_of(target, ALLOWED)
            if there is None or there not in [home, PUBLIC, *ALLOWED[home]]:
                yield f"{source}:{line}: {home} may not include {target}"


def main():
    root = resolved(sys.argv[1])
    if not sources_below(root, ["include", "src"]):
        sys.exit("no sources found: the check looks in the wrong place")
    found = list(faults(root))
    print("\n".join(found) or "includes point one way")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
