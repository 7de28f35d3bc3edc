"""Commands that end in the middle: killed, or by a loss of power."""

import trace
from disk import Disk
from home import judge
from run import Result, half_done_is_found


def kill_points(run):
    """kill -9 before every write, sync, rename and unlink."""
    result = Result()
    points = []
    for step in run.steps:
        points += [(step, call) for call in trace.calls(run.begin(step), step.words, run.folder / "log")]
    for step, call in run.sample(points, 80, 2400):
        home = run.begin(step)
        done = home.run(step.words, trace.killed_at(call))
        failure = judge(step, home, done.returncode) if done.returncode == -9 else "it was not killed"
        result.add(failure, f"{step.name} killed before {call}")
    result.note = f"of {len(points)} points"
    result.control = half_done_is_found(run)
    return result


def power_losses(run):
    """The recorded writes replayed up to each point, with what was not synchronised lost or torn."""
    result = Result()
    states = [state for step in run.steps if not step.may_grow() for state in states_of(run, step)]
    for step, files, operations, point, mode in run.sample(states, 100, 2600):
        failure = after_power_loss(run, (step, files, operations), point, mode)
        result.add(failure, f"{step.name} at operation {point}, {mode} of the rest")
    result.note = f"of {len(states)} states"
    result.control = lying_disk_is_found(run, states)
    return result


def states_of(run, step):
    """Recordings of a step with a point up to which they are played and a fate of what was not synchronised then."""
    home = run.begin(step)
    files = home.files()
    operations = trace.record(home, step.words, run.folder / "log")
    modes = ["nothing", "all", "some", "some", "some"] if len(operations) < 200 else ["nothing", "some"]
    every = max(1, len(operations) // 60)
    points = sorted({*range(0, len(operations), every), len(operations)})
    return [(step, files, operations, point, mode) for point in points for mode in modes]


def after_power_loss(run, recording, point, mode, ignore_syncs=False):
    step, files, operations = recording
    disk = Disk(files, ignore_syncs)
    for operation in operations[:point]:
        disk.play(operation)
    home = run.materialise(disk.after_power_loss(run.random, mode))
    return judge(step, home, 0 if point == len(operations) else None)


def lying_disk_is_found(run, states):
    """On a disk that ignores syncs, something acknowledged is lost."""
    last = [state for state in states if state[3] == len(state[2]) and state[4] == "nothing"]
    return any(after_power_loss(run, state[:3], state[3], "nothing", ignore_syncs=True) for state in last[:6])
