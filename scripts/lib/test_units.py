#!/usr/bin/env python3
"""Runs the tests of a GoogleTest program in units: many tests share a process where they share no state.

    test_units.py list TARGET PROGRAM FILE [--size N] [--alone PATTERN]... [--screen] [--managed PATTERN]...
        writes FILE for ctest (one add_test per unit) and FILE.json, the tests of each unit
    test_units.py run FILE.json UNIT
        runs one unit and writes its results to a folder "results" beside FILE.json
    test_units.py sum FOLDER...
        adds up the results in such folders and prints the last line of a test run

A unit has passed if each of its tests reported OK, because a crashed process may return 0 under Wine. Tests that did not
start because of a crash run in another process; a test that has started never runs again.
"""
import argparse
import fnmatch
import json
import os
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
MAX_PROCESSES = 8
# A program that finds its screen unfit prints this before it starts a test, see tests/support/screen_check.hpp.
UNFIT = "The screen is unfit: "
LANE_VARIABLES = ("CTEST_RESOURCE_GROUP_0_SCREENS", "CTEST_RESOURCE_GROUP_0_MANAGED")


def is_windows(program):
    return program.endswith(".exe")


def lane_folder():
    """The screen that ctest assigned to this unit: one of the folders that scripts/test opened."""
    lanes = os.environ.get("PAGEWICK_LANES")
    if not lanes:
        return os.environ.get("PAGEWICK_SESSION")
    given = [os.environ[name] for name in LANE_VARIABLES if name in os.environ] or ["id:1"]
    return str(Path(lanes) / re.match(r"id:(\w+)", given[0]).group(1))


def lane_environment(folder):
    environment = dict(os.environ, PAGEWICK_SESSION=folder)
    output = subprocess.run(["bash", "-c", 'source "$0/environment"; env -0', folder], check=True, env=environment,
                            stdout=subprocess.PIPE).stdout
    return dict(item.split("=", 1) for item in output.decode().split("\0") if item)


def renew_lane(folder):
    libraries = ROOT / "scripts" / "lib"
    subprocess.run(["bash", "-c", 'source "$0/common.sh"; source "$0/wine-session.sh"; renew_screen "$1"', str(libraries), folder],
                   check=True, stdin=subprocess.DEVNULL)


def run_program(program, arguments, log, folder):
    """Output goes to a file and not through a pipe, which Wine's own processes may keep open."""
    command = ["wine", program] if is_windows(program) else [program]
    with open(log, "wb") as output:
        return subprocess.run(command + arguments, stdout=output, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL,
                              env=lane_environment(folder) if is_windows(program) else None, check=False).returncode


def read_log(log):
    return Path(log).read_bytes().decode("utf-8", "replace").replace("\r\n", "\n")


def parse_list(text):
    tests, suite = [], ""
    for line in text.splitlines():
        name = line.split("#")[0].rstrip()
        if re.fullmatch(r"\S+\.", name):
            suite = name
        elif re.fullmatch(r"  \S+", name) and suite and not name.strip().startswith("DISABLED_"):
            tests.append(suite + name.strip())
    return tests


def suite_of(test):
    """The suite's name without the name of an instantiation and the number of a type."""
    parts = test.split(".")[0].split("/")
    return parts[0] if len(parts) == 1 or parts[1].isdigit() else parts[1]


def group(tests, size, alone):
    """Groups whole suites into units: small suites share a unit until it has `size` tests."""
    suites, own = {}, {}
    for test in tests:
        if any(fnmatch.fnmatchcase(test, pattern) for pattern in alone):
            own[test] = [test]
        else:
            suites.setdefault(suite_of(test), []).append(test)
    units, name = {}, None
    for suite, members in suites.items():
        if name is None or len(units[name]) + len(members) > size:
            name = suite
            units[name] = []
        units[name] += members
    units.update(own)
    return units


def list_units(options):
    listing, table = Path(options.file), Path(options.file + ".json")
    program = Path(options.program)
    # The last file contains the arguments of this call.
    sources = (program, Path(__file__), listing.parent / f"include-{options.target}.cmake")
    if table.exists() and listing.exists() and listing.stat().st_mtime > max(source.stat().st_mtime for source in sources):
        return 0
    log = options.file + ".log"
    run_program(str(program), ["--gtest_list_tests"], log, lane_folder())
    tests = parse_list(read_log(log))
    if not tests:
        print(read_log(log))
        sys.exit(f"{program.name} lists no test")
    units = group(tests, options.size, options.alone)
    table.write_text(json.dumps({"target": options.target, "program": str(program), "units": units}, indent=1))
    lines = []
    for unit, members in units.items():
        name = f"{options.target}.{unit}"
        lines.append(f'add_test("{name}" python3 "{__file__}" run "{table}" "{unit}")')
        properties = f"TIMEOUT {options.patience + options.seconds * len(members)} COST {options.seconds * len(members)}"
        if options.screen:
            is_managed = any(fnmatch.fnmatchcase(unit, pattern) for pattern in options.managed)
            properties += f" RESOURCE_GROUPS {'managed' if is_managed else 'screens'}:1"
        lines.append(f'set_tests_properties("{name}" PROPERTIES {properties})')
    listing.write_text("\n".join(lines) + "\n")
    return 0


