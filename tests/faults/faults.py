#!/usr/bin/env python3
"""Kills, cuts the power, fails calls, fills the disk, damages files, starts twice, sends nonsense, and looks whether
anything was lost.

Every class of cases has a control: the same judgement on a state that is wrong on purpose, which must be found. Prints
a table with a line a class and exits with 1 when a case failed or a control did not."""

import argparse
import concurrent.futures
import multiprocessing
import pathlib
import shutil
import sys
import tempfile
import time
import traceback
import types

from contention import locked_store, many_writers
from daily import daily_copies
from damaged import damaged_files
from damaged_copies import damaged_copies
from damaged_settings import damaged_settings
from failing import call_errors, full_disks, read_only
from failing_copies import failing_copies
from first_use import first_use
from hostile import hostile_messages
from interrupted import kill_points, power_losses
from network import no_network
from run import Result, Run
from session import prepare_steps
from spoofed import spoofed_sockets
from starts import double_starts, leftovers
from timers import killed_with_timers

# The longest first, so that none is left alone in the end.
CLASSES = {"kill": kill_points, "errors": call_errors, "damage": damaged_files, "copies": damaged_copies,
           "settings": damaged_settings, "power": power_losses, "first": first_use, "starts": double_starts,
           "timers": killed_with_timers, "hostile": hostile_messages,
           "spoofed": spoofed_sockets, "leftovers": leftovers, "full": full_disks, "locked": locked_store,
           "readonly": read_only, "network": no_network, "writers": many_writers,
           "copying": failing_copies, "daily": daily_copies}
# These have little to do but wait, so they run beside the others.
WAITING = ["daily", "locked"]


def main():
    options = parse_options()
    with tempfile.TemporaryDirectory(prefix="hourwright-faults-") as folder:
        shared = prepare(options, pathlib.Path(folder))
        names = options.only or list(CLASSES)
        fork = multiprocessing.get_context("fork")
        with (concurrent.futures.ProcessPoolExecutor(options.jobs, mp_context=fork) as pool,
              concurrent.futures.ProcessPoolExecutor(1, mp_context=fork) as beside):
            running = {name: (beside if name in WAITING else pool).submit(run_class, shared, name) for name in names}
            for future in concurrent.futures.as_completed(running.values()):
                tell_end(next(name for name in names if running[name] is future), *future.result())
        results = {name: future.result() for name, future in running.items()}
    return print_table(results)


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--hwctl", required=True)
    parser.add_argument("--hourwright", required=True)
    parser.add_argument("--long", action="store_true", help="all cases instead of a choice of them")
    parser.add_argument("--most", type=int, help="a bound to the cases that a class chooses, of the long form too")
    parser.add_argument("--only", choices=CLASSES, nargs="+")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2, help="how many classes run at once")
    return parser.parse_args()


def prepare(options, folder):
    """Copies the programs to where other users can reach them and no build replaces them, and plays the session."""
    folder.chmod(0o755)
    shared = types.SimpleNamespace(long=options.long, most=options.most, seed=options.seed, folder=folder)
    shared.hwctl = shutil.copy(options.hwctl, folder / "hwctl")
    shared.hourwright = shutil.copy(options.hourwright, folder / "hourwright")
    shared.steps = prepare_steps(shared.hwctl, folder / "small", 0)
    if options.long:
        shared.steps += prepare_steps(shared.hwctl, folder / "large", 1500)
    return shared


def run_class(shared, name):
    began = time.monotonic()
    Result.name = name
    try:
        result = CLASSES[name](Run(shared, name))
    except Exception:  # a class that cannot go on has failed; the others go on
        result = Result()
        result.add(traceback.format_exc(), "the runner")
    return result, time.monotonic() - began


def tell_end(name, result, seconds):
    print(f"{name}: done, {result.cases} cases, {len(result.failures)} failed, control {told(result)}, {seconds:.0f} s",
          flush=True)


def told(result):
    return "found" if result.control else "MISSED"


def print_table(results):
    print(f"\n{'class':<10}{'cases':>7}{'failed':>8}  {'control':<9}{'seconds':>8}")
    for name, (result, seconds) in results.items():
        print(f"{name:<10}{result.cases:>7}{len(result.failures):>8}  {told(result):<9}{seconds:>8.1f}  {result.note}")
    everything = [result for result, _ in results.values()]
    failed = sum(len(result.failures) for result in everything)
    print(f"{'all':<10}{sum(result.cases for result in everything):>7}{failed:>8}")
    return 1 if failed or not all(result.control for result in everything) else 0


if __name__ == "__main__":
    sys.exit(main())
