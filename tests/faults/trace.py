"""Watching and disturbing the system calls of a command with strace."""

import os
import re

CALLS = "write,pwrite64,fsync,fdatasync,ftruncate,rename,renameat,renameat2,link,linkat,unlink,unlinkat"
RECORDED = CALLS + ",openat"

LINE = re.compile(r"^(?:\d+ +)?(\w+)\((.*)\) += (-?\d+)(.*)$")
UNFINISHED = " <unfinished ...>"
RESUMED = re.compile(r"^\d+ +<\.\.\. \w+ resumed>(.*)$")
DESCRIPTOR = re.compile(r"^(\d+)<((?:\\x[0-9a-f]{2})*)>$")


def count_calls(home, words, log):
    """How many of the calls of interest a command makes."""
    home.run(words, ["strace", "-f", "-qq", "-e", "trace=" + CALLS, "-o", str(log)])
    with open(log, encoding="ascii", errors="replace") as file:
        return sum(1 for line in file if LINE.match(line))


def killed_at(number):
    """Runs a command until just before the N-th call of interest."""
    return ["strace", "-f", "-qq", "-e", "trace=" + CALLS, "-e", f"inject={CALLS}:signal=KILL:when={number}", "-o",
            "/dev/null"]


def killed_at_file(number, paths, log="/dev/null"):
    """Runs a program until just before the N-th call of interest on one of these files."""
    files = [word for path in paths for word in ("-P", str(path))]
    return ["strace", "-f", "-qq", *files, "-e", "trace=" + CALLS, "-e", f"inject={CALLS}:signal=KILL:when={number}",
            "-o", str(log)]


def failing_at(number, error, for_ever):
    """Lets the N-th call of interest fail, or it and all after it."""
    when = f"{number}+" if for_ever else str(number)
    return ["strace", "-f", "-qq", "-e", "trace=" + CALLS, "-e", f"inject={CALLS}:error={error}:when={when}", "-o",
            "/dev/null"]


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
