"""A home folder of the program, what its commands do to it, and what it holds."""

import hashlib
import json
import os
import pathlib
import shutil
import sqlite3
import subprocess

DATABASES = ["Hourwright Data 1", "Hourwright Data 2", "Hourwright Expenses", "Hourwright Clients",
             "Hourwright Projects", "Hourwright Tasks", "Hourwright Contacts", "Hourwright Rates"]
FILES = ["hourwright.db", "settings.db"]
NOW = "2026-11-18 09:00:00"
# These keep what was written before a failure; all other exports appear whole or not at all.
GROWING_EXPORTS = ["csv", "expenses", "xml"]


def environment(**more):
    return {"PATH": os.environ["PATH"], "LC_ALL": "C", "HOME": "/nonexistent", **more}


class Home:
    """Runs hwctl on a folder. All commands think it is the same moment, so runs can be compared. In a command's words
    "{home}" is the folder."""

    def __init__(self, hwctl, path):
        self.hwctl = hwctl
        self.path = pathlib.Path(path)

    def command(self, words):
        words = [word.replace("{home}", str(self.path)) for word in words]
        return [str(self.hwctl), "--home", str(self.path), "--now", NOW, "--locale", "C", "--yes", *words]

    def run(self, words, prefix=(), **options):
        """The finished process of a command; `prefix` is what it runs under."""
        return subprocess.run([*prefix, *self.command(words)], env=environment(), stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False, **options)

    def must(self, words):
        done = self.run(words)
        if done.returncode != 0:
            raise RuntimeError(f"{words}: exit {done.returncode}: {done.stderr.decode(errors='replace')}")
        return done.stdout.decode()

    def content(self):
        """A digest of every row of both files; None when they cannot be read. What a killed writer has left behind
        must have been mended before (`check`)."""
        digest = hashlib.sha256()
        try:
            for name in FILES:
                if (self.path / name).exists():
                    add_rows(digest, self.path / name)
        except sqlite3.Error:
            return None
        return digest.hexdigest()

    def content_of(self, name):
        """A digest of every row of one file; None when it cannot be read."""
        digest = hashlib.sha256()
        try:
            add_rows(digest, self.path / name)
        except sqlite3.Error:
            return None
        return digest.hexdigest()

    def files_beside(self):
        """The bytes of every file beside the records."""
        return {file.name: file.read_bytes() for file in self.path.iterdir() if file.is_file()}

    def told(self):
        """Everything that is stored as the program itself tells it; None when something cannot be read."""
        texts = []
        for words in [["registry", "dump"], ["history"], *(["store", "dump", name] for name in DATABASES)]:
            done = self.run(words)
            if done.returncode != 0:
                return None
            texts.append(done.stdout)
        return b"\n".join(texts)

    def check(self):
        """What `store check` exits with, and reading the settings after it; negative when ended by a signal."""
        return self.run(["store", "check"]).returncode or self.run(["registry", "dump"]).returncode

    def exports(self):
        """The bytes of every file below "exports" by its name."""
        folder = self.path / "exports"
        return {file.name: file.read_bytes() for file in folder.iterdir() if file.is_file()} if folder.exists() else {}

    def copies(self):
        """The names of the copies of the records; None when one is not sound or they cannot be told."""
        if not (self.path / "copies").exists():
            return []
        done = self.run(["--json", "store", "copies", "--verify"])
        copies = json.loads(done.stdout or "null")
        if copies is None or not all(copy["sound"] for copy in copies):
            return None
        return [copy["name"] for copy in copies]

    def copy_to(self, path):
        shutil.rmtree(path, ignore_errors=True)
        shutil.copytree(self.path, path, symlinks=True)
        return Home(self.hwctl, path)

    def files(self):
        """The bytes of every regular file below the folder by its path."""
        return {str(file): file.read_bytes() for file in self.path.rglob("*") if file.is_file()}


# A window that is told to end keeps its place and the kind of period it shows, wherever those come to stand.
SETTINGS = """SELECT key, name, type, data, checksum FROM value
              WHERE name NOT IN ('WindowPlace', 'View') ORDER BY key, name"""
QUERIES = {b"value": SETTINGS}


def add_rows(digest, path):
    connection = sqlite3.connect(path)
    connection.text_factory = bytes
    try:
        tables = connection.execute("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name").fetchall()
        for (name,) in tables:
            digest.update(name)
            for row in connection.execute(QUERIES.get(name, f'SELECT * FROM "{name.decode()}"')):
                digest.update(repr(row).encode())
    finally:
        connection.close()


class Step:
    """One command of the session with the home before it, and content and exported files before and after."""

    def __init__(self, words, before, after):
        self.words = words
        self.before = before
        self.content_before = before.content()
        self.content_after = after.content()
        self.exports_before = before.exports()
        self.exports_after = after.exports()
        self.copies_before = before.copies()
        self.copies_after = after.copies()
        self.name = " ".join(words).replace("{home}/", "")

    def may_grow(self):
        """True for an export that keeps what was written before a failure."""
        return self.words[0] == "export" and self.words[1] in GROWING_EXPORTS


def judge(step, home, exit_code):
    """What is wrong with a home after a fault in this step; None when all is well. The exit code is None when the
    command was interrupted."""
    if exit_code is not None and exit_code < 0 and exit_code != -9:
        return f"ended by signal {-exit_code}"
    if home.check() != 0:
        return "store check finds damage"
    content = home.content()
    if content not in (step.content_before, step.content_after):
        return "neither the state before nor the one after"
    if exit_code == 0 and content != step.content_after:
        return "acknowledged but lost"
    copies = home.copies()
    if copies != step.copies_after and (exit_code == 0 or copies != step.copies_before):
        return f"copies are {copies}"
    return judge_exports(step, home.exports(), exit_code)


def judge_exports(step, found, exit_code):
    if exit_code == 0:
        return None if found == step.exports_after else "an export that was called done is not there as it should be"
    for name in [*step.exports_before, *step.exports_after]:
        data, whole = found.get(name), step.exports_after[name]
        if data in (step.exports_before.get(name), whole) or (step.may_grow() and whole.startswith(data)):
            continue
        return f"{name} is neither as before nor whole"
    return None
