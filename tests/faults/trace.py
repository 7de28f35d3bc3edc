"""Watching and disturbing the system calls of a command with strace."""

import os
import pathlib
import re

CALLS = "write,pwrite64,fsync,fdatasync,ftruncate,rename,renameat,renameat2,link,linkat,unlink,unlinkat"
RECORDED = CALLS + ",openat"

LINE = re.compile(r"^(?:\d+ +)?(\w+)\((.*)\) += (-?\d+)(.*)$")
UNFINISHED = " <unfinished ...>"
RESUMED = re.compile(r"^\d+ +<\.\.\. \w+ resumed>(.*)$")
DESCRIPTOR = re.compile(r"^(\d+)<((?:\\x[0-9a-f]{2})*)>$")


class Call:
    """A call of interest in the course of a program. strace counts the calls of every name by themselves."""

    def __init__(self, name, before):
        self.name = name
        self.before = dict(before)  # how many there were of every name before this one

    def __str__(self):
        return f"{self.name} {self.ordinal()}"

    def ordinal(self):
        return self.before.get(self.name, 0) + 1


def calls(home, words, log):
    """The calls of interest that a command makes, in order."""
    home.run(words, watching(log))
    return calls_in(log)


def watching(log, paths=()):
    """Notes the calls of interest, or those on some files, for `calls_in`."""
    return ["strace", "-f", "-qq", *only_on(paths), "-e", "trace=" + CALLS, "-o", str(log)]


def only_on(paths):
    return [word for path in paths for word in ("-P", str(path))]


def calls_in(log):
    found, counts = [], {}
    for line in whole_lines(log):
        match = LINE.match(line)
        if match:
            found.append(Call(match.group(1), counts))
            counts[match.group(1)] = counts.get(match.group(1), 0) + 1
    return found


def killed_at(call, paths=()):
    """Runs a program until just before a call, which was counted among those on some files when there are any."""
    return ["strace", "-f", "-qq", *only_on(paths), "-e", "trace=" + CALLS, "-e",
            f"inject={call.name}:signal=KILL:when={call.ordinal()}", "-o", "/dev/null"]


def failing_at(call, error, for_ever, log="/dev/null"):
    """Lets a call fail, or it and all after it."""
    if for_ever:
        failing = [f"{name}:error={error}:when={call.before.get(name, 0) + 1}+" for name in CALLS.split(",")]
    else:
        failing = [f"{call.name}:error={error}:when={call.ordinal()}"]
    injected = [word for each in failing for word in ("-e", "inject=" + each)]
    return ["strace", "-f", "-qq", "-e", "trace=" + CALLS, *injected, "-o", str(log)]


def was_injected(log):
    return "(INJECTED)" in pathlib.Path(log).read_text(encoding="ascii", errors="replace")


def _bytes(text):
    return bytes.fromhex(text.replace("\\x", ""))


def _path(text):
    return os.fsdecode(_bytes(text))


def recording(log):
    """Notes the file operations of a program, for `operations_below`."""
    return ["strace", "-f", "-qq", "-y", "-xx", "-s", "20000000", "-e", "trace=" + RECORDED, "-o", str(log)]


def record(home, words, log):
    """The file operations of a command below its home."""
    home.run(words, recording(log))
    return operations_below(home.path, log)


def operations_below(path, log):
    """The recorded file operations below a folder, in order: tuples whose first member names the operation."""
    operations = []
    for line in whole_lines(log):
        found = LINE.match(line)
        if found and int(found.group(3)) >= 0:
            operation = _operation(found.group(1), found.group(2), found.group(3))
            if operation and operation[1].startswith(str(path)):
                operations.append(operation)
    return operations


def whole_lines(log):
    """Calls that other threads interrupted are put together, where they ended."""
    begun = {}
    with open(log, encoding="ascii", errors="replace") as file:
        for line in map(str.strip, file):
            thread = line.split(" ", 1)[0]
            if line.endswith(UNFINISHED):
                begun[thread] = line.removesuffix(UNFINISHED)
            elif resumed := RESUMED.match(line):
                yield begun.pop(thread, "") + resumed.group(1)
            else:
                yield line


def _unlinked(parts):
    """A name may be one in a folder that is open."""
    folder = DESCRIPTOR.match(parts[0])
    name = _path(parts[1 if len(parts) > 1 else 0].strip('"'))
    return os.path.join(_path(folder.group(2)), name) if folder else name


def _operation(call, arguments, result):
    parts = arguments.split(", ")
    if call == "openat":
        path = _path(parts[1].strip('"'))
        if "O_CREAT" in parts[2]:
            return ("create", path, "O_TRUNC" in parts[2])
        return None
    if call in ("unlink", "unlinkat"):
        return ("unlink", _unlinked(parts))
    if call.startswith(("rename", "link")):
        names = [_path(part.strip('"')) for part in parts if part.startswith('"')]
        return ("rename" if call.startswith("rename") else "link", names[0], names[1])
    descriptor = DESCRIPTOR.match(parts[0])
    if not descriptor:
        return None
    path = _path(descriptor.group(2))
    if call in ("fsync", "fdatasync"):
        return ("sync", path)
    if call == "ftruncate":
        return ("truncate", path, int(parts[1]))
    data = _bytes(parts[1].strip('"'))[:int(result)]
    return ("write", path, data, int(parts[3]) if call == "pwrite64" else None)


def sockets(log):
    """Notes the sockets that a command and its children ask for."""
    return ["strace", "-f", "-qq", "-e", "trace=socket", "-o", str(log)]
