"""The first command on a home that holds nothing yet, interrupted while it lays out the files."""

import json

import trace
from home import Home, Step
from interrupted import states_of
from disk import Disk
from run import Result

FIRST = [["client", "add", "Acme"], ["settings", "set", "MinTime", "15"]]


def first_use(run):
    """Killed at every call or cut off at every point: nothing or all of it is there, and the command can be repeated."""
    result = Result()
    cases = [case for number, words in enumerate(FIRST) for case in cases_of(run, number, words)]
    for step, name, spoil in run.sample(cases, 60, 1000):
        result.add(what_is_wrong(spoil(), step), f"{step.name}, {name}")
    result.note = f"of {len(cases)} points and states"
    step = cases[0][0]
    result.control = what_is_wrong(torn(step.before.copy_to(run.work)), step) is not None
    return result


def cases_of(run, number, words):
    step = first_step(run, number, words)
    kills = [(step, f"killed before {call}", lambda call=call: killed(run, step, call))
             for call in trace.calls(run.begin(step), step.words, run.folder / "log")]
    cuts = [(step, f"power cut at operation {state[3]}, {state[4]} of the rest", lambda state=state: cut(run, state))
            for state in states_of(run, step)]
    return kills + cuts


def first_step(run, number, words):
    home = Home(run.hwctl, run.folder / f"first-{number}")
    home.path.mkdir()
    before = home.copy_to(run.folder / f"nothing-{number}")
    home.must(words)
    return Step(words, before, home)


def killed(run, step, call):
    home = run.begin(step)
    if home.run(step.words, trace.killed_at(call)).returncode != -9:
        raise RuntimeError(f"it was not killed before {call}")
    return home


def cut(run, state):
    _, files, operations, point, mode = state
    disk = Disk(files)
    for operation in operations[:point]:
        disk.play(operation)
    run.work.mkdir(exist_ok=True)
    return run.materialise(disk.after_power_loss(run.random, mode))


def torn(home):
    """Half of a page without a journal that could take it back."""
    (home.path / "hourwright.db").write_bytes(bytes(512) + b"x" * 3584)
    return home


def what_is_wrong(home, step):
    if home.check() != 0:
        return "store check finds damage"
    found = what_is_there(home)
    if found not in ([], ["Acme"]):
        return f"there are {found}"
    if not found or step.words[0] == "settings":
        done = home.run(step.words)
        if done.returncode != 0 or home.told() is None:
            return f"the command cannot be repeated: {done.stderr.decode(errors='replace')}"
    return None


def what_is_there(home):
    done = home.run(["--json", "client", "list"])
    return None if done.returncode != 0 else [client["name"] for client in json.loads(done.stdout)]
