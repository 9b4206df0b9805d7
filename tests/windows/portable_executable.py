"""Reads what a 64-bit Windows program or DLL says of itself: its imports, exports and resources."""

import pathlib
import struct

EXPORTS, IMPORTS, RESOURCES, DELAYED_IMPORTS = 0, 1, 2, 13  # entries of the directory


class PortableExecutable:
    def __init__(self, path):
        self.content = pathlib.Path(path).read_bytes()
        header, = self.unpack("<I", 0x3C)
        if self.content[header:header + 4] != b"PE\0\0":
            raise ValueError(f"{path} is no Windows file")
        self.machine, sections, optional_size, self.flags = self.unpack("<HH12xHH", header + 4)
        optional = header + 24
        count, = self.unpack("<I", optional + 108)
        self.directory = [self.unpack("<II", optional + 112 + 8 * i) for i in range(count)]
        self.sections = [self.unpack("<4I", optional + optional_size + 40 * i + 8) for i in range(sections)]

    def unpack(self, layout, offset):
        return struct.unpack_from(layout, self.content, offset)

    def offset_of(self, address):
        """Where the byte that will be loaded to `address` lies in the file."""
        for size, start, raw_size, raw in self.sections:
            if start <= address < start + max(size, raw_size):
                return address - start + raw
        raise ValueError(f"no section holds {address:#x}")

    def text_at(self, address):
        offset = self.offset_of(address)
        return self.content[offset:self.content.index(b"\0", offset)].decode("ascii")

    def imported_libraries(self):
        if self.directory[DELAYED_IMPORTS][0]:
            raise ValueError("there are delayed imports")
        at, found = self.offset_of(self.directory[IMPORTS][0]), []
        while True:
            name, = self.unpack("<12xI", at)
            if name == 0:
                return found
            found.append(self.text_at(name))
            at += 20

    def exports(self):
        """Names with the ordinals and addresses that they stand for."""
        if not self.directory[EXPORTS][0]:
            return {}
        table = self.offset_of(self.directory[EXPORTS][0])
        base, functions, names, addresses, name_list, ordinals = self.unpack("<16x6I", table)
        if functions != names:
            raise ValueError(f"{functions} functions have {names} names")
        found = {}
        for i in range(names):
            name, = self.unpack("<I", self.offset_of(name_list) + 4 * i)
            index, = self.unpack("<H", self.offset_of(ordinals) + 2 * i)
            address, = self.unpack("<I", self.offset_of(addresses) + 4 * index)
            found[self.text_at(name)] = (base + index, address)
        return found

    def resources(self):
        """Contents by (type, id, language). A type or id is a number or a text."""
        root = self.offset_of(self.directory[RESOURCES][0])
        return dict(self.resources_below(root, 0, ()))

    def resources_below(self, root, node, path):
        named, numbered = self.unpack("<12xHH", root + node)
        for i in range(named + numbered):
            key, child = self.unpack("<II", root + node + 16 + 8 * i)
            if key & 0x80000000:
                length, = self.unpack("<H", root + (key & 0x7FFFFFFF))
                start = root + (key & 0x7FFFFFFF) + 2
                key = self.content[start:start + 2 * length].decode("utf-16-le")
            if child & 0x80000000:
                yield from self.resources_below(root, child & 0x7FFFFFFF, path + (key,))
            else:
                address, size = self.unpack("<II", root + child)
                start = self.offset_of(address)
                yield path + (key,), self.content[start:start + size]
