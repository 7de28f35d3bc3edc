"""A window that is killed while its timers run and are saved."""

import trace
import window
from home import FILES
from run import Result

SCRIPT = [["timer", "add", "--client", "Acme", "--task", "First"], ["timer", "add", "--task", "Second"],
          ["timer", "pause", "1"], ["timer", "edit", "1", "--duration", "1:00:00", "--note", "n"],
          ["timer", "complete", "1", "--save"], ["timer", "resume", "2"], ["timer", "cancel", "2"]]


def killed_with_timers(run):
    """kill -9 before every write of the window to its files: what was saved is there, and the next window starts."""
    result = Result()
    points, killed = points_of(run), 0
    for call in run.sample(points, 3):
        home = run.begin(run.steps[4])
        before = entries(home)
        saved, code = play(run, home, trace.killed_at(call, paths_of(home)))
        killed += code == -9
        result.add(lost(run, home, before, saved), f"killed before {call}")
    result.note = f"{killed} killed, of {len(points)} points"
    result.control = not lost_is_unnoticed(run)
    return result


def paths_of(home):
    return [home.path / (name + ending) for name in [*FILES, "timers.db"] for ending in ("", "-journal")]


def points_of(run):
    home = run.begin(run.steps[4])
    play(run, home, trace.watching(run.folder / "log", paths_of(home)))
    return trace.calls_in(run.folder / "log")


def play(run, home, prefix):
    """Gives a window the script's commands; the ids of entries that it says are saved, and how it ended."""
    process = window.start_window(run, home, prefix=prefix)
    if not comes_forward_or_dies(process, home):
        window.end([process])
        return [], process.returncode
    saved = []
    for words in SCRIPT:
        done = home.run(words)
        if "--save" in words and done.returncode == 0:
            saved.append(int(done.stdout))
    window.end([process])
    return saved, process.returncode


def comes_forward_or_dies(process, home):
    while process.poll() is None:
        if window.comes_forward(home, 0.1):
            return True
    return False


def entries(home):
    printed = home.must(["entry", "list", "--all", "--columns", "id"]).split("\n")[1:]
    return {int(line) for line in printed if line.strip().isdigit()}


def lost(run, home, before, saved):
    """What is wrong afterwards: one change at most may be there that nobody has heard of."""
    if home.check() != 0:
        return "store check finds damage"
    now = entries(home)
    if not before <= now or not set(saved) <= now:
        return "an acknowledged entry is lost"
    if len(now) > len(before) + 1:
        return "more entries than were made"
    process = window.start_window(run, home)
    answers = window.comes_forward(home) and home.run(["timer", "list"]).returncode == 0
    window.end([process])
    return None if answers else "the next window does not answer"


def lost_is_unnoticed(run):
    """An entry taken away behind its back."""
    home = run.begin(run.steps[4])
    before = entries(home)
    home.must(["entry", "delete", str(max(before))])
    return lost(run, home, before, []) is None
