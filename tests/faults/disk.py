"""A disk that keeps what was synchronised and may lose or tear all the rest."""

SECTOR = 512


class Inode:
    """A file: what is surely on the disk, and the writes since the last sync."""

    def __init__(self, data=b""):
        self.durable = bytearray(data)
        self.pending = []
        self.length = len(data)

    def sync(self):
        for change in self.pending:
            apply_change(self.durable, change)
        self.pending.clear()


def apply_change(data, change):
    kind, value, offset = change
    if kind == "truncate":
        del data[value:]
        data.extend(bytes(value - len(data)))
        return
    if len(data) < offset:
        data.extend(bytes(offset - len(data)))
    data[offset:offset + len(value)] = value


class Disk:
    """Files by path. With `ignore_syncs` it is a disk that lies: nothing is ever surely there."""

    def __init__(self, files, ignore_syncs=False):
        self.durable_names = {path: Inode(data) for path, data in files.items()}
        self.names = dict(self.durable_names)
        self.pending_names = []
        self.ignore_syncs = ignore_syncs

    def play(self, operation):
        kind, path = operation[0], operation[1]
        if kind == "create":
            if path not in self.names:
                self._set(path, Inode())
            elif operation[2]:
                self._change(path, ("truncate", 0, None))
        elif kind == "unlink":
            self._set(path, None)
        elif kind == "rename":
            self._rename(path, operation[2])
        elif kind == "link":
            self._set(operation[2], self.names.get(path))
        elif kind == "sync":
            self._sync(path)
        elif kind == "truncate":
            self._change(path, ("truncate", operation[2], None))
        elif path in self.names:
            inode = self.names[path]
            offset = inode.length if operation[3] is None else operation[3]
            self._change(path, ("write", operation[2], offset))

    def _rename(self, path, name):
        if path in self.names:
            inode = self.names.get(path)
            self._set(path, None)
            self._set(name, inode)
            return
        changes = []  # a folder, whose files go with it at once
        for below in [below for below in self.names if below.startswith(path + "/")]:
            changes += [(below, None), (name + below[len(path):], self.names[below])]
        self._set_all(changes)

    def _set(self, path, inode):
        self._set_all([(path, inode)])

    def _set_all(self, changes):
        self.pending_names.append(changes)
        for path, inode in changes:
            self._settle(self.names, path, inode)

    def _change(self, path, change):
        inode = self.names.get(path)
        if inode is None:
            return
        inode.pending.append(change)
        inode.length = change[1] if change[0] == "truncate" else max(inode.length, change[2] + len(change[1]))

    def _sync(self, path):
        if self.ignore_syncs:
            return
        if path in self.names:
            self.names[path].sync()
            return
        for changed, inode in sum(self.pending_names, []):  # a folder
            self._settle(self.durable_names, changed, inode)
        self.pending_names.clear()

    @staticmethod
    def _settle(names, path, inode):
        if inode is None:
            names.pop(path, None)
        else:
            names[path] = inode

    def after_power_loss(self, random, mode):
        """The files that are found afterwards. `mode`: "nothing" of what was not synchronised arrived, "all" of it, or
        "some", in any order and torn between sectors."""
        names = dict(self.durable_names)
        for changes in self.pending_names:
            if mode == "all" or (mode == "some" and random.random() < 0.5):
                for path, inode in changes:
                    self._settle(names, path, inode)
        return {path: bytes(self._found(inode, random, mode)) for path, inode in names.items()}

    @staticmethod
    def _found(inode, random, mode):
        data = bytearray(inode.durable)
        for change in inode.pending:
            if mode == "nothing" or (mode == "some" and random.random() < 0.4):
                continue
            if mode == "some" and change[0] == "write" and random.random() < 0.3:
                change = (change[0], change[1][:random.randrange(0, len(change[1]) + 1) // SECTOR * SECTOR], change[2])
            apply_change(data, change)
        return data
