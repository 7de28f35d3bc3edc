"""Something else than a window where the window's socket should be."""

import multiprocessing
import os
import shutil
import time

import impostor
import window
from failing import NOBODY
from run import Result, is_root
from starts import held_lock, not_startable

BEHAVIOURS = ["silent", "deaf", "closing", "garbage", "wrong outcome", "wrong answer", "huge", "dripping"]


class Impostor:
    """A listener at the home's socket with a note of what was sent to it."""

    def __init__(self, run, home, behaviour, user):
        self.record = run.folder / "sent"
        bound = window.at_socket(home, lambda made, address: made.bind(address))
        os.chmod(home.path / "runtime" / "instance.sock", 0o777)
        fork = multiprocessing.get_context("fork")
        listening = fork.Event()
        self.process = fork.Process(target=impostor.listen, args=(bound, self.record, behaviour, user, listening))
        self.process.start()
        listening.wait(window.PATIENCE)
        bound.close()

    def was_told(self):
        return f"it was sent {self.record.stat().st_size} bytes" if self.record.stat().st_size else None

    def end(self):
        self.process.kill()
        self.process.join()


def spoofed_sockets(run):
    """Commands and starts end in time, say nothing to other users, and lose nothing."""
    result = Result()
    for number in range(4 if run.long else 1):
        for place in PLACES:
            result.add(with_thing(run, place), f"{place.__name__}, round {number}")
        for behaviour in run.sample(BEHAVIOURS, 2):
            for user in [None, NOBODY] if is_root() else [None]:
                result.add(with_impostor(run, behaviour, user), f"{behaviour} impostor, user {user or 'own'}")
    result.note = "" if is_root() else "no other user's impostor: that needs root"
    result.control = own_impostor_is_told(run)
    return result


def fresh_home(run):
    home = run.begin(run.steps[4])
    (home.path / "runtime").mkdir(mode=0o700, exist_ok=True)
    return home


def with_thing(run, place):
    home = fresh_home(run)
    victim = run.folder / "victim"
    victim.write_bytes(b"precious")
    place(home, victim)
    failure = commands_suffer(home)
    content = home.content()
    failure = failure or (None if victim.read_bytes() == b"precious" else "another file was changed")
    return failure or (window_suffers(run, home) if place in UNUSABLE else not_startable(run, home, [content]))


def with_impostor(run, behaviour, user):
    home = fresh_home(run)
    listener = Impostor(run, home, behaviour, user)
    try:
        failure = commands_suffer(home)
        content = home.content()
        with held_lock(home):
            refusing = behaviour == "wrong outcome" and not user  # it says that it did not take the options
            failure = failure or second_start_suffers(run, home, 1 if refusing else 0)
        failure = failure or (listener.was_told() if user else None)
        # With the lock free, a start takes the place of whoever listens.
        return failure or not_startable(run, home, [content])
    finally:
        listener.end()


def commands_suffer(home):
    """An entry is stored at once; a question to the window is given up in time."""
    began = time.monotonic()
    if home.run(["entry", "add", "--task", "kept", "--duration", "1"]).returncode != 0:
        return "an entry is not stored"
    stored = time.monotonic() - began
    code = home.run(["timer", "list"]).returncode
    asked = time.monotonic() - began - stored
    if stored > 5 or asked > 12 or code != 1:
        return f"entry add took {stored:.1f} s, timer list {asked:.1f} s and exits with {code}"
    return None if home.check() == 0 and "kept" in home.must(["entry", "list", "--all"]) else "the entry is lost"


def second_start_suffers(run, home, expected):
    began = time.monotonic()
    process = window.start_window(run, home, ["--view", "week"])
    code = window.wait_for(process, window.PATIENCE)
    window.end([process])
    return None if code == expected else f"a second start exits with {code} after {time.monotonic() - began:.1f} s"


def window_suffers(run, home):
    """Where there can be no socket, the window does without."""
    process = window.start_window(run, home)
    code = window.wait_for(process, 2)
    window.end([process])
    content_sound = home.check() == 0
    return None if code in (None, 0, 1) and content_sound else f"the window exits with {code}"


def own_impostor_is_told(run):
    home = fresh_home(run)
    listener = Impostor(run, home, "silent", None)
    home.run(["timer", "list"])
    found = listener.was_told() is not None
    listener.end()
    return found


def plain_file(home, _victim):
    (home.path / "runtime" / "instance.sock").write_bytes(b"no socket")


def link_to_file(home, victim):
    (home.path / "runtime" / "instance.sock").symlink_to(victim)


def dangling_link(home, victim):
    (home.path / "runtime" / "instance.sock").symlink_to(victim.with_name("nowhere"))


def pipe(home, _victim):
    os.mkfifo(home.path / "runtime" / "instance.sock", 0o600)


def folder(home, _victim):
    (home.path / "runtime" / "instance.sock").mkdir()


def full_folder(home, _victim):
    folder(home, _victim)
    (home.path / "runtime" / "instance.sock" / "file").write_bytes(b"")


def linked_lock(home, victim):
    (home.path / "runtime" / "instance.lock").unlink(missing_ok=True)
    (home.path / "runtime" / "instance.lock").symlink_to(victim)


def linked_runtime(home, victim):
    elsewhere = victim.with_name("elsewhere")
    shutil.rmtree(elsewhere, ignore_errors=True)  # of the last round
    (home.path / "runtime").rename(elsewhere)
    (home.path / "runtime").symlink_to(elsewhere)


def strangers_runtime(home, _victim):
    if is_root():
        os.chown(home.path / "runtime", NOBODY, NOBODY)


PLACES = [plain_file, link_to_file, dangling_link, pipe, folder, full_folder, linked_lock, linked_runtime,
          strangers_runtime]
UNUSABLE = [folder, full_folder, linked_lock, linked_runtime, strangers_runtime]
