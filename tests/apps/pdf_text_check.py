"""What pdftotext reads in our PDF is what `quillmarker text --visible --numbers` says, but for white space.

Every file of the corpus (where QUILLMARKER_CORPUS names one) and of examples/ is asked. Some characters cannot come back
the same, whatever the file:
- no font of this machine has them: what is drawn is an empty box;
- they are drawn in another shape that stands for them (an Arabic letter in its place in the word, a composed character):
  both sides are compared as Unicode's compatibility form;
- capitals are drawn where the format asks for them;
- a soft hyphen is drawn at a line's end only, and marks of direction never.
What differs beyond that has a row in EXCEPTIONS, with its reason.
"""

import collections
import concurrent.futures
import functools
import os
import pathlib
import subprocess
import sys
import unicodedata
import unittest

from tool import SAMPLE, ToolTest

SOFT_HYPHEN = "\u00ad"
OWN_CORPUS = SAMPLE.parent

# How what was drawn may differ from the text.
SIGNS = {"signs"}      # a font of signs: a letter or a bullet of the text is drawn as the sign it stands for
ORDER = {"order"}      # pdftotext sorts the words of right-to-left lines anew, and mirrors brackets
MORE = {"more"}        # pictures hold text
BROKEN = {"broken"}    # half a surrogate pair is no character: the text says so, and nothing can be drawn
NO_FONT = {"no font"}  # a bullet of a font of signs in a font that has no such character

EXCEPTIONS = {
    "Issue53.rtf": SIGNS,
    "List.rtf": SIGNS,
    "RtfParserTest_5.rtf": SIGNS,
    "RtfParserTest_8.rtf": SIGNS,
    "Test01.rtf": SIGNS,
    "bullet_list.rtf": SIGNS,
    "lists.rtf": SIGNS,
    "nested_lists_indents_word.rtf": NO_FONT,
    "old3_from_web.rtf": MORE | SIGNS,
    "symbol.rtf": SIGNS,
    "ted_mixed_faces.rtf": SIGNS,
    "source.rtf": SIGNS,
    "wmf_source.rtf": MORE,
    "testRTFEmbeddedFiles.rtf": MORE,
    "testRTFEmbeddedLink.rtf": MORE,
    "testRTFInvalidUnicode.rtf": BROKEN,
    "testRTFTIKA_2899.rtf": SIGNS,
    "10465.rtf": SIGNS,
    "Action 1.rtf": ORDER,
    "ZWJ and ZWNJ as hh escapes.rtf": ORDER,
    "amira.rtf": ORDER,
    "bug7012.rtf": SIGNS | MORE,  # a no-break space is a sign too
    "ltrmark and rtlmark.rtf": ORDER,
    "re_w11_9hebrewlunardate.rtf": ORDER,
    "w11_w11_Background.rtf": ORDER,
    "w11_w11_BordersAndShading.rtf": ORDER,
    "w11_w11_Captions.rtf": ORDER,
    "w11_w11_DateandTime.rtf": ORDER,
    "w11_w11_EnvelopesandLabels.rtf": ORDER,
    "w11_w11_Field.rtf": ORDER,
    "w11_w11_FootnotesandEndnote.rtf": ORDER,
    "w11_w11_Formulas.rtf": MORE,
    "w11_w11_Horizontal_Line.rtf": ORDER,
    "w11_w11_Index.rtf": ORDER,
    "w11_w11_InsertObject.rtf": MORE,
    "w11_w11_Kashida.rtf": ORDER,
    "w11_w11_Tabs_arabic.rtf": ORDER,
    "w11_w11_bullet11.rtf": NO_FONT,
    "w11_w11_clipgalobje0ww8.rtf": MORE,
    "w11_w11_fore0ww8.rtf": SIGNS,
}

# What the letters of the files above stand for in their fonts of signs.
SIGN_OF = {
    "\u00b7": "\u2022", "-": "\u2212", "o": "\u25a1\u03bf", "5": "\u2022",
    "S": "\u03a3", "a": "\u03b1", "b": "\u03b2", "c": "\u03c7", "l": "\u03bb",
    "m": "\u03bc", "p": "\u03c0", "y": "\u03c8",
}

# Fonts that have a ligature twice name it by its place among their own characters.
NAMED_OTHERWISE = {"\uf001": "fi", "\uf002": "fl"}


