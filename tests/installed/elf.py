"""Reads what a 64-bit little-endian ELF file says about how it is loaded. Standard library only."""

import pathlib
import struct

PT_LOAD, PT_DYNAMIC, PT_NOTE, PT_GNU_STACK, PT_GNU_RELRO = 1, 2, 4, 0x6474E551, 0x6474E552
PF_EXECUTE, PF_WRITE = 1, 2
DT_NEEDED, DT_RPATH, DT_TEXTREL, DT_BIND_NOW, DT_RUNPATH, DT_FLAGS, DT_FLAGS_1 = 1, 15, 22, 24, 29, 30, 0x6FFFFFFB
DF_TEXTREL, DF_BIND_NOW, DF_1_NOW, DF_1_PIE = 4, 8, 1, 0x08000000
SHT_SYMTAB, SHT_STRTAB, SHT_NOTE, SHT_DYNSYM = 2, 3, 7, 11
SHF_EXECUTE = 4
X86_64 = 62
X86_FEATURES = 0xC0000002  # the property that says whether all parts have control-flow protection


class Elf:
    """The segments, dynamic entries and symbols of one file."""

    def __init__(self, path):
        self.data = pathlib.Path(path).read_bytes()
        if self.data[:6] != b"\x7fELF\x02\x01":
            raise ValueError(f"{path} is no 64-bit little-endian ELF file")
        self.type, self.machine = struct.unpack_from("<HH", self.data, 16)
        entry, segments, sections = struct.unpack_from("<QQQ", self.data, 24)
        segment_count, _, section_count, names = struct.unpack_from("<HHHH", self.data, 56)
        self.segments = [self._segment(segments + 56 * i) for i in range(segment_count)]
        self.sections = [self._section(sections + 64 * i) for i in range(section_count)]
        for section in self.sections:
            section["name"] = self._text(self.sections[names]["offset"] + section["name"])
        self.dynamic = self._dynamic()

    def _segment(self, at):
        kind, flags, offset, address, _, size, memory = struct.unpack_from("<IIQQQQQ", self.data, at)
        return {"type": kind, "flags": flags, "offset": offset, "address": address, "size": size, "memory": memory}

    def _section(self, at):
        name, kind, flags, address, offset, size, link = struct.unpack_from("<IIQQQQI", self.data, at)
        return {"name": name, "type": kind, "flags": flags, "address": address, "offset": offset, "size": size,
                "link": link}

    def _text(self, at):
        return self.data[at:self.data.index(b"\0", at)].decode()

    def _dynamic(self):
        found = {}
        for segment in self.with_type(PT_DYNAMIC):
            for at in range(segment["offset"], segment["offset"] + segment["size"], 16):
                tag, value = struct.unpack_from("<QQ", self.data, at)
                if tag == 0:
                    break
                found.setdefault(tag, value)
        return found

    def with_type(self, kind):
        """The segments of this type."""
        return [segment for segment in self.segments if segment["type"] == kind]

    def bytes_of(self, name):
        """What the section of this name holds."""
        for section in self.sections:
            if section["name"] == name:
                return self.data[section["offset"]:section["offset"] + section["size"]]
        return b""

    def symbols(self, table):
        """(name, type, binding, section, address) of every symbol in the tables of this type."""
        for section in self.sections:
            if section["type"] != table:
                continue
            names = self.sections[section["link"]]["offset"]
            for at in range(section["offset"], section["offset"] + section["size"], 24):
                name, info, _, index, address, _ = struct.unpack_from("<IBBHQQ", self.data, at)
                yield self._text(names + name), info & 15, info >> 4, index, address

    def at(self, section, address, count):
        """So many bytes at an address in the section of this number."""
        start = self.sections[section]["offset"] + address - self.sections[section]["address"]
        return self.data[start:start + count]

    def x86_features(self):
        """The bits of the control-flow property: 1 indirect branches, 2 shadow stack."""
        note = self.bytes_of(".note.gnu.property")
        at = 16  # behind sizes, type and the name "GNU"
        while at + 8 <= len(note):
            kind, size = struct.unpack_from("<II", note, at)
            if kind == X86_FEATURES:
                return struct.unpack_from("<I", note, at + 8)[0]
            at += 8 + (size + 7) // 8 * 8
        return 0
