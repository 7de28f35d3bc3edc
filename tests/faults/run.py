"""What all classes of cases share, and how they end."""

import os
import pathlib
import random
import shutil

from home import Home, Step, judge


class Run:
    """The programs, the recorded session, and a folder and a source of chance that no other class uses."""

    def __init__(self, shared, name):
        self.long = shared.long
        self.most = shared.most
        self.hwctl = shared.hwctl
        self.hourwright = shared.hourwright
        self.steps = shared.steps
        self.random = random.Random(f"{shared.seed} {name}")
        self.folder = shared.folder / name
        self.folder.mkdir()
        self.work = self.folder / "work"

    def sample(self, cases, short, long=None):
        """An even choice of the cases: so many in the short form, and in the long one if it has a bound, else all."""
        cases, most = list(cases), long if self.long else short
        if self.most is not None:
            most = self.most if most is None else min(most, self.most)
        if most is None or len(cases) <= most:
            return cases
        return [cases[index * len(cases) // most] for index in range(most)]

    def begin(self, step):
        """The home before a step, where it may be spoiled."""
        return step.before.copy_to(self.work)

    def materialise(self, files):
        """A home with these files in the place where a recording was made."""
        home = Home(self.hwctl, self.work)
        for file in [file for file in self.work.rglob("*") if file.is_file()]:
            file.unlink()
        shutil.rmtree(self.work / "copies", ignore_errors=True)  # an empty folder there is a damaged copy
        for path, data in files.items():
            pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
            pathlib.Path(path).write_bytes(data)
        return home


class Result:
    """How many cases there were, what failed, and whether the control was found. Failures, and how far it is, are
    printed as they come."""

    name = ""  # of the class of cases that this process runs

    def __init__(self):
        self.cases = 0
        self.failures = []
        self.control = None
        self.note = ""

    def add(self, failure, name):
        self.cases += 1
        if failure:
            self.failures.append(f"{name}: {failure}")
        if failure and len(self.failures) <= 20:
            print(f"{Result.name}: {name}: {failure}", flush=True)
        if self.cases % 250 == 0:
            print(f"{Result.name}: {self.cases} cases, {len(self.failures)} failed", flush=True)

    def skip(self, reason):
        """There is nothing to try on this machine."""
        self.note = f"skipped: {reason}"
        self.control = True
        return self


def half_done_is_found(run):
    """Two commands taken for one, of which only the first was carried out, are neither before nor after."""
    first, second, third = run.steps[0:3]
    both = Step(["both"], first.before, third.before)
    return judge(both, second.before.copy_to(run.work), -9) is not None


def lie_is_found(run):
    """A command that says it is done and has done nothing."""
    step = run.steps[2]
    return judge(step, run.begin(step), 0) is not None and half_done_is_found(run)


def is_root():
    return os.getuid() == 0
