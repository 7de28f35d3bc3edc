#!/usr/bin/env python3
"""Installs the program into a folder of its own and looks at what is there: every file with its mode, the protections
of the programs, and the names that the files have for each other.

Controls, compiled on the spot, lack one protection each, which must be found. Exits with 1 when anything is wrong."""

import argparse
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

from elf import Elf, X86_64
from hardening import lacking

PROGRAMS = {"bin/hwctl", "bin/hourwright"}
FILES = PROGRAMS | {
    "share/applications/hourwright.desktop",
    "share/bash-completion/completions/hwctl",
    "share/doc/hourwright/copyright",
    "share/fish/vendor_completions.d/hwctl.fish",
    "share/hourwright/manual/manual.html",
    "share/icons/hicolor/scalable/apps/hourwright.svg",
    "share/man/man1/hourwright.1",
    "share/man/man1/hwctl.1",
    "share/metainfo/com.quellmarch.Hourwright.metainfo.xml",
    "share/zsh/vendor-completions/_hwctl",
}
PICTURES = "share/hourwright/manual/images/"

# What to add to a sample with every protection, and what it then lacks.
CONTROLS = [
    ("", set()),
    ("-no-pie", {"not_position_independent"}),
    ("-Wl,-z,norelro", {"relocations_stay_writable"}),
    ("-Wl,-z,lazy", {"binds_lazily"}),
    ("-Wl,-z,execstack", {"stack_is_executable"}),
    ("-DWRITABLE_CODE", {"writable_code", "code_mixed_with_data"}),
    ("-DRELOCATION_IN_CODE -Wl,-z,notext", {"relocations_in_code"}),
    ("-Wl,-rpath,/opt/elsewhere", {"looks_for_libraries_elsewhere"}),
    ("-Wl,-z,noseparate-code", {"code_mixed_with_data"}),
    ("-fno-stack-protector", {"stack_unguarded"}),
    ("-U_FORTIFY_SOURCE", {"calls_unchecked"}),
    ("-U_GLIBCXX_ASSERTIONS", {"accesses_unchecked"}),
    ("-fno-stack-clash-protection", {"stack_may_be_jumped_over"}),
    ("-fcf-protection=none", {"branches_unmarked"}),
]
ONLY_X86 = {"stack_may_be_jumped_over", "branches_unmarked"}


class Report:
    """What was found wrong, printed at the end."""

    def __init__(self):
        self.checks = 0
        self.wrong = []

    def expect(self, right, message):
        self.checks += 1
        if not right:
            self.wrong.append(message)


def install(options, prefix):
    # A careless umask must not make the installed folders writable for others.
    subprocess.run([options.cmake, "--install", options.build, "--prefix", prefix], check=True,
                   stdout=subprocess.DEVNULL, umask=0o002)


def check_files(report, prefix):
    found = {str(path.relative_to(prefix)) for path in prefix.rglob("*") if not path.is_dir()}
    pictures = {name for name in found if name.startswith(PICTURES) and name.endswith(".png")}
    report.expect(pictures, "the manual has no pictures")
    report.expect(found - pictures == FILES, f"installed otherwise than listed: {sorted((found - pictures) ^ FILES)}")
    for path in [prefix / name for name in found] + [path for path in prefix.rglob("*") if path.is_dir()]:
        name = str(path.relative_to(prefix))
        expected = 0o755 if path.is_dir() or name in PROGRAMS else 0o644
        mode = path.lstat().st_mode & 0o7777
        report.expect(mode == expected, f"{name} has mode {mode:o} instead of {expected:o}")


def check_programs(report, prefix):
    for name in sorted(PROGRAMS):
        program = prefix / name
        report.expect(not lacking(Elf(program), "hourwright"), f"{name}: {sorted(lacking(Elf(program), 'hourwright'))}")
        run = subprocess.run([program, "--version"], capture_output=True, text=True)
        report.expect(run.returncode == 0 and re.fullmatch(rf"{program.name} \d+\.\d+\.\d+\n", run.stdout),
                      f"{name} --version: {run.stdout}{run.stderr}")


def check_names(report, prefix, source):
    """The files that other programs read name each other rightly."""
    desktop = (prefix / "share/applications/hourwright.desktop").read_text()
    report.expect(set(re.findall(r"^(?:Try)?Exec=(\S+)", desktop, re.M)) == {"hourwright"}, "desktop file: program")
    report.expect(re.search(r"^Icon=hourwright$", desktop, re.M), "desktop file: icon")
    metainfo = (prefix / "share/metainfo/com.quellmarch.Hourwright.metainfo.xml").read_text()
    report.expect("<id>com.quellmarch.Hourwright</id>" in metainfo and
                  '<launchable type="desktop-id">hourwright.desktop</launchable>' in metainfo, "metainfo: names")
    flatpak = (source / "data/flatpak/com.quellmarch.Hourwright.yml").read_text()
    stated = dict(re.findall(r"^([\w-]+): *(\S.*)$", flatpak, re.M))
    report.expect(stated["id"] == "com.quellmarch.Hourwright" and stated["command"] == "hourwright" and
                  stated["rename-desktop-file"] == "hourwright.desktop" and stated["rename-icon"] == "hourwright",
                  "Flatpak manifest: names")
    report.expect("--share=network" not in flatpak, "Flatpak manifest: asks for the network")


def compile_sample(options, flags, program):
    source = pathlib.Path(__file__).with_name("sample.cpp")
    subprocess.run([options.compiler, *shlex.split(options.flags), *shlex.split(flags), source, "-o", program],
                   check=True)
    return Elf(program)


def check_controls(report, options, folder):
    for flags, expected in CONTROLS:
        sample = compile_sample(options, flags, folder / "sample")
        if sample.machine != X86_64 and expected & ONLY_X86:
            continue
        found = lacking(sample, "copied")
        report.expect(found == expected, f"control '{flags}' lacks {sorted(found)} instead of {sorted(expected)}")


def check_control_flow_mark(report, options, prefix, folder):
    """A program is marked as protected only when the C library's start code is; then ours has to be as well."""
    possible = compile_sample(options, "", folder / "sample").x86_features()
    for name in sorted(PROGRAMS):
        marked = Elf(prefix / name).x86_features()
        report.expect(marked == possible, f"{name} is marked {marked} where {possible} is possible")
    return possible


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("cmake", "build", "source", "compiler", "flags"):
        parser.add_argument(f"--{name}", required=True)
    options = parser.parse_args()
    report = Report()
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        prefix, source = folder / "prefix", pathlib.Path(options.source)
        install(options, prefix)
        check_files(report, prefix)
        check_programs(report, prefix)
        check_names(report, prefix, source)
        check_controls(report, options, folder)
        possible = check_control_flow_mark(report, options, prefix, folder)
    print(f"{report.checks} checks, {len(report.wrong)} wrong; control-flow mark possible: {possible}")
    for message in report.wrong:
        print(message, file=sys.stderr)
    return 1 if report.wrong else 0


if __name__ == "__main__":
    os.environ["LC_ALL"] = "C"
    sys.exit(main())
