#!/usr/bin/env python3
"""Kills, cuts the power, fails calls, fills the disk and damages files, and looks whether anything was lost.

Every class of cases has a control: the same judgement on a state that is wrong on purpose, which must be found. Prints
one line a class and exits with 1 when a case failed or a control did not."""

import argparse
import os
import pathlib
import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time

from damage import DAMAGES
from disk import Disk
from home import Home, Step, judge, prepare_steps
import trace


class Run:
    """What all classes of cases share."""

    def __init__(self, options, folder):
        self.long = options.long
        self.random = random.Random(options.seed)
        self.folder = pathlib.Path(folder)
        # A copy, which other users can reach and which no build replaces meanwhile.
        self.hwctl = shutil.copy(options.hwctl, self.folder / "hwctl")
        self.work = self.folder / "work"
        self.steps = prepare_steps(self.hwctl, self.folder / "small", 0)
        if self.long:
            self.steps += prepare_steps(self.hwctl, self.folder / "large", 1500)

    def sample(self, cases, short):
        """All cases in the long form, an even choice of them in the short one."""
        cases = list(cases)
        if self.long or len(cases) <= short:
            return cases
        return [cases[index * len(cases) // short] for index in range(short)]

    def materialise(self, files):
        """A home with these files in the place where the recording was made."""
        home = Home(self.hwctl, self.work)
        for file in [file for file in self.work.rglob("*") if file.is_file()]:
            file.unlink()
        for path, data in files.items():
            pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
            pathlib.Path(path).write_bytes(data)
        return home


class Result:
    """How many cases there were, what failed, and whether the control was found."""

    def __init__(self):
        self.cases = 0
        self.failures = []
        self.control = None
        self.note = ""

    def add(self, failure, name):
        self.cases += 1
        if failure:
            self.failures.append(f"{name}: {failure}")


def kill_points(run):
    """kill -9 before every write, sync, rename and unlink."""
    result = Result()
    points = []
    for step in run.steps:
        calls = trace.count_calls(step.before.copy_to(run.work), step.words, run.folder / "log")
        points += [(step, number) for number in range(1, calls + 1)]
    for step, number in run.sample(points, 60):
        home = step.before.copy_to(run.work)
        done = home.run(step.words, trace.killed_at(number))
        result.add(judge(step, home, done.returncode), f"{' '.join(step.words)} killed at call {number}")
    result.control = half_done_is_found(run)
    return result


def half_done_is_found(run):
    """Two commands taken for one, of which only the first was carried out, are neither before nor after."""
    first, second = run.steps[0], run.steps[1]
    both = Step(["both"], first.before, first.content_before, second.content_after)
    return judge(both, second.before.copy_to(run.work), -9) is not None


def power_losses(run):
    """The recorded writes replayed up to each point, with what was not synchronised lost or torn."""
    result = Result()
    states = []
    for step in run.steps:
        home = step.before.copy_to(run.work)
        files = home.files()
        operations = trace.record(home, step.words, run.folder / "log")
        modes = ["nothing", "all", "some", "some", "some"] if len(operations) < 200 else ["nothing", "some"]
        every = max(1, len(operations) // 60)
        points = sorted({*range(0, len(operations), every), len(operations)})
        states += [(step, files, operations, point, mode) for point in points for mode in modes]
    for step, files, operations, point, mode in run.sample(states, 80):
        failure = after_power_loss(run, (step, files, operations), point, mode)
        result.add(failure, f"{' '.join(step.words)} at operation {point}, {mode} of the rest")
    result.control = lying_disk_is_found(run, states)
    return result


def after_power_loss(run, recording, point, mode, ignore_syncs=False):
    step, files, operations = recording
    disk = Disk(files, ignore_syncs)
    for operation in operations[:point]:
        disk.play(operation)
    home = run.materialise(disk.after_power_loss(run.random, mode))
    return judge(step, home, 0 if point == len(operations) else None)


def lying_disk_is_found(run, states):
    """On a disk that ignores syncs, something acknowledged is lost."""
    last = [state for state in states if state[3] == len(state[2]) and state[4] == "nothing"]
    return any(after_power_loss(run, state[:3], state[3], "nothing", ignore_syncs=True) for state in last[:6])


def call_errors(run):
    """The N-th call fails, once or for ever, with an I/O error or a full disk."""
    result = Result()
    cases = []
    for step in run.steps:
        calls = trace.count_calls(step.before.copy_to(run.work), step.words, run.folder / "log")
        cases += [(step, number, error, for_ever) for number in range(1, min(calls, 80) + 1)
                  for error in ("EIO", "ENOSPC") for for_ever in (False, True)]
    late = 0
    for step, number, error, for_ever in run.sample(cases, 80):
        home = step.before.copy_to(run.work)
        done = home.run(step.words, trace.failing_at(number, error, for_ever))
        failure = judge(step, home, done.returncode)
        late += not failure and done.returncode != 0 and home.content() == step.content_after
        result.add(failure, f"{' '.join(step.words)}: {error} at call {number}{'+' if for_ever else ''}")
    result.note = f"{late} changes were stored though a later call failed and the command said so"
    result.control = half_done_is_found(run)
    return result


def full_disks(run):
    """Every command on a disk with hardly any room left."""
    result = Result()
    mount = run.folder / "tmpfs"
    mount.mkdir()
    largest = max(sum(len(data) for data in step.before.files().values()) for step in run.steps)
    if not mounted(mount, largest):
        result.note = "skipped: mounting needs root"
        result.control = True
        return result
    try:
        for step, room in run.sample([(step, room) for step in run.steps for room in (0, 1, 2, 4, 8, 16)], 20):
            result.add(on_full_disk(run, mount, step, room), f"{' '.join(step.words)} with {room} pages left")
        result.control = half_done_is_found(run)
    finally:
        subprocess.run(["umount", str(mount)], check=False)
    return result


def mounted(mount, largest):
    size = largest // 1024 + 2048
    done = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}k", "tmpfs", str(mount)], check=False,
                          stderr=subprocess.DEVNULL)
    return done.returncode == 0


def on_full_disk(run, mount, step, pages):
    home = step.before.copy_to(mount / "home")
    free = os.statvfs(mount)
    filler = mount / "filler"
    with open(filler, "wb") as file:
        for _ in range(max(free.f_bavail - pages, 0)):
            file.write(bytes(free.f_bsize))
    code = home.run(step.words).returncode
    filler.unlink()
    failure = judge(step, home, code)
    if not failure and code != 0 and home.content() != step.content_before:
        failure = "refused but changed"
    return failure


def read_only(run):
    """A store that may not be written, in a folder that may not be written, by a user who is not root."""
    result = Result()
    user = 65534 if os.getuid() == 0 else None
    for step in run.sample(run.steps, 6):
        for mode_of_folder in (0o500, 0o700):
            home = step.before.copy_to(run.folder / "readonly")
            open_to(run.folder, home.path, user)
            for file in home.path.rglob("*"):
                file.chmod(0o500 if file.is_dir() else 0o400)
            home.path.chmod(mode_of_folder)
            code = home.run(step.words, **({"user": user} if user else {})).returncode
            home.path.chmod(0o700)
            for file in home.path.rglob("*"):
                file.chmod(0o700 if file.is_dir() else 0o600)
            failure = judge(step, home, code)
            if not failure and home.content() != step.content_before:
                failure = "changed although it may not be"
            result.add(failure, f"{' '.join(step.words)}, folder {mode_of_folder:o}")
    result.control = half_done_is_found(run)
    return result


def open_to(folder, path, user):
    if user is None:
        return
    folder.chmod(0o755)
    for file in [path, *path.rglob("*")]:
        os.chown(file, user, user)


def damaged_files(run):
    """Bit flips, other bytes, zeroed and swapped pages, truncations and foreign files: noticed, or without effect."""
    result = Result()
    step = max(run.steps, key=lambda step: len(step.content_before))
    content, store = step.content_before, step.before.path / "hourwright.db"
    original = store.read_bytes()
    for number in range(3000 if run.long else 60):
        damage = DAMAGES[number % len(DAMAGES)]
        home = step.before.copy_to(run.work)
        (home.path / "hourwright.db").write_bytes(damage(original, run.random))
        result.add(unnoticed(home, content), f"{damage.__name__} number {number}")
    home = step.before.copy_to(run.work)
    home.must(["entry", "add", "--task", "control", "--duration", "1"])
    result.control = unnoticed(home, content) is not None
    return result


def unnoticed(home, content):
    code = home.check()
    if code < 0:
        return f"store check was ended by signal {-code}"
    if code == 0 and home.content() != content:
        return "other content, and store check says nothing"
    for words in (["entry", "list", "--all"], ["entry", "add", "--task", "x", "--duration", "1"]):
        done = home.run(words)
        if done.returncode < 0:
            return f"{words[1]} was ended by signal {-done.returncode}"
    return None


def locked_store(run):
    """Another program holds the store for longer than the command waits."""
    result = Result()
    step = run.steps[2]
    home = step.before.copy_to(run.work)
    other = sqlite3.connect(home.path / "hourwright.db", isolation_level=None)
    other.execute("BEGIN EXCLUSIVE")
    began = time.monotonic()
    done = home.run(step.words)
    waited = time.monotonic() - began
    other.rollback()
    other.close()
    failure = judge(step, home, done.returncode)
    if done.returncode != 1 or not 3 < waited < 12 or home.content() != step.content_before:
        failure = failure or f"exit {done.returncode} after {waited:.1f} s"
    result.add(failure, "entry add while another holds the store")
    result.note = f"gave up after {waited:.1f} s: {done.stderr.decode().strip()}"
    result.control = home.run(step.words).returncode == 0
    return result


def many_writers(run):
    """Twenty programs write at once: every acknowledged entry is there, no id was given twice."""
    result = Result()
    for _ in range(5 if run.long else 1):
        home = run.steps[0].before.copy_to(run.work)
        acknowledged = []
        for _ in range(4):
            writers = [subprocess.Popen(home.command(["entry", "add", "--task", f"t{number}", "--client", f"c{number}",
                                                      "--duration", "1"]),
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) for number in range(20)]
            for writer in writers:
                printed = writer.communicate()[0]
                if writer.returncode == 0:
                    acknowledged.append(int(printed))
        stored = home.must(["entry", "list", "--all", "--json"]).count('"id":')
        lost = len(acknowledged) != len(set(acknowledged)) or stored != len(acknowledged) or home.check() != 0
        result.add(f"{len(acknowledged)} acknowledged, {stored} stored" if lost else None, "20 writers")
        result.note = f"{len(acknowledged)} of 80 acknowledged in the last round"
        result.control = stored != len(acknowledged) - 1
    return result


CLASSES = [("kill", kill_points), ("power", power_losses), ("errors", call_errors), ("full", full_disks),
           ("readonly", read_only), ("damage", damaged_files), ("locked", locked_store), ("writers", many_writers)]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--hwctl", required=True)
    parser.add_argument("--long", action="store_true", help="all cases instead of a choice of them")
    parser.add_argument("--only", choices=[name for name, _ in CLASSES])
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    wrong = 0
    with tempfile.TemporaryDirectory(prefix="hourwright-faults-") as folder:
        run = Run(options, folder)
        print(f"{'class':<10}{'cases':>7}{'failed':>8}  {'control':<9} seconds", flush=True)
        for name, function in CLASSES:
            if options.only in (None, name):
                wrong += report(name, function, run)
    return 1 if wrong else 0


def report(name, function, run):
    began = time.monotonic()
    result = function(run)
    found = "found" if result.control else "MISSED"
    print(f"{name:<10}{result.cases:>7}{len(result.failures):>8}  {found:<9}{time.monotonic() - began:8.1f}  {result.note}",
          flush=True)
    for failure in result.failures[:20]:
        print(f"    {failure}", flush=True)
    return len(result.failures) + (not result.control)


if __name__ == "__main__":
    sys.exit(main())
