"""An IDL compiler makes a type library of the description of the interface, without a word, and what can be read in that
is the interface. Usage: type_library_check.py QuillmarkerEd.idl"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

from type_library import PARAMETER_OUT, PARAMETER_RESULT, TypeLibrary

HERE = pathlib.Path(__file__).resolve().parent
COMPILERS = ["widl", "x86_64-w64-mingw32-widl"]
KINDS = {1: "method", 2: "get", 4: "put"}
PICTURE = "7bf80981-bf32-101a-8bbb-00aa00300cab*"
NONBROWSABLE = 0x400
DISPATCH_INTERFACE, CLASS = 4, 5
# A pointer has 8 bytes; those of IUnknown and IDispatch come first.
SLOT, INHERITED_SLOTS = 8, 7


def compiled(compiler, source, library, folder):
    result = subprocess.run(
        [compiler, "-t", "--nostdinc", "-I", HERE / "imports", "-L", folder, "-o", library, source],
        cwd=folder, text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if result.returncode != 0 or result.stdout:
        sys.exit(f"{compiler} on {source}: {result.returncode}\n{result.stdout}")
    return library


def described_parameter(parameter):
    is_reference = parameter.flags & PARAMETER_OUT
    kind = parameter.type.removesuffix("*") if is_reference else parameter.type
    words = ["ByRef"] if is_reference else []
    words.append("Picture" if kind == PICTURE else kind)
    if parameter.name:
        words.append(parameter.name)
    return " ".join(words)


def described(function, kind):
    inputs = [parameter for parameter in function.parameters if not parameter.flags & PARAMETER_RESULT]
    line = f"{function.name} {kind} {function.id:X} ({', '.join(map(described_parameter, inputs))})"
    for result in function.parameters[len(inputs):]:
        line += f" -> {result.type.removesuffix('*')}"
    return line + (" nonbrowsable" if function.flags & NONBROWSABLE else "")


def check(library):
    members = library.types["_RichTextEditor"]
    events = library.types["__RichTextEditor"]
    found = [described(function, KINDS[function.kind]) for function in members.functions]
    found += [described(function, "event") for function in events.functions]
    wanted = (HERE / "interface.txt").read_text().splitlines()
    faults = [f"read {line!r}, wanted {want!r}" for line, want in zip(found, wanted) if line != want]
    if len(found) != len(wanted):
        faults.append(f"read {len(found)} members and events, wanted {len(wanted)}")
    offsets = [function.vtable_offset for function in members.functions]
    if offsets != [SLOT * (INHERITED_SLOTS + row) for row in range(len(offsets))]:
        faults.append(f"the function table has the offsets {offsets}")
    kinds = [library.types[name].kind for name in ("_RichTextEditor", "__RichTextEditor", "RichTextEditor")]
    if kinds != [DISPATCH_INTERFACE, DISPATCH_INTERFACE, CLASS]:
        faults.append(f"the types are of the kinds {kinds}")
    if (library.name, library.version) != ("QuillmarkerEd", 1):
        faults.append(f"the library is {library.name}, version {library.version:#x}")
    guids = {library.guid, *(info.guid for info in library.types.values())}
    if len(guids) != 4:
        faults.append(f"the identifiers are not four different ones: {guids}")
    return faults


def main():
    compiler = next(filter(None, map(shutil.which, COMPILERS)), None)
    if compiler is None:
        sys.exit("no IDL compiler: scripts/setup test installs one")
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        compiled(compiler, HERE / "imports" / "stdole2.idl", folder / "stdole2.tlb", folder)
        made = compiled(compiler, pathlib.Path(sys.argv[1]).resolve(), folder / "QuillmarkerEd.tlb", folder)
        faults = check(TypeLibrary(made.read_bytes()))
    print("\n".join(faults) or "the type library holds the interface")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
