#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows which one-line changes of the product no test notices.

A mutant is one statement of a .cpp of src/link, src/settings, src/sheet, src/calibration or src/program in which a condition
is inverted, a call or an assignment is removed, or a bound is moved by one. All of them are built at once, into a copy of the
tree in --scratch: "if (a < b) {" reads there "if (mutant(17) ? (a <= b) : (a < b)) {", and ORV_MUTANT=17 in the environment
chooses that one. What cannot be written so (it does not compile) is left out and counted. The sources here are never touched.

    scripts/mutants.py --count 400 --seed 7 --folder link
    scripts/mutants.py --list --folder sheet        only says which mutants there are
    scripts/mutants.py --only 17,18                 the mutants of these numbers

Each mutant meets the tests of its folder, then all others of orv_tests, and with --windows orv_ui_tests, until one fails or
crashes, or they take longer than 10 s and three times as long as without a mutant. What no test notices is a survivor.

scripts/mutants-explained.txt says why a survivor changes nothing that a test could see: one a line, "file: statement =>
mutant  # why". Those are counted apart. The exit status is 1 if more than --most percent survive unexplained.
"""

import argparse
import fcntl
import functools
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FOLDERS = ("link", "settings", "sheet", "calibration", "program")
EXPLAINED = ROOT / "scripts" / "mutants-explained.txt"
COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
HEADER = """#pragma once
#include <cstdlib>
inline bool mutant(int number) {
    static const int chosen = [] { const char* text = std::getenv("ORV_MUTANT"); return text ? std::atoi(text) : 0; }();
    return chosen == number;
}
"""


class Mutant:
    def __init__(self, statement, kind, part, new):
        self.statement, self.kind = statement, kind
        self.part, self.new = part, new  # what of the statement is changed (start, end), and into what
        self.number = 0

    @property
    def changed(self):
        start, end = self.part
        return self.statement.text[:start] + self.new + self.statement.text[end:]

    @property
    def key(self):
        return f"{self.statement.file}: {self.statement.text} => {self.changed or '(removed)'}"

    def __str__(self):
        text, changed = self.statement.text, self.changed or "(removed)"
        return f"{self.number} {self.statement.file}:{self.statement.line} {self.kind}\n    - {text}\n    + {changed}"


def blanked(text):
    """The text with the insides of its literals blanked, so that places stay."""
    return re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'', lambda m: m[0][0] + "~" * (len(m[0]) - 2) + m[0][-1], text)


class Statement:
    """One statement, or the head of one up to its brace, on one line without comments."""

    def __init__(self, file, line, lines):
        self.file, self.line, self.lines = str(file), line, lines
        self.text = " ".join(filter(None, lines))
        code = blanked(self.text)
        self.shape, self.part = "", (0, 0)
        balanced = all(code.count(a) == code.count(b) for a, b in ("()", "{}", "[]"))
        if match := re.match(r"(?:\} else )?(?:if|while) \((?:.*; )?(.*)\) \{$|\} while \((.*)\);$", code):
            self.shape, self.part = "value", match.span(1 if match[1] is not None else 2)
            if re.match(r"(const )?(auto|[A-Z]\w+)[&*]* [\w&*]+ = ", self.text[self.part[0]:]):
                self.shape = ""
        elif match := re.match(r"for \([^;]*; (.*); [^;]*\) \{$", code):
            self.shape, self.part = "value", match.span(1)
        elif not code.endswith(";") or not balanced or re.match(r"(template|static_assert|namespace|using|case|default)\b", code):
            pass
        elif match := re.match(r"(?!return|co_return|throw|delete)(?:[\w:]+(?:<.*>)?[&*]* )+[&*]?\w+ = (.+);$", code):
            self.shape, self.part = "value", match.span(1)
        else:
            self.shape, self.part = "statement", (0, len(code))
        if self.shape == "value" and "co_await" in self.text:
            self.shape = ""

    def mutants(self):
        if not self.shape:
            return
        start, end = self.part
        code = blanked(self.text)
        for match in re.finditer(r"(?<= )(<=|>=|==|!=|<|>)(?= )", code[start:end]):
            kind = "inverted" if match[0] in ("==", "!=") else "bound"
            yield Mutant(self, kind, (start + match.start(), start + match.end()), COMPARISONS[match[0]])
        for match in re.finditer(r"(?<= )(&&|\|\|)(?= )", code[start:end]):
            yield Mutant(self, "inverted", (start + match.start(), start + match.end()), "||" if match[1] == "&&" else "&&")
        for match in re.finditer(r"(?<=[ (])([+-])(?= \d+\b)", code[start:end]):
            yield Mutant(self, "bound", (start + match.start(), start + match.end()), "-" if match[1] == "+" else "+")
        if re.match(r"(\} else )?(if|while)|\} while", code):
            # "a == b" alone has been inverted above.
            if not re.fullmatch(r"[^&|]* [!=]= [^&|]*", code[start:end]):
                yield Mutant(self, "inverted", self.part, f"!({self.text[start:end]})")
        elif match := re.match(r"(?:static )?constexpr (?:int|qint16|qint64|qsizetype|quint64) \w+ = ([\d']+);", code):
            yield Mutant(self, "bound", match.span(1), str(int(match[1].replace("'", "")) + 1))
        elif self.shape == "statement" and re.match(
            r"(?!return|co_return|throw|delete)((co_await )?[A-Za-z_][\w:.\->()\[\]*]*\(.*\)|[\w.\->*]+(\[[^]]*\])? [-+|]?= .+|(\+\+|--)\S+);$",
            code,
        ):
            yield Mutant(self, "removed", self.part, "")

    def with_mutants(self, mutants):
        """The line that holds the statement and its mutants."""
        start, end = self.part
        if self.shape == "statement":
            branches = "".join(f"if (mutant({one.number})) {{ {one.changed} }} else " for one in mutants)
            last = f"{{ {self.text} }}"
            if re.match(r"(co_)?return\b", self.text):  # so that each way returns
                branches, last = branches.replace("} else ", "} "), self.text
            return branches + last
        text = self.text
        parts = "".join(f"mutant({one.number}) ? ({one.changed[start:len(one.changed) - (len(text) - end)]}) : " for one in mutants)
        return text[:start].replace("constexpr", "const") + parts + f"({text[start:end]})" + text[end:]


def statements_of(file):
    lines = (ROOT / file).read_text().splitlines()
    found, first = [], 0
    for number, line in enumerate(lines):
        code = re.sub(r"\s*//.*", "", blanked(line))
        if code.startswith("#"):
            first = number + 1
        elif not code.strip() or code[-1] in ";{}:":
            parts = [lines[i][: len(re.sub(r"\s*//.*", "", blanked(lines[i])))].strip() for i in range(first, number + 1)]
            found.append(Statement(file, first + 1, parts))
            first = number + 1
    return found


def all_mutants():
    mutants = []
    files = [path.relative_to(ROOT) for folder in FOLDERS for path in sorted((ROOT / "src" / folder).glob("*.cpp"))]
    for place, file in enumerate(file for file in files if not file.name.endswith("_test.cpp")):
        of_file = [mutant for statement in statements_of(file) for mutant in statement.mutants()]
        for number, mutant in enumerate(of_file, 1000 * place + 1):  # a changed file does not renumber the others
            mutant.number = number
        mutants += of_file
    return mutants


@functools.cache  # as they were built, whatever is edited meanwhile
def tests_of(folder):
    """The filter that chooses the tests of a folder."""
    suites = set()
    for path in (ROOT / "src" / folder).glob("*_test.cpp"):
        for macro, suite in re.findall(r"^(TEST|TEST_F|TEST_P)\((\w+),", path.read_text(), re.M):
            suites.add(f"*/{suite}.*" if macro == "TEST_P" else f"{suite}.*")
    return ":".join(sorted(suites))


class Copy:
    """The tree with all mutants, in the scratch folder."""

    def __init__(self, scratch, windows):
        self.tree, self.build, self.temporary = scratch / "tree", scratch / "build", scratch / "tmp"
        self.windows = windows
        self.limits = {}  # seconds for a stage, after which it hangs

    def write(self, mutants):
        of_file = {}
        for mutant in mutants:
            of_file.setdefault(mutant.statement.file, {}).setdefault(mutant.statement.line, []).append(mutant)
        tracked = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, check=True).stdout.decode()
        files = {name for name in tracked.split("\0") if name and (ROOT / name).is_file()}
        for old in self.tree.rglob("*"):
            if old.is_file() and str(old.relative_to(self.tree)) not in files:
                old.unlink()
        for name in files:
            content = (ROOT / name).read_bytes()
            if name in of_file:
                lines = content.decode().splitlines()
                lines[0] = f'#include "{self.tree}/mutant.h"'
                for number, of_line in of_file[name].items():
                    statement = of_line[0].statement
                    lines[number - 1 : number - 1 + len(statement.lines)] = [statement.with_mutants(of_line)] + [""] * (
                        len(statement.lines) - 1
                    )
                content = "\n".join(lines + [""]).encode()
            self.put(name, content)
        self.put("mutant.h", HEADER.encode())

    def put(self, name, content):
        """What is the same is left as it is, so that it is not built again."""
        path = self.tree / name
        if not path.exists() or path.read_bytes() != content:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)

    def compile(self, mutants):
        """Returns the mutants that compile."""
        while True:
            self.write(mutants)
            if not (self.build / "build.ninja").exists():
                command = ["cmake", "--preset", "dev", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_UNITY_BUILD=ON", "-B", str(self.build)]
                subprocess.run(command, cwd=self.tree, check=True, stdout=subprocess.DEVNULL)
            command = ["nice", "ninja", "-C", str(self.build), "-k", "0", "orv_tests", "orv_pty_tests"]
            command += ["orv_ui_tests"] if self.windows else []
            result = subprocess.run(command, capture_output=True, text=True)
            if result.returncode == 0:
                return mutants
            wrong = set(re.findall(rf"{re.escape(str(self.tree))}/(src/\S+?):(\d+):\d+: error", result.stdout))
            left = [one for one in mutants if (one.statement.file, str(one.statement.line)) not in wrong]
            if len(left) == len(mutants):
                sys.exit(result.stdout[-5000:] + "\nThe copy does not compile.")
            mutants = left

    def run(self, stage, number, limit):
        """Runs the tests of a stage with a mutant; returns the exit status, None if they hang."""
        program, chosen = stage
        (self.temporary / str(number)).mkdir(parents=True, exist_ok=True)
        environment = {"QT_QPA_PLATFORM": "offscreen", "ORV_MUTANT": str(number), "TMPDIR": str(self.temporary / str(number))}

        def keep_small():
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(resource.RLIMIT_AS, (2**32, 2**32))

        with subprocess.Popen(
            ["nice", str(self.build / "bin" / program), "--gtest_fail_fast", "--gtest_brief=1", f"--gtest_filter={chosen}"],
            cwd=self.temporary / str(number), start_new_session=True, preexec_fn=keep_small, env={**os.environ, **environment},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        ) as process:
            try:
                return process.wait(limit)
            except subprocess.TimeoutExpired:
                return None
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)  # this one and what it started
                except ProcessLookupError:
                    pass
                process.wait()
                shutil.rmtree(self.temporary / str(number), ignore_errors=True)

    def stages(self, folder):
        own = tests_of(folder)
        stages = [("orv_tests", own), ("orv_pty_tests", own), ("orv_tests", f"-{own}")]
        return stages + ([("orv_ui_tests", "*")] if self.windows else [])

    def passes_without_mutant(self, folders):
        for stage in (stage for folder in folders for stage in self.stages(folder)):
            if stage not in self.limits:
                began = time.monotonic()
                if self.run(stage, 0, 900) != 0:
                    print("Fails without a mutant:", *stage)
                    return False
                self.limits[stage] = 10 + 3 * (time.monotonic() - began)
        return True

    def verdict(self, mutant):
        for stage in self.stages(mutant.statement.file.split("/")[1]):
            result = self.run(stage, mutant.number, self.limits[stage])
            if result != 0:
                return "timed out" if result is None else "caught"
        return "survived"


def explanations():
    if not EXPLAINED.exists():
        return {}
    pairs = (line.rsplit("  # ", 1) for line in EXPLAINED.read_text().splitlines() if "  # " in line)
    return {key.strip(): why for key, why in pairs}


def print_summary(verdicts):
    """Prints the figures of each folder; returns what percentage survived unexplained."""
    kinds = ("caught", "timed out", "explained", "survived")
    table = {}
    for mutant, verdict in verdicts:
        for row in (mutant.statement.file.split("/")[1], "all"):
            table.setdefault(row, Counter())[verdict] += 1
    print(f"\n{'folder':<12}" + "".join(f"{kind:>11}" for kind in kinds) + f"{'survive':>10}")
    share = 0.0
    for row in sorted(table, key=lambda name: (name == "all", name)):
        counts = table[row]
        share = 100.0 * counts["survived"] / sum(counts.values())
        print(f"{row:<12}" + "".join(f"{counts[kind]:>11}" for kind in kinds) + f"{share:>8.1f} %")
    return share


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--folder", choices=FOLDERS, action="append", help="may be given several times; default: all")
    parser.add_argument("--count", type=int, help="try so many, chosen by the seed; default: all")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", help="the mutants of these numbers, with commas between")
    parser.add_argument("--windows", action="store_true", help="let what survives meet orv_ui_tests too")
    parser.add_argument("--list", action="store_true", help="list the mutants and try none")
    parser.add_argument("--most", type=float, default=5.0, help="percent that may survive unexplained; default 5")
    parser.add_argument("--jobs", type=int, default=1, help="how many mutants are tried at once; default 1")
    parser.add_argument("--scratch", type=Path, default=Path(tempfile.gettempdir()) / "orvhost-mutants")
    arguments = parser.parse_args()

    everything = all_mutants()
    mutants = [one for one in everything if one.statement.file.split("/")[1] in (arguments.folder or FOLDERS)]
    if arguments.list:
        print(*mutants, f"{len(mutants)} mutants", sep="\n")
        return 0

    arguments.scratch.mkdir(parents=True, exist_ok=True)
    lock = open(arguments.scratch / "lock", "w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError:
        sys.exit("Another run uses this scratch folder.")
    copy = Copy(arguments.scratch, arguments.windows)
    compiled = copy.compile(everything)
    print(f"{len(everything)} mutants, {len(everything) - len(compiled)} left out because they do not compile", flush=True)
    mutants = [one for one in mutants if one in compiled]
    if arguments.only:
        mutants = [one for one in mutants if str(one.number) in arguments.only.split(",")]
    elif arguments.count is not None:
        print("seed", arguments.seed)
        mutants = random.Random(arguments.seed).sample(mutants, min(arguments.count, len(mutants)))
        mutants.sort(key=lambda one: one.number)
    if not copy.passes_without_mutant({one.statement.file.split("/")[1] for one in mutants}):
        sys.exit("The tests do not pass without a mutant.")

    explained = explanations()
    verdicts = []

    def attempt(mutant):
        began = time.monotonic()
        verdict = copy.verdict(mutant)
        if verdict == "survived" and mutant.key in explained:
            verdict = "explained"
        verdicts.append((mutant, verdict))
        print(f"{verdict:<10} {time.monotonic() - began:5.0f} s  {mutant}", flush=True)

    with ThreadPoolExecutor(arguments.jobs) as pool:
        list(pool.map(attempt, mutants))
    print("\nSurvivors:" if any(verdict == "survived" for _, verdict in verdicts) else "")
    for mutant, verdict in verdicts:
        if verdict == "survived":
            print(mutant)
    return 1 if print_summary(verdicts) > arguments.most else 0


if __name__ == "__main__":
    sys.exit(main())
