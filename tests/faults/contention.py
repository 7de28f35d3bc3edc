"""Several programs on one store at once."""

import sqlite3
import subprocess
import time

from home import environment, judge
from run import Result


def locked_store(run):
    """Another program holds the store for longer than the command waits."""
    result = Result()
    for step in run.sample([step for step in run.steps if step.content_after != step.content_before], 2, 12):
        home = run.begin(step)
        failure, waited = while_locked(home, step)
        result.add(failure, step.name)
        result.note = f"the last gave up after {waited:.1f} s"
        result.control = home.run(step.words).returncode == 0 and result.control is not False
    return result


def while_locked(home, step):
    """A step that touches the records only in its end may be refused at once; none may wait for ever or change."""
    others = [hold(home.path / name) for name in ("hourwright.db", "settings.db")]
    began = time.monotonic()
    code = home.run(step.words).returncode
    waited = time.monotonic() - began
    for other in others:
        other.rollback()
        other.close()
    failure = judge(step, home, code)
    if code != 1 or waited > 30 or home.content() != step.content_before:
        failure = failure or f"exit {code} after {waited:.1f} s"
    return failure, waited


def hold(path):
    other = sqlite3.connect(path, isolation_level=None)
    other.execute("BEGIN EXCLUSIVE")
    return other


def many_writers(run):
    """Twenty programs write at once: every acknowledged entry is there, no id was given twice."""
    result = Result()
    for _ in range(10 if run.long else 1):
        home = run.begin(run.steps[0])
        before = stored_entries(home)
        acknowledged = [printed for _ in range(4) for printed in write_at_once(home, 20)]
        stored = stored_entries(home) - before
        lost = len(acknowledged) != len(set(acknowledged)) or stored != len(acknowledged) or home.check() != 0
        result.add(f"{len(acknowledged)} acknowledged, {stored} stored" if lost else None, "20 writers")
        result.note = f"{len(acknowledged)} of 80 acknowledged in the last round"
    delete_one(home)
    result.control = stored_entries(home) - before != len(acknowledged)
    return result


def write_at_once(home, count):
    writers = [subprocess.Popen(home.command(["entry", "add", "--task", f"t{number}", "--client", f"c{number}",
                                              "--duration", "1"]),
                                env=environment(), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
               for number in range(count)]
    ended = [(writer.communicate()[0], writer.returncode) for writer in writers]
    return [int(printed) for printed, code in ended if code == 0]


def stored_entries(home):
    return home.must(["entry", "list", "--all", "--json"]).count('"id":')


def delete_one(home):
    newest = write_at_once(home, 1)[0]
    home.must(["entry", "delete", str(newest)])
    home.must(["entry", "delete", str(newest - 1)])
