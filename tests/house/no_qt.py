"""Qt is not reached from the folders that say "no Qt", not even through another header. Usage: no_qt.py ROOT"""

import re
import sys

from includes import includes_of, resolved, sources_below

NO_QT = ["include/quillmarker", "src/engine/document", "src/engine/rtf", "src/engine/box", "src/content"]

# Public headers of the libraries that stand on Qt.
QT_PUBLIC = ["include/quillmarker/pages", "include/quillmarker/widgets", "include/quillmarker/rich_text_editor.h"]

# <QString>, <QtGui/QFont>, <QtCore>, <qglobal.h>
QT_HEADER = re.compile(r"(?:.*/)?Q[A-Z]\w*|Qt[A-Z]\w*(?:/.*)?|q[a-z]+\.h")


def way_to_qt(root, source, seen):
    """The chain of includes from this file to a Qt header, or None."""
    if source in seen:
        return None
    seen.add(source)
    for line, name, target in includes_of(root, source):
        if target is None:
            if QT_HEADER.fullmatch(name):
                return [f"{source}:{line}", name]
        else:
            rest = way_to_qt(root, target, seen)
            if rest:
                return [f"{source}:{line}", *rest]
    return None


def main():
    root = resolved(sys.argv[1])
    sources = sources_below(root, NO_QT)
    if not sources:
        sys.exit("no sources found: the check looks in the wrong place")
    sources = [source for source in sources if not any(source.is_relative_to(folder) for folder in QT_PUBLIC)]
    found = [way for way in (way_to_qt(root, source, set()) for source in sources) if way]
    print("\n".join(" -> ".join(way) for way in found) or "no Qt where there may be none")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
