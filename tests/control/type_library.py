"""Reads a type library in the "MSFT" format, as far as the names, ids, kinds, flags and parameters of functions."""

import struct
from typing import NamedTuple

HEADER = 0x54
HELP_LIBRARY = 0x100  # in the header's flags: one more number follows the header
TYPE_INFO_SEGMENT, IMPORT_SEGMENT, GUID_SEGMENT, NAME_SEGMENT, TYPE_SEGMENT = 0, 1, 5, 7, 9

POINTER, USER_DEFINED = 26, 29
TYPES = {2: "short", 3: "Long", 4: "Single", 8: "String", 9: "Object", 11: "Boolean", 24: "void", 25: "HRESULT"}

PARAMETER_IN, PARAMETER_OUT, PARAMETER_RESULT = 1, 2, 8


class Parameter(NamedTuple):
    name: str
    flags: int
    type: str  # with a * for each level of reference


class Function(NamedTuple):
    name: str
    id: int
    kind: int  # 1 method, 2 property get, 4 property put
    flags: int
    vtable_offset: int
    parameters: tuple


class TypeInfo(NamedTuple):
    name: str
    kind: int  # 3 interface, 4 dispinterface, 5 coclass
    flags: int
    guid: str
    functions: tuple


class TypeLibrary:
    def __init__(self, data):
        if data[:4] != b"MSFT":
            raise ValueError("no type library")
        self.data = data
        self.version = self.number(0x18)
        count = self.number(0x20)
        table = HEADER + (4 if self.number(0x14) & HELP_LIBRARY else 0)
        self.segments = [self.number(table + 4 * count + 16 * index) for index in range(15)]
        self.name = self.name_at(self.number(0x38))
        self.guid = self.guid_at(self.number(0x08))
        offsets = [self.number(table + 4 * index) for index in range(count)]
        infos = [self.type_info(self.segments[TYPE_INFO_SEGMENT] + offset) for offset in offsets]
        self.types = {info.name: info for info in infos}

    def type_at(self, data):
        """A type is a number, or stands in the segment of types; what comes from elsewhere goes by its GUID."""
        if data < 0:
            return TYPES[data & 0x7FFF]
        entry = self.segments[TYPE_SEGMENT] + data
        kind = self.short(entry) & 0x7FFF
        if kind == POINTER:
            return self.type_at(self.number(entry + 4)) + "*"
        if kind == USER_DEFINED:
            imported = self.segments[IMPORT_SEGMENT] + (self.number(entry + 4) & ~3)
            return self.guid_at(self.number(imported + 8))
        return TYPES[kind]

    def number(self, offset):
        return struct.unpack_from("<i", self.data, offset)[0]

    def short(self, offset):
        return struct.unpack_from("<H", self.data, offset)[0]

    def name_at(self, offset):
        """What a property is set to has no name."""
        if offset == -1:
            return ""
        start = self.segments[NAME_SEGMENT] + offset
        length = self.data[start + 8]
        return self.data[start + 12:start + 12 + length].decode("ascii")

    def guid_at(self, offset):
        start = self.segments[GUID_SEGMENT] + offset
        first, second, third = struct.unpack_from("<IHH", self.data, start)
        rest = self.data[start + 8:start + 16].hex()
        return f"{first:08x}-{second:04x}-{third:04x}-{rest[:4]}-{rest[4:]}"

    def type_info(self, offset):
        functions = self.functions(self.number(offset + 0x04), self.short(offset + 0x18))
        return TypeInfo(self.name_at(self.number(offset + 0x34)), self.data[offset] & 0xF, self.number(offset + 0x30),
                        self.guid_at(self.number(offset + 0x2C)), functions)

    def functions(self, offset, count):
        if count == 0:
            return ()
        record = offset + 4
        ids = record + self.number(offset)
        names = ids + 4 * count
        found = []
        for index in range(count):
            found.append(Function(self.name_at(self.number(names + 4 * index)), self.number(ids + 4 * index),
                                  self.number(record + 0x10) >> 3 & 0xF, self.short(record + 0x08),
                                  self.short(record + 0x0C), self.parameters(record)))
            record += self.short(record)
        return tuple(found)

    def parameters(self, record):
        count = self.short(record + 0x14)
        first = record + self.short(record) - 12 * count
        return tuple(Parameter(self.name_at(self.number(place + 4)), self.number(place + 8),
                               self.type_at(self.number(place)))
                     for place in range(first, first + 12 * count, 12))
