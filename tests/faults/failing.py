"""Calls that fail, and disks on which there is no room or no permission."""

import os
import resource
import subprocess

import short_writes
import trace
from home import environment, judge
from run import Result, lie_is_found, is_root

NOBODY = 65534


def call_errors(run):
    """The N-th call fails, once or for ever, with an I/O error or a full disk; writes are cut short; files may not
    grow beyond a size."""
    result = Result()
    late = 0
    for step, place, kind, for_ever in run.sample(cases_of(run), 90, 1200):
        home = run.begin(step)
        code = run_disturbed(run, home, step, place, kind, for_ever)
        failure = judge(step, home, code)
        late += not failure and code != 0 and step.content_after not in (step.content_before, None) and (
            home.content() == step.content_after)
        if kind == "short" and not failure and code != 0:
            failure = f"a short write made it fail with {code}"
        result.add(failure, f"{step.name}: {kind} at {place}{' and later' if for_ever else ''}")
    result.note = f"{late} changes were stored though a later call failed and the command said so"
    result.control = lie_is_found(run)
    return result


def cases_of(run):
    cases = []
    for step in run.steps:
        calls = trace.calls(run.begin(step), step.words, run.folder / "log")
        cases += [(step, *case) for case in failures_of(calls[:80])]
        largest = max((len(data) for data in step.before.files().values()), default=0)
        cases += [(step, run.random.randrange(1, largest + 4096), "limit", True) for _ in range(6)]
    return cases


def failures_of(calls):
    """Every call fails, and every write is cut short, by itself and with all after it."""
    failing = [(call, kind) for call in calls for kind in ("EIO", "ENOSPC")]
    writes = [call for call in calls if call.name in ("write", "pwrite64")] if short_writes.possible() else []
    short = [(number, "short") for number in range(1, len(writes) + 1)]
    return [(*case, for_ever) for case in [*failing, *short] for for_ever in (False, True)]


def run_disturbed(run, home, step, place, kind, for_ever):
    """The exit code of a command. The place is a call, the number of a write, or a limit to the length of files."""
    if kind == "short":
        return short_writes.run_with_short_writes(home.command(step.words), environment(), place, for_ever)[0]
    if kind == "limit":  # a write across the limit is short, the next one fails
        bound = (place, place)
        return home.run(step.words, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, bound),
                        restore_signals=False).returncode
    log = run.folder / "log"
    code = home.run(step.words, trace.failing_at(place, kind, for_ever, log)).returncode
    if not trace.was_injected(log):
        raise RuntimeError(f"{step.name}: {place} did not fail")
    return code


def full_disks(run):
    """Every command on a disk with hardly any room left."""
    result = Result()
    mount = run.folder / "tmpfs"
    mount.mkdir()
    largest = max(sum(len(data) for data in step.before.files().values()) for step in run.steps)
    if not mounted(mount, largest):
        return result.skip("mounting needs root")
    try:
        for step, room in run.sample([(step, room) for step in run.steps for room in (0, 1, 2, 4, 8, 16)], 60):
            result.add(on_full_disk(run, mount, step, room), f"{step.name} with {room} pages left")
        result.control = lie_is_found(run)
    finally:
        subprocess.run(["umount", str(mount)], check=False)
    return result


def mounted(mount, largest):
    size = largest // 1024 + 4096
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
    return judge(step, home, code) or refused_but_changed(step, home, code)


def refused_but_changed(step, home, code):
    return "refused but changed" if code != 0 and home.content() != step.content_before else None


def read_only(run):
    """A store that may not be written, in a folder that may not be written, by a user who is not root."""
    result = Result()
    user = NOBODY if is_root() else None
    for step, mode in run.sample([(step, mode) for step in run.steps for mode in (0o500, 0o700)], 24):
        home = step.before.copy_to(run.folder / "readonly")
        code = run_read_only(run, home, step, mode, user)
        failure = judge(step, home, code) or refused_but_changed(step, home, code)
        result.add(failure, f"{step.name}, folder {mode:o}")
    result.control = lie_is_found(run)
    return result


def run_read_only(run, home, step, mode_of_folder, user):
    open_to(run.folder, home.path, user)
    for file in home.path.rglob("*"):
        file.chmod(0o500 if file.is_dir() else 0o400)
    home.path.chmod(mode_of_folder)
    code = home.run(step.words, **({"user": user} if user else {})).returncode
    home.path.chmod(0o700)
    for file in home.path.rglob("*"):
        file.chmod(0o700 if file.is_dir() else 0o600)
    return code


def open_to(folder, path, user):
    if user is None:
        return
    folder.chmod(0o755)
    for file in [path, *path.rglob("*")]:
        os.chown(file, user, user)
