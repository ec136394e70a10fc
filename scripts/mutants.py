#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows which one-line changes of the product no test notices.

A mutant is one line of a .cpp of src/link, src/settings, src/sheet or src/calibration in which a condition is inverted, a
call is removed or a bound is moved by one. Each is built in a build directory of its own and meets the tests of its folder,
then, if those pass, all the others of orv_tests. What no test notices is listed as a survivor.

    scripts/mutants.py --count 40 --seed 7 --folder link
    scripts/mutants.py --list --folder sheet        only says which mutants there are
    scripts/mutants.py --own                        only the tests of the folder itself

The source files are put back whatever happens: each before its next mutant, at an interruption and at the end; and only one
run at a time can change them. It refuses to begin on a changed source file.

scripts/mutants-explained.txt says why a survivor changes nothing that a test could see: one a line, "file: line's text =>
mutant's text  # why". Those are counted apart. The exit status is 1 if more than --most percent survive unexplained.
"""

import argparse
import contextlib
import fcntl
import os
import random
import re
import signal
import subprocess
import sys
import time
from collections import Counter
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FOLDERS = ("link", "settings", "sheet", "calibration")
EXPLAINED = ROOT / "scripts" / "mutants-explained.txt"
COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}


class Mutant:
    def __init__(self, path, number, kind, old, new):
        self.path, self.number, self.kind, self.old, self.new = path, number, kind, old, new

    @property
    def name(self):
        return f"{self.path.relative_to(ROOT)}:{self.number}"

    @property
    def explanation_key(self):
        return f"{self.path.relative_to(ROOT)}: {self.old.strip()} => {self.new.strip() or '(removed)'}"

    def __str__(self):
        return f"{self.name} {self.kind}\n    - {self.old.strip()}\n    + {self.new.strip() or '(removed)'}"


def without_texts(line):
    """The line with the insides of its texts and its comment blanked, so that places stay."""
    line = re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'', lambda m: m[0][0] + "~" * (len(m[0]) - 2) + m[0][-1], line)
    return re.sub(r"//.*", lambda m: " " * len(m[0]), line)


def mutants_of_line(line):
    """Yields (kind, changed line)."""
    code = without_texts(line)
    if re.match(r"\s*(#|template|static_assert|namespace|using|case |default:|})", code) and "else if" not in code:
        return
    for match in re.finditer(r"(?<= )(<=|>=|==|!=|<|>)(?= )", code):
        start, end = match.span()
        kind = "inverted" if match[0] in ("==", "!=") else "bound"
        yield kind, line[:start] + COMPARISONS[match[0]] + line[end:]
    match = re.search(r"\b(if|while) \((?!const |auto |Q)(.+)\) \{$", code)
    if match and ";" not in match[2]:
        start, end = match.span(2)
        yield "inverted", line[:start] + "!(" + line[start:end] + ")" + line[end:]
    for match in re.finditer(r" (&&|\|\|) ", code):
        start, end = match.span(1)
        yield "inverted", line[:start] + ("||" if match[1] == "&&" else "&&") + line[end:]
    for match in re.finditer(r"(?<=[ (])([+-])(?= \d+\b)", code):
        start, end = match.span(1)
        yield "bound", line[:start] + ("-" if match[1] == "+" else "+") + line[end:]
    if re.match(r"\s+(co_await )?[A-Za-z_][\w:.\->()\[\]]*\(.*\);$", code) and not re.match(
        r"\s+(return|throw|co_return|delete)\b", code
    ):
        yield "removed", re.sub(r"\S.*", ";", line.rstrip("\n")) + ("\n" if line.endswith("\n") else "")
    elif re.match(r"\s+[A-Za-z_][\w.\->]*(\[[^]]*\])? [+\-|]?= [^;]+;$", code):
        yield "removed", re.sub(r"\S.*", ";", line.rstrip("\n")) + ("\n" if line.endswith("\n") else "")
    match = re.search(r"(?:constexpr|static constexpr) (?:int|qint16|qint64|qsizetype|quint64) \w+ = ([\d']+);", code)
    if match:
        start, end = match.span(1)
        yield "bound", line[:start] + str(int(line[start:end].replace("'", "")) + 1) + line[end:]


def all_mutants(folders):
    mutants = []
    for folder in folders:
        for path in sorted((ROOT / "src" / folder).glob("*.cpp")):
            if path.name.endswith("_test.cpp"):
                continue
            depth_of_literal = 0
            for number, line in enumerate(path.read_text().splitlines(keepends=True), 1):
                depth_of_literal += line.count('R"') - line.count(')"') if 'R"' in line or depth_of_literal else 0
                if depth_of_literal > 0:
                    continue
                mutants += [Mutant(path, number, kind, line, new) for kind, new in mutants_of_line(line) if new != line]
    return mutants


def tests_of(folder):
    """The filter that chooses the tests of a folder."""
    suites = set()
    for path in (ROOT / "src" / folder).glob("*_test.cpp"):
        for macro, suite in re.findall(r"^(TEST|TEST_F|TEST_P)\((\w+),", path.read_text(), re.M):
            suites.add(f"*/{suite}.*" if macro == "TEST_P" else f"{suite}.*")
    return ":".join(sorted(suites))


@contextlib.contextmanager
def source_changed(path, text):
    before = path.read_bytes()
    try:
        path.write_text(text)
        yield
    finally:
        path.write_bytes(before)


class Trial:
    def __init__(self, build, own):
        self.build, self.own = build, own
        self.program = build / "bin" / "orv_tests"
        self.limits = {}  # seconds for the tests of a filter, after which they hang

    def run(self, command, limit):
        with subprocess.Popen(
            command, cwd=ROOT, start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env={**os.environ, "QT_QPA_PLATFORM": "offscreen"},
        ) as process:
            try:
                return process.wait(limit)
            except BaseException as error:
                os.killpg(process.pid, signal.SIGKILL)  # this one and what it started
                process.wait()
                if isinstance(error, subprocess.TimeoutExpired):
                    return None
                raise

    def compile(self):
        return self.run(["nice", "cmake", "--build", str(self.build), "--target", "orv_tests"], 1800) == 0

    def test(self, chosen, limit):
        command = ["nice", str(self.program), "--gtest_fail_fast", "--gtest_brief=1", f"--gtest_filter={chosen}"]
        return self.run(command, limit)

    def filters(self, folder):
        own = tests_of(folder)
        return [own] if self.own else [own, f"-{own}"]

    def passes_without_mutant(self, folders):
        if not self.compile():
            return False
        for chosen in (chosen for folder in folders for chosen in self.filters(folder)):
            began = time.monotonic()
            if self.test(chosen, 600) != 0:
                return False
            self.limits[chosen] = 10 + 4 * (time.monotonic() - began)
        return True

    def verdict(self, mutant):
        folder = mutant.path.parent.name
        lines = mutant.path.read_text().splitlines(keepends=True)
        lines[mutant.number - 1] = mutant.new
        with source_changed(mutant.path, "".join(lines)):
            if not self.compile():
                return "not built"
            for chosen in self.filters(folder):
                result = self.test(chosen, self.limits[chosen])
                if result != 0:
                    return "timed out" if result is None else "caught"
        return "survived"


def explanations():
    if not EXPLAINED.exists():
        return {}
    pairs = (line.rsplit("  # ", 1) for line in EXPLAINED.read_text().splitlines() if "  # " in line)
    return {key.strip(): why for key, why in pairs}


def print_summary(verdicts, explained):
    kinds = ("caught", "timed out", "explained", "survived", "not built")
    table = {}
    for mutant, verdict in verdicts:
        if verdict == "survived" and mutant.explanation_key in explained:
            verdict = "explained"
        for row in (mutant.path.parent.name, "all"):
            table.setdefault(row, Counter())[verdict] += 1
    print(f"\n{'folder':<12}" + "".join(f"{kind:>11}" for kind in kinds) + f"{'survive':>10}")
    share = 0.0
    for row in sorted(table, key=lambda name: (name == "all", name)):
        counts = table[row]
        tried = sum(counts.values()) - counts["not built"]
        share = 100.0 * counts["survived"] / tried if tried else 0.0
        print(f"{row:<12}" + "".join(f"{counts[kind]:>11}" for kind in kinds) + f"{share:>8.1f} %")
    return share


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--folder", choices=FOLDERS, action="append", help="may be given several times; default: all")
    parser.add_argument("--count", type=int, help="try so many, chosen by the seed; default: all")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--own", action="store_true", help="only the tests of the mutant's folder")
    parser.add_argument("--list", action="store_true", help="list the mutants and try none")
    parser.add_argument("--most", type=float, default=5.0, help="percent that may survive unexplained; default 5")
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "mutants", help="the build directory")
    arguments = parser.parse_args()

    mutants = all_mutants(arguments.folder or FOLDERS)
    if arguments.count is not None:
        mutants = random.Random(arguments.seed).sample(mutants, min(arguments.count, len(mutants)))
        mutants.sort(key=lambda mutant: (mutant.path, mutant.number))
    if arguments.list:
        for mutant in mutants:
            print(mutant)
        print(len(mutants), "mutants")
        return 0

    sources = [str(ROOT / "src" / folder) for folder in arguments.folder or FOLDERS]
    if subprocess.run(["git", "status", "--porcelain", "--", *sources], cwd=ROOT, capture_output=True, check=True).stdout:
        sys.exit("The sources are changed: commit first.")
    arguments.build.mkdir(parents=True, exist_ok=True)
    lock = open(arguments.build / "mutants.lock", "w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError:
        sys.exit("Another run is changing the sources.")
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda *_: sys.exit("Interrupted."))

    if not (arguments.build / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", "dev", "-B", str(arguments.build)], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    trial = Trial(arguments.build, arguments.own)
    if not trial.passes_without_mutant({mutant.path.parent.name for mutant in mutants}):
        sys.exit("The tests do not pass without a mutant.")

    verdicts = []
    explained = explanations()
    try:
        for mutant in mutants:
            began = time.monotonic()
            verdict = trial.verdict(mutant)
            verdicts.append((mutant, verdict))
            print(f"{verdict:<10} {time.monotonic() - began:5.0f} s  {mutant.name} {mutant.kind}", flush=True)
    except KeyboardInterrupt:
        print("Interrupted.")
    finally:
        survivors = [mutant for mutant, verdict in verdicts if verdict == "survived"]
        if survivors:
            print("\nSurvivors:")
        for mutant in survivors:
            why = explained.get(mutant.explanation_key)
            print(mutant if why is None else f"{mutant}\n    explained: {why}")
        share = print_summary(verdicts, explained)
    return 1 if share > arguments.most else 0


if __name__ == "__main__":
    sys.exit(main())
