"""Copies that were damaged while nobody looked, alone and together with the records."""

import hashlib
import json
import shutil
import subprocess

import damage
from home import Home
from run import Result

PATIENCE = 30
# Two of one week, of which the first is to go with the last day's copy, and some of the week after them.
DAYS = [13, 14, 16, 17, 18, 19, 20]
LAST_DAY = 21
FILES = ["hourwright.db", "settings.db", "about.txt", "SHA256SUMS"]
WEEK, NEWEST = 1, len(DAYS) - 1  # which of them are damaged


def damaged_copies(run):
    """A damaged copy is named, is never restored, and keeps no sound one from being restored or kept."""
    result = Result()
    copies = Copies(run)
    for number in range(400 if run.long else 8):
        which = (NEWEST, WEEK, (NEWEST, NEWEST - 1))[number % 3]
        which = which if isinstance(which, tuple) else (which,)
        home = copies.begin(run)
        kinds = [copies.spoil(home, index, number // 3, run.random) for index in which]
        failure = copies.wrong_with(home, which, run.random)
        result.add(failure, f"copies {which}, {kinds}, number {number}")
    for name, first, second in (("sums", "SHA256SUMS", "SHA256SUMS"), ("records", "hourwright.db", "hourwright.db"),
                                ("records and settings", "hourwright.db", "settings.db")):
        home = copies.begin(run)
        copies.swap(home, first, second)
        which = (NEWEST, NEWEST - 1) if first == second else (NEWEST,)
        result.add(copies.wrong_with(home, which, run.random), f"copies with swapped {name}")
    result.note = f"{copies.named} named, of {copies.restored} restored homes each as one of the sound copies"
    result.control = copies.consistent_change_is_found(run) and copies.undamaged_is_forgotten(run)
    return result


class Copies:
    """A home with a copy a day, each with other records and settings, and what they hold."""

    def __init__(self, run):
        step = [step for step in run.steps if step.words[:2] == ["bulk", "delete"]][0]
        self.base = step.before.copy_to(run.folder / "base")
        shutil.rmtree(self.base.path / "copies", ignore_errors=True)
        self.names, self.contents = [], []
        self.named = self.restored = 0
        for day in DAYS:
            self.base.must(["entry", "add", "--task", f"of day {day}", "--duration", "1"])
            self.base.must(["registry", "set", "Own", f"dword:{day}"])
            self.contents.append([self.base.content_of(name) for name in ("hourwright.db", "settings.db")])
            self.names.append(self.base.must(["store", "copy", "--now", f"2026-11-{day} 09:00:00"]).strip())
        self.base.must(["entry", "add", "--task", "in no copy", "--duration", "1"])
        self.base.must(["registry", "set", "Own", "dword:999"])
        self.order = [(name, kind) for name in FILES for kind in kinds_for(name)]

    def begin(self, run):
        return self.base.copy_to(run.work)

    def folder(self, home, index):
        return home.path / "copies" / self.names[index]

    def spoil(self, home, index, number, random):
        name, kind = self.order[number * 7 % len(self.order)]  # the short form has some of all
        file = self.folder(home, index) / name
        if kind in damage.PLACES:
            aside = home.path / "exports" / f"{index}-{name}"
            file.rename(aside)
            kind(file, aside if kind is damage.link else self.folder(home, index - 1) / name)
        else:
            data = file.read_bytes()
            while (damaged := kind(data, random)) == data:
                pass
            file.write_bytes(damaged)
        return f"{kind.__name__} in {name}"

    def swap(self, home, first, second):
        first, second = self.folder(home, NEWEST) / first, self.folder(
            home, NEWEST - (1 if first == second else 0)) / second
        data = first.read_bytes()
        first.write_bytes(second.read_bytes())
        second.write_bytes(data)

    def wrong_with(self, home, which, random):
        try:
            sound = self.sound_ones(home)
            if sound is None:
                return "the copies cannot be told"
            expected = [name for index, name in enumerate(self.names) if index not in which]
            if not set(expected) <= set(sound):
                return "a sound copy is called damaged"
            self.named += len(self.names) - len(sound)
            return (self.restores_damaged(home, which, sound) or self.forgets_sound(home, sound)
                    or self.restores_wrong(home, sound, random))
        except subprocess.TimeoutExpired as hanging:
            return f"{hanging.cmd[-3:]} hangs"

    def sound_ones(self, home):
        done = home.run(["--json", "store", "copies", "--verify"], timeout=PATIENCE)
        copies = json.loads(done.stdout or "null")
        if copies is None or not set(self.names) <= {copy["name"] for copy in copies}:
            return None
        sound = [copy["name"] for copy in copies if copy["sound"]]
        return sound if (done.returncode == 0) == (len(sound) == len(copies)) else None

    def restores_damaged(self, home, which, sound):
        """A damaged one is refused by its name; what is called sound holds what it should."""
        before = home.files_beside()
        for index in which:
            for words in (["store", "restore", self.names[index]], ["store", "restore", self.names[index],
                                                                    "--settings"]):
                done = home.run(words, timeout=PATIENCE)
                if self.names[index] in sound:
                    failure = self.not_of_copy(home, index, words, done)
                else:
                    failure = None if done.returncode == 1 and done.stderr and home.files_beside() == before else (
                        f"{words} ends with {done.returncode}")
                if failure:
                    return failure
        return None

    def not_of_copy(self, home, index, words, done):
        part = 1 if "--settings" in words else 0
        name = ("hourwright.db", "settings.db")[part]
        if done.returncode != 0 or home.content_of(name) != self.contents[index][part]:
            return f"{words} ends with {done.returncode} and other content than was copied"
        return None

    def forgets_sound(self, home, sound):
        """The copy of the next day lets the oldest ones go, but not the only sound one of their week."""
        done = home.run(["store", "copy", "--now", f"2026-11-{LAST_DAY} 09:00:00"], timeout=PATIENCE)
        if done.returncode != 0:
            return f"no copy can be made: {done.stderr}"
        left = json.loads(home.run(["--json", "store", "copies", "--verify"], timeout=PATIENCE).stdout)
        still = {copy["name"] for copy in left if copy["sound"]}
        if not still & set(self.names[:WEEK + 1]):
            return "no sound copy of its week is left"
        if not set(sound) - set(self.names[:WEEK + 1]) <= still:
            return "a sound copy of the last days is gone"
        shutil.rmtree(home.path / "copies" / done.stdout.decode().strip())
        return None

    def restores_wrong(self, home, sound, random):
        """With damaged records and settings, both come from the newest sound copy."""
        newest = max(self.names.index(name) for name in sound)
        for part, (name, more) in enumerate((("hourwright.db", []), ("settings.db", ["--settings"]))):
            file = home.path / name
            kind = random.choice([damage.truncate, damage.foreign, damage.zero_page, damage.folder, damage.nothing])
            if kind in damage.PLACES:
                file.unlink()
                kind(file, file)
            else:
                file.write_bytes(kind(file.read_bytes(), random))
            done = home.run(["store", "restore", *more], timeout=PATIENCE)
            if done.returncode != 0:
                return f"{name} is not restored after {kind.__name__}: {done.stderr}"
            if home.content_of(name) != self.contents[newest][part]:
                return f"{name} is restored from another copy than the newest sound one"
        self.restored += 1
        return None if home.check() == 0 else "store check finds damage in what was restored"

    def consistent_change_is_found(self, run):
        """Whoever changes a copy together with its digests is not noticed by the program, but by this runner."""
        home = self.begin(run)
        folder = self.folder(home, NEWEST)
        shutil.copy(self.base.path / "hourwright.db", folder / "hourwright.db")
        sums = [(folder / name).read_bytes() for name in FILES[:3]]
        (folder / "SHA256SUMS").write_text("".join(f"{hashlib.sha256(data).hexdigest()}  {name}\n" for data, name
                                                   in zip(sums, FILES[:3])))
        return self.names[NEWEST] in (self.sound_ones(home) or []) and (
            self.wrong_with(home, (NEWEST,), run.random) is not None)

    def undamaged_is_forgotten(self, run):
        """Else nothing would be proven of what stays."""
        home = self.begin(run)
        home.must(["store", "copy", "--now", f"2026-11-{LAST_DAY} 09:00:00"])
        return not self.folder(home, 0).exists() and self.folder(home, WEEK).exists()


def kinds_for(name):
    return [*(damage.DAMAGES if name.endswith(".db") else damage.TEXT_DAMAGES), *damage.PLACES]
