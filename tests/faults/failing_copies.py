"""Copies that cannot be made or deleted because calls fail or the disk is full."""

import datetime

import trace
from daily import Days
from failing import failures_of, run_disturbed
from home import Step
from run import Result


def failing_copies(run):
    """The N-th call of making a copy and letting the oldest go fails, once or for ever: the failure is told, the old
    copies stay as they are, and what is left of the new one goes at once or with the next."""
    result = Result()
    days = Days(run)
    words = ["store", "copy", "--now", f"{datetime.date.today()} 12:00:00"]
    step = Step(words, days.base, days.base)
    failed = 0
    for place, kind, for_ever in run.sample(cases_of(run, step), 14, 400):
        home = run.begin(step)
        code = run_disturbed(run, home, step, place, kind, for_ever)
        failed += code != 0
        failure = badly_ended(home, days, code, kind, for_ever) or days.wrong_with(home)
        result.add(failure, f"a copy is made: {kind} at {place}{' and later' if for_ever else ''}")
    result.note = f"{failed} were not made"
    result.control = lie_is_found(run, step, days)
    return result


def cases_of(run, step):
    cases = failures_of(trace.calls(run.begin(step), step.words, run.folder / "log"))
    largest = (step.before.path / "hourwright.db").stat().st_size
    return cases + [(largest * eighths // 8, "limit", True) for eighths in range(8)]


def badly_ended(home, days, code, kind, for_ever):
    if code < 0:
        return f"ended by signal {-code}"
    made = any(path.name not in days.contents and path.name[0] != "." for path in (home.path / "copies").iterdir())
    if code == 0 and not made:
        return "a copy that was called made is not there"
    if kind == "short" and code != 0:
        return f"a short write made it fail with {code}"
    can_delete = kind == "limit" or not for_ever
    if code != 0 and can_delete and (home.path / "copies" / ".new").exists():
        return "a part of a copy is left though it could have been deleted"
    return None


def lie_is_found(run, step, days):
    """A command that says it made a copy and did not, and one that has let an old copy go for nothing."""
    home = run.begin(step)
    lie = badly_ended(home, days, 0, "EIO", False) is not None
    home.must(["store", "copy", "--now", f"{datetime.date.today()} 12:00:00"])
    for made in {path.name for path in (home.path / "copies").iterdir()} - set(days.contents) - {".lock"}:
        (home.path / "copies" / made).rename(run.folder / "made")
    return lie and days.wrong_with(home) is not None
