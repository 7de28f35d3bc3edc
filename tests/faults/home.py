"""A home folder of the program, what its commands do to it, and what it holds."""

import os
import pathlib
import shutil
import subprocess

DATABASES = ["Hourwright Data 1", "Hourwright Data 2", "Hourwright Expenses", "Hourwright Clients",
             "Hourwright Projects", "Hourwright Tasks", "Hourwright Contacts", "Hourwright Rates"]
NOW = "2026-11-18 09:00:00"


class Home:
    """Runs hwctl on a folder. All commands think it is the same moment, so runs can be compared."""

    def __init__(self, hwctl, path):
        self.hwctl = hwctl
        self.path = pathlib.Path(path)

    def command(self, words):
        return [self.hwctl, "--home", str(self.path), "--now", NOW, "--locale", "C", "--yes", *words]

    def run(self, words, prefix=(), **options):
        """The finished process of a command; `prefix` is what it runs under."""
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C", "HOME": "/nonexistent"}
        return subprocess.run([*prefix, *self.command(words)], env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False, **options)

    def must(self, words):
        done = self.run(words)
        if done.returncode != 0:
            raise RuntimeError(f"{words}: exit {done.returncode}: {done.stderr.decode(errors='replace')}")
        return done.stdout.decode()

    def content(self):
        """Everything that is stored, as text; None when something cannot be read."""
        texts = []
        for words in [["registry", "dump"], *(["store", "dump", name] for name in DATABASES)]:
            done = self.run(words)
            if done.returncode != 0:
                return None
            texts.append(done.stdout)
        return b"\n".join(texts)

    def check(self):
        """What `store check` exits with; negative when it was ended by a signal."""
        return self.run(["store", "check"]).returncode

    def copy_to(self, path):
        shutil.rmtree(path, ignore_errors=True)
        shutil.copytree(self.path, path, symlinks=True)
        return Home(self.hwctl, path)

    def files(self):
        """The bytes of every regular file below the folder by its path."""
        return {str(file): file.read_bytes() for file in self.path.rglob("*") if file.is_file()}


# What a consultant's day does, one command after the other; every kind of writer is among them.
SESSION = [
    ["client", "add", "Acme"],
    ["rate", "add", "Acme", "--type", "normal", "--description", "Standard", "--rate", "80"],
    ["entry", "add", "--client", "Acme", "--project", "Site", "--task", "Review", "--duration", "1.5", "--rate", "80",
     "--status", "billable", "--note", "first"],
    ["entry", "add", "--client", "Acme", "--task", "Call", "--start", "09:00", "--end", "10:30", "--break", "0.25"],
    ["entry", "edit", "{entry}", "--phase", "Build", "--custom1", "x", "--duration", "2"],
    ["entry", "copy", "{entry}", "--rest-of-week", "--include-weekend"],
    ["expense", "add", "mileage", "--description", "Drive", "--start-odo", "100", "--distance", "42", "--amount",
     "0.42"],
    ["project", "add", "Acme", "Other", "Task"],
    ["entry", "toggle-billed", "{entry}"],
    ["bulk", "mark-paid", "--from", "2026-11-01", "--to", "2026-11-30"],
    ["bulk", "replace", "task", "Review", "Check"],
    ["settings", "set", "DefCurr", "EUR"],
    ["filter", "set", "--client", "Acme", "--hide", "paid"],
    ["project", "delete", "Acme", "Other"],
    ["entry", "delete", "{entry}"],
    ["bulk", "delete", "--from", "2026-11-19", "--to", "2026-11-30"],
    ["wipe", "structure", "--rates"],
    ["wipe", "all"],
]


class Step:
    """One command of the session with the home before it and the contents before and after."""

    def __init__(self, words, before, content_before, content_after):
        self.words = words
        self.before = before
        self.content_before = content_before
        self.content_after = content_after


def prepare_steps(hwctl, folder, demo_entries):
    """Plays the session once and keeps the home before every command."""
    home = Home(hwctl, folder / "session")
    home.path.mkdir(parents=True)
    if demo_entries:
        home.must(["demo", "--entries", str(demo_entries)])
    else:
        home.must(["store", "databases"])
        home.must(["settings", "set", "MinTime", "15"])
    steps, entry = [], None
    for number, template in enumerate(SESSION):
        words = [str(entry) if word == "{entry}" else word for word in template]
        before = home.copy_to(folder / f"before-{number}")
        content_before = home.content()
        printed = home.must(words).strip()
        if words[:2] == ["entry", "add"] and entry is None:
            entry = int(printed)
        steps.append(Step(words, before, content_before, home.content()))
    return steps


def judge(step, home, exit_code):
    """What is wrong with a home after a fault in this step; None when all is well."""
    if exit_code is not None and exit_code < 0 and exit_code != -9:
        return f"ended by signal {-exit_code}"
    if home.check() != 0:
        return "store check finds damage"
    content = home.content()
    if content not in (step.content_before, step.content_after):
        return "neither the state before nor the one after"
    if exit_code == 0 and content != step.content_after:
        return "acknowledged but lost"
    return None