class Unit:
    def __init__(self, table, name):
        data = json.loads(Path(table).read_text())
        self.name = f'{data["target"]}.{name}'
        self.program = data["program"]
        self.tests = data["units"][name]
        self.results = Path(os.environ.get("PAGEWICK_RESULTS") or Path(table).parent / "results")
        self.file = self.results / (re.sub(r"[^\w.]", "_", self.name) + ".json")
        self.passed, self.failed, self.skipped, self.notes = [], [], [], []
        self.seconds = 0.0

    def save(self):
        self.results.mkdir(parents=True, exist_ok=True)
        self.file.write_text(json.dumps({"unit": self.name, "tests": self.tests, "passed": self.passed, "failed": self.failed,
                                         "skipped": self.skipped, "notes": self.notes, "seconds": self.seconds}))

    def run(self):
        self.save()  # if this process is killed, tests without a result count as failed
        started = time.monotonic()
        folder = lane_folder() if is_windows(self.program) else None
        log = str(self.file) + ".log"
        for _ in range(MAX_PROCESSES):
            left = self.without_result()
            if not left:
                break
            status = run_program(self.program, ["--gtest_filter=" + ":".join(left)], log, folder)
            self.judge(read_log(log), left, status, folder)
        self.seconds = time.monotonic() - started
        self.failed += self.without_result()
        self.save()
        print(f"{self.name}: {len(self.passed)} passed, {len(self.failed)} failed, {len(self.skipped)} skipped in {self.seconds:.1f} s")
        return 1 if self.failed else 0

    def without_result(self):
        done = set(self.passed + self.failed + self.skipped)
        return [test for test in self.tests if test not in done]

    def judge(self, text, left, status, folder):
        ran = set(re.findall(r"^\[ RUN      \] (\S+)", text, re.M))
        passed = set(re.findall(r"^\[       OK \] (\S+)", text, re.M))
        skipped = set(re.findall(r"^\[  SKIPPED \] (\S+)", text, re.M))
        failed = set(re.findall(r"^\[  FAILED  \] ([^\s,]+).*\(\d+ ms\)", text, re.M))
        unfit = re.search(re.escape(UNFIT) + ".*", text)
        if unfit:  # printed before the test did anything, so the test has not started
            ran -= set(re.findall(r"^\[ RUN      \] (\S+)", text, re.M)[-1:]) - passed - failed - skipped
        self.passed += [test for test in left if test in passed]
        self.skipped += [test for test in left if test in skipped - passed]
        broken = [test for test in left if test in ran - passed - skipped]
        self.failed += broken
        ended = re.search(r"^\[==========\] .* ran\.", text, re.M)
        if broken or (not ended and not unfit and ran):
            print(text)
        if unfit or not ran:
            self.note(unfit.group(0) if unfit else f"a process ended with status {status} before its first test; output: {text[-2000:]!r}")
            if folder:
                renew_lane(folder)
        elif not ended:
            self.note(f"the process ended with status {status} before its last test")

    def note(self, text):
        self.notes.append(text)
        print(f"{self.name}: {text}")


def sum_up(options):
    passed, skipped, failed, notes, seconds = 0, [], [], [], {}
    for folder in options.folders:
        for file in sorted(Path(folder).glob("*.json")):
            unit = json.loads(file.read_text())
            passed += len(unit["passed"])
            done = unit["passed"] + unit["skipped"]
            skipped += [f'{unit["unit"].split(".")[0]}: {test}' for test in unit["skipped"]]
            failed += [f'{unit["unit"].split(".")[0]}: {test}' for test in unit["tests"] if test not in done]
            notes += [f'{unit["unit"]}: {note}' for note in unit["notes"]]
            seconds[unit["unit"]] = unit["seconds"]
    slowest = sorted(seconds.items(), key=lambda item: -item[1])[:8]
    print("Slowest: " + ", ".join(f"{name} {time:.0f} s" for name, time in slowest))
    for note in notes:
        print(f"Noted: {note}")
    for test in skipped:
        print(f"Skipped: {test}")
    for test in failed:
        print(f"Failed: {test}")
    print(f"{passed} passed, {len(failed)} failed" + (f", {len(skipped)} skipped" if skipped else ""))
    return 1 if failed or passed == 0 else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(required=True)
    lister = commands.add_parser("list")
    for argument in ("target", "program", "file"):
        lister.add_argument(argument)
    lister.add_argument("--size", type=int, default=1)
    lister.add_argument("--seconds", type=int, default=1)
    lister.add_argument("--patience", type=int, default=120)
    lister.add_argument("--alone", action="append", default=[])
    lister.add_argument("--screen", action="store_true")
    lister.add_argument("--managed", action="append", default=[])
    lister.set_defaults(call=list_units)
    runner = commands.add_parser("run")
    runner.add_argument("table")
    runner.add_argument("unit")
    runner.set_defaults(call=lambda options: Unit(options.table, options.unit).run())
    adder = commands.add_parser("sum")
    adder.add_argument("folders", nargs="+")
    adder.set_defaults(call=sum_up)
    options = parser.parse_args()
    sys.exit(options.call(options))


if __name__ == "__main__":
    main()
