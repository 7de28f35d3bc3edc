"""Files that were damaged while nobody looked."""

from damage import DAMAGES
from run import Result


def damaged_files(run):
    """Bit flips, other bytes, zeroed and swapped pages, truncations and foreign files: noticed, or without effect."""
    result = Result()
    step = [step for step in run.steps if step.words[:2] == ["bulk", "delete"]][-1]
    original = (step.before.path / "hourwright.db").read_bytes()
    home = run.begin(step)
    told, stored = home.told(), home.content()
    noticed = 0
    for number in range(3200 if run.long else 81):
        damage = DAMAGES[number % len(DAMAGES)]
        home = run.begin(step)
        (home.path / "hourwright.db").write_bytes(damage(original, run.random))
        failure, seen = unnoticed(home, told)
        noticed += seen
        result.add(failure, f"{damage.__name__} number {number}")
    result.note = f"{noticed} noticed, the others without effect"
    home = run.begin(step)
    home.must(["entry", "add", "--task", "not damage but other content", "--duration", "1"])
    result.control = unnoticed(home, told)[0] is not None and home.content() != stored
    return result


def unnoticed(home, told):
    """What is wrong with a damaged home, and whether the damage was noticed."""
    code = home.check()
    if code < 0:
        return f"store check was ended by signal {-code}", False
    if code == 0 and home.told() != told:
        return "other content, and store check says nothing", False
    for words in (["entry", "list", "--all"], ["entry", "add", "--task", "x", "--duration", "1"], ["undo"]):
        done = home.run(words)
        if done.returncode < 0:
            return f"{words[0]} was ended by signal {-done.returncode}", code != 0
    return None, code != 0