@functools.cache
def drawable():
    """The characters that some font of this machine has."""
    listed = subprocess.run(["fc-list", ":", "charset"], capture_output=True, text=True, check=True).stdout
    found = bytearray(sys.maxunicode + 1)
    for part in set(listed.replace(":charset=", "").split()):
        first, _, last = part.partition("-")
        for character in range(int(first, 16), int(last or first, 16) + 1):
            found[character] = 1
    return found


def is_sign(character):
    """Fonts of signs have them where Unicode has no characters of its own. The first one is a blank."""
    return 0xF021 <= ord(character) <= 0xF0FF


def compatible(character):
    """A shape's letters, or the letter that looks the same; signs that are more than one letter stay themselves."""
    plain = unicodedata.normalize("NFKC", character)
    return plain if len(plain) == 1 or "\ufb00" <= character <= "\ufeff" else character


def comparable(text):
    kept = "".join(c for c in text if c == SOFT_HYPHEN or unicodedata.category(c) not in ("Cf", "Cc", "Zs", "Zl", "Zp"))
    return unicodedata.normalize("NFC", "".join(map(compatible, kept)))


def what_should_be_drawn(text):
    return comparable("".join(c for c in text if drawable()[ord(c)] or is_sign(c)))


def is_same(drawn, character, exception):
    return drawn == character or drawn == character.upper() or is_sign(character) or \
        (SIGNS <= exception and drawn in SIGN_OF.get(character, ""))


def letters(text):
    """How often each is there: a bracket stands for the other one too, a bullet for its sign."""
    return collections.Counter(text.replace(SOFT_HYPHEN, "").translate(str.maketrans(")\uf0b7", "(\u2022")).casefold())


def difference(drawn, text, exception):
    """Where two texts part; empty when they do not."""
    if ORDER <= exception:
        more, less = letters(drawn) - letters(text), letters(text) - letters(drawn)
        return f"drawn too much {ascii(dict(more))}, too little {ascii(dict(less))}" if more or less else ""
    at = 0
    for i, character in enumerate(text):
        if character == SOFT_HYPHEN:
            at += drawn[at:at + 1] == "-" and text[i + 1:i + 2] != "-"
            continue
        if character == "\ufffd" and BROKEN <= exception:
            continue
        if is_sign(character) and NO_FONT <= exception and drawn[at:at + 1] == text[i + 1:i + 2]:
            continue
        while MORE <= exception and at < len(drawn) and not is_same(drawn[at], character, exception):
            at += 1
        if at == len(drawn) or not is_same(drawn[at], character, exception):
            return f"drawn {drawn[max(0, at - 20):at]!a} then {drawn[at:at + 20]!a}, the text has {text[i:i + 20]!a}"
        at += 1
    return "" if at == len(drawn) or MORE <= exception else f"drawn too much: {drawn[at:at + 60]!a}"


def what_is_drawn(text):
    return comparable("".join(NAMED_OTHERWISE.get(character, character) for character in text))


class PdfText(ToolTest):
    def difference(self, file, exception):
        pdf = self.run_tool("convert", file, "-", "--format", "pdf")
        text = self.run_tool("text", "--visible", "--numbers", file)
        if pdf.returncode != 0 or text.returncode != 0:
            return (pdf.stderr + text.stderr).decode()
        drawn = subprocess.run(["pdftotext", "-raw", "-", "-"], input=pdf.stdout, capture_output=True, timeout=120)
        if drawn.stderr:
            return drawn.stderr.decode()
        return difference(what_is_drawn(drawn.stdout.decode()), what_should_be_drawn(text.stdout.decode()), exception)

    def check(self, folder):
        files = sorted(path for path in folder.rglob("*") if path.suffix.lower() == ".rtf" and path.is_file())
        self.assertTrue(files, f"no files in {folder}")
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            exceptions = [EXCEPTIONS.get(file.name, set()) for file in files]
            found = list(pool.map(self.difference, files, exceptions))
        told = [f"{file.relative_to(folder)}: {difference}" for file, difference in zip(files, found) if difference]
        self.assertEqual(told, [])
        return files

    def test_our_own_samples(self):
        self.check(OWN_CORPUS)

    @unittest.skipUnless(os.environ.get("QUILLMARKER_CORPUS"), "QUILLMARKER_CORPUS names no folder of real files")
    def test_the_corpus(self):
        files = self.check(pathlib.Path(os.environ["QUILLMARKER_CORPUS"]))
        unknown = EXCEPTIONS.keys() - {file.name for file in files}
        self.assertEqual(unknown, set(), "exceptions for files that are not there")


if __name__ == "__main__":
    unittest.main()
