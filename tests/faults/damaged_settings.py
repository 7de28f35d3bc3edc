"""A settings file that was damaged while nobody looked."""

import json
import subprocess

import damage
from run import Result

PATIENCE = 20
READING = [["registry", "dump"], ["settings", "list"], ["settings", "get", "MinTime"], ["entry", "list", "--all"]]


def damaged_settings(run):
    """Bytes, pages, and other things in the file's place: the records stay as they are, no other value is taken for a
    setting than what was stored or the default, and what is not as it was is told by `store check`."""
    result = Result()
    step = [step for step in run.steps if step.words[:2] == ["bulk", "delete"]][-1]
    stored, noticed = values_of(step.before), 0
    defaults = values_without_file(run, step)
    damages = [*damage.DAMAGES, damage.empty, *damage.PLACES]
    for number in range(640 if run.long else 16):
        home = run.begin(step)
        kind = damages[number % len(damages)]
        spoil(home, kind, run.random)
        failure, seen = wrong_with(home, stored, defaults)
        noticed += seen
        result.add(failure, f"settings, {kind.__name__} number {number}")
    result.note = f"{noticed} noticed"
    result.control = others_are_found(run, step, stored, defaults)
    return result


def spoil(home, kind, random):
    file = home.path / "settings.db"
    if kind not in damage.PLACES:
        file.write_bytes(kind(file.read_bytes(), random))
        return
    aside = home.path / "exports" / "settings.db"  # as good as before: it is read through the link
    file.rename(aside)
    kind(file, aside if kind is damage.link else home.path / "hourwright.db")


def others_are_found(run, step, stored, defaults):
    """A value changed by the program itself has a checksum that fits."""
    home = run.begin(step)
    home.must(["registry", "set", "MinTime", "dword:7"])
    return wrong_with(home, stored, defaults)[0] is not None


def values_of(home):
    """The stored values by name, which does not tell upper from lower case; None when they are refused."""
    done = home.run(["--json", "registry", "dump"], timeout=PATIENCE)
    if done.returncode != 0:
        return None
    return {value["name"].lower(): json.dumps({**value, "name": ""}) for value in json.loads(done.stdout)}


def values_without_file(run, step):
    home = run.begin(step)
    (home.path / "settings.db").unlink()
    return home.must(["settings", "get", "MinTime"])


def wrong_with(home, stored, default):
    """What is wrong with a home after the damage, and whether `store check` says that there is one."""
    records = home.content_of("hourwright.db")
    file = home.path / "settings.db"
    absent = not file.exists() or (file.is_file() and file.stat().st_size == 0)
    try:
        noticed = home.run(["store", "check"], timeout=PATIENCE).returncode != 0
        failure = (ends_badly(home) or wrong_values(home, stored, default, noticed or absent)
                   or wrong_after_writing(home, stored) or copied_wrong(home, records))
    except subprocess.TimeoutExpired as hanging:
        return f"{hanging.cmd[-3:]} hangs", False
    if failure is None and home.content_of("hourwright.db") != records:
        failure = "the records have changed"
    return failure, noticed


def ends_badly(home):
    for words in READING:
        done = home.run(words, timeout=PATIENCE)
        if done.returncode < 0 or (done.returncode != 0 and not done.stderr):
            return f"{words} ends with {done.returncode} and says {done.stderr}"
    return None


def wrong_values(home, stored, default, may_be_missing):
    values = values_of(home)
    if values is None:
        return None if may_be_missing else "the values are refused, and store check says nothing"
    if not values.items() <= stored.items():
        return f"values that were never stored: {dict(values.items() - stored.items())}"
    used = home.run(["settings", "get", "MinTime"], timeout=PATIENCE).stdout.decode()
    if used not in ("15\n", default):
        return f"{used} is used"
    return None if len(values) == len(stored) or may_be_missing else "values are missing, and store check says nothing"


def wrong_after_writing(home, stored):
    done = home.run(["registry", "set", "MinTime", "dword:30"], timeout=PATIENCE)
    if done.returncode != 0:
        return None if done.returncode > 0 and done.stderr else f"registry set ends with {done.returncode}"
    values = values_of(home)
    if values is None or home.must(["registry", "get", "MinTime"]) != "30\n":
        return "the new value is not there"
    del values["mintime"]
    return None if values.items() <= stored.items() else "writing has brought values that were never stored"


def copied_wrong(home, records):
    """The records can be copied whatever the settings are, and the copy's settings are whole or left out."""
    done = home.run(["store", "copy"], timeout=PATIENCE)
    if done.returncode != 0:
        return f"no copy can be made: {done.stderr}"
    name = done.stdout.decode().strip()
    if home.run(["store", "copies", "--verify"], timeout=PATIENCE).returncode != 0:
        return "the copy is not sound"
    return None if home.content_of(f"copies/{name}/hourwright.db") == records else "the copy has other records"
