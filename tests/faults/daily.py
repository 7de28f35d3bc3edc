"""The window's own copy of the day, interrupted."""

import datetime
import json
import pathlib
import shutil
import time

import trace
import window
from disk import Disk
from run import Result

# The window begins some seconds after its start; a busy machine takes its time.
PATIENCE = 90
AT_ONCE = 12
FILES = ["hourwright.db", "hourwright.db-journal", "settings.db", "settings.db-journal", "about.txt", "SHA256SUMS"]


def daily_copies(run):
    """kill -9 before every call on the copies, and the power cut at every point of the same: the records are as before,
    every copy that is listed is sound and holds what it did, and the next one clears up."""
    result = Result()
    days = Days(run)
    operations = record(run, days)
    points = points_of(run, days)
    chosen = run.sample(points, 3)
    for begin in range(0, len(chosen), AT_ONCE):
        for call, home in killed_homes(run, days, chosen[begin:begin + AT_ONCE]):
            result.add(days.wrong_with(home), f"the window killed before {call} of its copy")
    states = [(point, mode) for point in range(len(operations) + 1) for mode in ("nothing", "all", "some", "some")]
    for point, mode in run.sample(states, 8):
        home = after_power_loss(run, days, operations[:point], mode)
        result.add(days.wrong_with(home), f"power cut at operation {point} of the window's copy, {mode} of the rest")
    result.note = f"of {len(points)} points and {len(states)} states"
    result.control = days.half_copy_is_found(run) and lying_disk_is_found(run, days, operations)
    return result


class Days:
    """A home with copies of days before this one, of which the oldest is to go with the copy of this day."""

    def __init__(self, run):
        self.base = run.steps[-1].before.copy_to(run.folder / "days")
        shutil.rmtree(self.base.path / "copies", ignore_errors=True)
        self.contents = {}
        for day in days_before(datetime.date.today()):
            self.base.must(["entry", "add", "--task", str(day), "--duration", "1"])
            content = self.base.content_of("hourwright.db")
            self.contents[self.base.must(["store", "copy", "--now", f"{day} 09:00:00"]).strip()] = content
        self.base.must(["entry", "add", "--task", "in no copy", "--duration", "1"])
        self.content = self.base.content_of("hourwright.db")
        self.oldest = min(self.contents)

    def wrong_with(self, home):
        if home.check() != 0 or home.content_of("hourwright.db") != self.content:
            return "the records have changed"
        return self.wrong_copies(home) or self.not_cleared_up(home)

    def wrong_copies(self, home):
        done = home.run(["--json", "store", "copies", "--verify"])
        if done.returncode != 0:
            return f"store copies ends with {done.returncode}: {done.stdout}"
        names = {copy["name"] for copy in json.loads(done.stdout)}
        for name in names:
            if home.content_of(f"copies/{name}/hourwright.db") != self.contents.get(name, self.content):
                return f"{name} holds something else"
        missing, made = set(self.contents) - names, names - set(self.contents)
        if len(made) > 1 or not missing <= ({self.oldest} if made else set()):
            return f"there are {sorted(names)}"
        return None

    def not_cleared_up(self, home):
        done = home.run(["store", "copy"])
        if done.returncode != 0:
            return f"no other copy can be made: {done.stderr}"
        told = {copy["name"] for copy in json.loads(home.run(["--json", "store", "copies"]).stdout)}
        left = {path.name for path in (home.path / "copies").iterdir()} - told - {".lock"}
        return f"{left} are left" if left else None

    def half_copy_is_found(self, run):
        """A folder with the name of a copy that is filled half."""
        home = self.base.copy_to(run.work)
        half = home.path / "copies" / f"{datetime.date.today()}_10-00-00"
        shutil.copytree(home.path / "copies" / self.oldest, half)
        (half / "SHA256SUMS").unlink()
        return self.wrong_with(home) is not None


def days_before(today):
    """Two of one week and month, and the last five; more than are kept as days together with this one."""
    day = today - datetime.timedelta(days=10)
    while day.weekday() == 0 or day.day == 1:
        day -= datetime.timedelta(days=1)
    return [day - datetime.timedelta(days=1), day, *[today - datetime.timedelta(days=back) for back in (5, 4, 3, 2, 1)]]


def paths_of(home, days):
    copies = home.path / "copies"
    folders = [copies / name for name in (".new", ".gone", *days.contents)]
    return [copies, copies / ".lock", *folders, *[folder / name for folder in folders for name in FILES]]


def points_of(run, days):
    """The calls that a window makes for its copy; it must have made one and let the oldest go."""
    home = days.base.copy_to(run.folder / "counted")
    log = run.folder / "log"
    process = window.start_window(run, home, prefix=trace.watching(log, paths_of(home, days)))
    ended(home, days, process)
    window.end([process])
    if days.wrong_copies(home) or (home.path / "copies" / days.oldest).exists():
        raise RuntimeError("the window has made no copy")
    return trace.calls_in(log)


def ended(home, days, process):
    """Waits until the oldest copy is gone with all that was in it, or the window has ended."""
    end = time.monotonic() + PATIENCE
    gone = [home.path / "copies" / name for name in (days.oldest, ".gone")]
    while process.poll() is None and any(path.exists() for path in gone):
        if time.monotonic() > end:
            raise RuntimeError("the window makes no copy")
        time.sleep(0.05)


def killed_homes(run, days, calls):
    """Homes whose windows were killed before these calls; the windows run side by side."""
    homes = [(call, days.base.copy_to(run.folder / f"killed-{place}")) for place, call in enumerate(calls)]
    windows = [window.start_window(run, home, prefix=trace.killed_at(call, paths_of(home, days)))
               for call, home in homes]
    codes = [window.wait_for(process, PATIENCE) for process in windows]
    window.end(windows)
    if set(codes) != {-9}:
        raise RuntimeError(f"not every window was killed: {codes}")
    return homes


def record(run, days):
    """The file operations of a window that makes its copy, up to the end of that."""
    home = days.base.copy_to(run.work)
    log = run.folder / "log"
    process = window.start_window(run, home, prefix=trace.recording(log))
    ended(home, days, process)
    window.end([process])
    return trace.operations_below(home.path / "copies", log)


def after_power_loss(run, days, operations, mode, ignore_syncs=False):
    shutil.rmtree(run.work, ignore_errors=True)
    run.work.mkdir()
    files = {str(run.work / pathlib.Path(path).relative_to(days.base.path)): data
             for path, data in days.base.files().items()}
    disk = Disk(files, ignore_syncs)
    for operation in operations:
        disk.play(operation)
    return run.materialise(disk.after_power_loss(run.random, mode))


def lying_disk_is_found(run, days, operations):
    """On a disk that ignores syncs, a copy may have its name and not its content."""
    return any(days.wrong_with(after_power_loss(run, days, operations, "some", True)) for _ in range(6))
