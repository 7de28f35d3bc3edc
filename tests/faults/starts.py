"""Two starts of the window at once, and what earlier ones have left behind."""

import fcntl
import os
import signal
import time

import trace
import window
from home import Home
from run import Result


def double_starts(run):
    """Two starts at once: exactly one window stays, the other start ends well."""
    result = Result()
    home = run.begin(run.steps[-1])
    content = home.content()
    for number in range(200 if run.long else 10):
        starts = [window.start_window(run, home) for _ in range(2)]
        result.add(not_one_winner(home, starts), f"round {number}")
        # Every other round leaves a dead socket behind for the next.
        window.end(starts, signal.SIGKILL if number % 2 else signal.SIGTERM)
    if home.check() != 0 or home.content() != content:
        result.add("the records have changed", "all rounds")
    result.control = two_homes_are_found(run)
    return result


def not_one_winner(home, starts, patience=window.PATIENCE):
    """What is wrong with starts of which all but one should have ended."""
    end = time.monotonic() + patience
    while sum(start.poll() is None for start in starts) > 1:
        if time.monotonic() > end:
            return "more than one stays"
        time.sleep(0.01)
    if not window.comes_forward(home, patience):
        return "nobody answers"
    codes = [start.poll() for start in starts]
    if codes.count(None) != 1 or codes.count(0) != len(starts) - 1:
        return f"exit codes {codes}"
    return None


def two_homes_are_found(run):
    """Two windows on two homes, taken for starts on one."""
    homes = [run.steps[-1].before.copy_to(run.folder / name) for name in ("first", "second")]
    starts = [window.start_window(run, home) for home in homes]
    answering = all(window.comes_forward(home) for home in homes)
    found = not_one_winner(homes[0], starts, 2) is not None
    window.end(starts)
    return answering and found


def leftovers(run):
    """What killed programs leave behind does not keep a window from starting on sound records."""
    result = Result()
    for number in range(10 if run.long else 1):
        for leave in LEFTOVERS:
            step = run.steps[run.random.randrange(len(run.steps))]
            home = run.begin(step)
            leave(run, home, step)
            result.add(not_startable(run, home, [step.content_before, step.content_after]),
                       f"{leave.__name__}, round {number}, {step.name}")
    home = run.begin(run.steps[-1])
    with held_lock(home):
        result.control = not_startable(run, home, [home.content()], 6) is not None
    return result


def not_startable(run, home, contents, patience=window.PATIENCE):
    process = window.start_window(run, home)
    answers = window.comes_forward(home, patience)
    timers = home.run(["timer", "list"]).returncode
    window.end([process])
    if not answers or timers != 0:
        return f"the window does not answer, timer list exits with {timers}"
    if home.check() != 0:
        return "store check finds damage"
    return None if home.content() in contents else "neither the state before nor the one after"


def held_lock(home):
    folder = home.path / "runtime"
    folder.mkdir(mode=0o700, exist_ok=True)
    lock = open(folder / "instance.lock", "w", encoding="ascii")
    fcntl.flock(lock, fcntl.LOCK_EX)
    return lock


def dead_socket(run, home, _step):
    (home.path / "runtime").mkdir(mode=0o700, exist_ok=True)
    window.at_socket(home, lambda made, address: made.bind(address)).close()


def killed_window(run, home, _step):
    process = window.start_window(run, home)
    window.comes_forward(home)
    window.end([process], signal.SIGKILL)


def killed_writer(run, home, step):
    """A command killed between its first and its last write, so that a journal is there."""
    calls = trace.calls(step.before.copy_to(run.folder / "count"), step.words, run.folder / "log")
    home.run(step.words, trace.killed_at(run.random.choice(calls)))


def strange_journal(run, home, _step):
    for name in ("hourwright.db-journal", "settings.db-journal"):
        (home.path / name).write_bytes(run.random.choice([b"", bytes(512), run.random.randbytes(9000)]))


def stale_files(run, home, _step):
    (home.path / "runtime").mkdir(mode=0o700, exist_ok=True)
    for file in [home.path / "runtime" / "instance.lock", *home.path.glob("*.lock"), *home.path.glob("runtime/*.lock"),
                 home.path / "hourwright.db.part", home.path / ".entries.csv.part", home.path / "core"]:
        file.write_bytes(b"4711\n")
        os.chmod(file, 0o600)


LEFTOVERS = [dead_socket, killed_window, killed_writer, strange_journal, stale_files]
