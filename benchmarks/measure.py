#!/usr/bin/env python3
"""What the library costs, beside the parsers that a host's author could pick instead: measure.py [--quick] FOLDER

FOLDER holds the benchmarks of one build. Every figure comes from a process of its own; those that are compared take
turns, and a ratio is the median of the ratios of neighbours, so that what disturbs the machine disturbs both. Prints
Markdown, the goals last. --quick asks each question once, for little: whether all answer.
"""
import os
import pathlib
import resource
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
QUICK = "--quick" in sys.argv
FOLDER = pathlib.Path(sys.argv[-1])
BITS = 64 if (FOLDER / "bench_vorn").read_bytes()[4] == 2 else 32
COMPILER = ["g++", f"-m{BITS}", "-I", str(ROOT / "include")]
NAMES = {"vorn": "vorn", "companion": "vorn, companion", "getopt": "getopt_long", "llvm": "LLVM CommandLine",
         "cxxopts": "cxxopts without regex", "cli11": "CLI11", "boost": "Boost.Program_options", "hand": "by hand"}
PEERS = [name for name in NAMES if (FOLDER / f"bench_{name}").exists()]
PREFIX_PEERS = [name for name in ("vorn", "getopt", "boost") if name in PEERS]
COUNTS = [10, 100] if QUICK else [10, 100, 1000]
MANY = 1000 if QUICK else 100000
goals = []


def figure(value):
    if value is None:
        return "-"
    return f"{value:.0f}" if value >= 100 or value == int(value) else f"{value:.3g}"


def goal(text, bound, value, unit="times"):
    """Notes whether a goal is met. No value: this build cannot measure it."""
    verdict = "not measured" if value is None else f"{figure(value)}, " + ("met" if round(value, 2) <= bound else "MISSED")
    goals.append(f"goal {text}, at most {figure(bound)} {unit}: {verdict}")
    return value


def table(title, note, header, rows):
    print(f"### {title}\n\n{note}\n" if note else f"### {title}\n")
    for row in [header, ["---"] * len(header), *rows]:
        print("| " + " | ".join(row) + " |")
    print(flush=True)


def ask(program, *words):
    command = [FOLDER / f"bench_{program}", *map(str, words)]
    return float(subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout)


class Race:
    """Subjects, each a function that gives a figure, asked in turns. Who has used up five seconds sits out the rest."""

    def __init__(self, subjects, rounds):
        self.series = {label: [] for label in subjects}
        used = dict.fromkeys(subjects, 0.0)
        for turn in range(1 if QUICK else rounds):
            for label in subjects if turn % 2 else reversed(subjects):
                if used[label] < 5:
                    begun = time.perf_counter()
                    self.series[label].append(subjects[label]())
                    used[label] += time.perf_counter() - begun

    def median(self, label):
        return statistics.median(self.series[label]) if label in self.series else None

    def ratio(self, label, other):
        if label not in self.series or other not in self.series:
            return None
        return statistics.median(own / its for own, its in zip(self.series[label], self.series[other]))

    def cell(self, label, scale=1.0):
        """The figure, and in brackets what vorn takes of it."""
        if label not in self.series:
            return "-"
        shown = figure(self.median(label) / scale)
        return shown if label == "vorn" else f"{shown} ({figure(self.ratio('vorn', label))})"


def race(question, options, arguments, form="full", points=1, peers=None, rounds=7):
    return Race({peer: lambda peer=peer: ask(peer, question, options, arguments, form, points)
                 for peer in peers or PEERS}, rounds)


def write_races(title, note, races, scale=1.0):
    """One column for each race, one row for each peer that took part in any."""
    rows = [[NAMES[peer], *(race.cell(peer, scale) for race in races.values())]
            for peer in PEERS if any(peer in race.series for race in races.values())]
    table(title, note + " In brackets what vorn takes of it.", ["parser", *races], rows)


def columns(races, note=""):
    return {f"N={n}{note}": one for n, one in races.items()}


def ask_first_parse():
    plain = {n: race("first", n, 10, points=0, rounds=41) for n in COUNTS}
    points = {n: race("first", n, 10, peers=[p for p in PEERS if p in ("vorn", "llvm")], rounds=41) for n in COUNTS}
    write_races("First registration and first parse of a process", "Microseconds; N options, 10 arguments.",
                columns(plain) | columns(points, ", decimal points"), 1000)
    for n, of_cxxopts in zip(COUNTS, (0.32, 0.19, 0.12)):
        if BITS == 64:
            goal(f"first parse, N={n}, beside LLVM CommandLine", 0.55, plain[n].ratio("vorn", "llvm"))
            goal(f"first parse, N={n}, with decimal points, beside LLVM CommandLine", 1, points[n].ratio("vorn", "llvm"))
        else:
            goal(f"first parse, N={n}, beside cxxopts", of_cxxopts, plain[n].ratio("vorn", "cxxopts"))
    goal("registering 100 options and parsing 10 arguments, cold, companion beside the plain interface", 1.6,
         plain[100].ratio("companion", "vorn"))


def ask_fresh_parser():
    full = {n: race("fresh", n, 10) for n in COUNTS}
    prefix = {n: race("fresh", n, 10, "prefix", peers=PREFIX_PEERS) for n in COUNTS}
    write_races("A parser of its own for each parse", "Nanoseconds an argument of 10, registration not counted.",
                columns(full) | columns(prefix, ", shortened"))
    for n, bound in zip(COUNTS, (2, 1, 1)):
        goal(f"fresh parser, shortened names, N={n}, beside getopt_long", bound, prefix[n].ratio("vorn", "getopt"))


def ask_registration():
    times = {n: race("register", n, 1, peers=[p for p in PEERS if p != "getopt"]) for n in COUNTS}
    calls = {n: race("heap", n, 1, rounds=1) for n in COUNTS}
    write_races("Registration", "Nanoseconds an option, from making the parser to releasing it.", columns(times))
    write_races("Heap calls for registration", "Calls an option.", columns(calls))
    for n, of_llvm, of_cxxopts in zip(COUNTS, (0.8, 0.7, 0.7), (0.14, 0.14, 0.145)):
        if BITS == 64:
            goal(f"registration, N={n}, beside LLVM CommandLine", of_llvm, times[n].ratio("vorn", "llvm"))
            goal(f"registration, N={n}, beside Boost.Program_options", 0.5, times[n].ratio("vorn", "boost"))
        else:
            goal(f"registration, N={n}, beside cxxopts", of_cxxopts, times[n].ratio("vorn", "cxxopts"))
        goal(f"registration, N={n}, heap calls an option", 1.5, calls[n].median("vorn"), "calls")
    if "companion" in PEERS:
        goal("an option of a command that was not chosen, of 200 with 50 options each", 100, ask("commands"), "ns")


def ask_process():
    arguments = ["--output-file=a.txt", "--level=3", "--verbose", "--ratio=0.5", "--define=a,b"]

    def run(name):
        program = FOLDER / f"bench_start_{name}"
        begun = time.perf_counter_ns()
        child = os.posix_spawn(program, [str(program), *arguments], os.environ)
        if os.waitpid(child, 0)[1] != 0:
            raise SystemExit(f"{program} fails")
        return (time.perf_counter_ns() - begun) / 1000
    hosts = {"plain": "the plain interface", "archive": "the plain interface, library as an archive",
             "companion": "the companion", "empty": "none: an empty main"}
    times = Race({name: lambda name=name: run(name) for name in hosts}, 301)
    table("Whole process", "Five options and five arguments, beside an empty main with the C++ runtime.",
          ["host", "microseconds", "ratio"],
          [[text, figure(times.median(name)), figure(times.ratio(name, "empty"))] for name, text in hosts.items()])
    for name, bound in (("plain", 1.15), ("companion", 1.2), ("archive", 1.06)):
        goal(f"whole process, {hosts[name]}, beside an empty main", bound, times.ratio(name, "empty"))


def ask_growth():
    full = {n: race("warm", n, 1000) for n in COUNTS}
    prefix = {n: race("warm", n, 1000, "prefix", peers=PREFIX_PEERS) for n in COUNTS}
    write_races("One parser for many parses", "Nanoseconds an argument of 1000.",
                columns(full) | columns(prefix, ", shortened"))
    if BITS == 64:
        for n, bound in zip(COUNTS, (1, 1, 1.3)):
            goal(f"warm parse, N={n}, beside LLVM CommandLine", bound, full[n].ratio("vorn", "llvm"))
    for n, of_full, of_prefix in zip(COUNTS, (3, 1, 0.2), (None, 0.4, 0.06)):
        goal(f"warm parse, N={n}, beside getopt_long", of_full, full[n].ratio("vorn", "getopt"))
        goal(f"warm parse, N={n}, beside cxxopts", 0.5, full[n].ratio("vorn", "cxxopts"))
        if of_prefix:
            goal(f"warm parse, shortened names, N={n}, beside getopt_long", of_prefix, prefix[n].ratio("vorn", "getopt"))

    def warm(n, m, form="full"):
        return lambda: ask("vorn", "warm", n, m, form, 1)

    def own(question, count):
        return lambda: ask("own", question, count)
    ends = {f"argument, N={COUNTS[0]} and {COUNTS[-1]}": (warm(COUNTS[0], 1000), warm(COUNTS[-1], 1000), 2)}
    for n in COUNTS:
        ends[f"argument, N={n}, M=1000 and {MANY}"] = (warm(n, 1000), warm(n, MANY), 1.3)
        ends[f"argument, N={n}, beginnings of names and every word cut"] = (warm(n, 1000, "prefix"), warm(n, 1000, "cut"), 1.5)
    ends["registered option, N=10 and 10000"] = (lambda: ask("vorn", "register", 10, 1, "full", 1),
                                                 lambda: ask("vorn", "register", MANY / 10, 1, "full", 1), 1.5)
    ends["value read, of 100 and of 100000"] = (own("queries", 100), own("queries", MANY), 1.3)
    ends[f"argument, of a vector and of a text of {MANY} lines"] = (warm(100, MANY), own("stream", MANY), 1.5)
    rows = []
    for text, (small, large, bound) in ends.items():
        both = Race({"small": small, "large": large}, 7)
        ratio = goal(f"growth, {text}", bound, both.ratio("large", "small"))
        rows.append([text, figure(both.median("small")), figure(both.median("large")), figure(ratio)])
    table("Growth", "Nanoseconds at either end.", ["one", "at the small end", "at the large end", "ratio"], rows)
    goal(f"one value of {MANY} read", 100, ask("own", "queries", MANY), "ns")


def ask_hostile():
    size = MANY // 10
    near = Race({n: lambda n=n: ask("own", "near-names", n) for n in (size // 4, size)}, 5)
    descending = Race({n: lambda n=n: ask("own", "descending", n) for n in (size // 4, size)}, 3)
    rows = {f"{size} texts that collide in the standard hash, beside random ones, the worst place":
            (2, ask("own", "collisions", size)),
            f"a typed name that {size} names resemble, beside {size // 4}": (6, near.ratio(size, size // 4)),
            f"{size} names in descending order, a shortened one typed behind each, beside {size // 4}":
            (8, descending.ratio(size, size // 4)),
            f"heap for one argument of {MANY // 1000} MB of hyphens, beside its size":
            (3, ask("own", "hyphens", MANY * 1000))}
    table("Inputs built to hurt", "", ["what", "times"],
          [[text, figure(goal(text, *bound_and_value))] for text, bound_and_value in rows.items()])


def stripped_kibibytes(path):
    with tempfile.NamedTemporaryFile() as copy:
        subprocess.run(["strip", "-o", copy.name, path], check=True)
        return pathlib.Path(copy.name).stat().st_size / 1024


def ask_memory_and_size():
    rows = []

    def measured(text, bound, value, unit="times"):
        rows.append([text, f"{figure(goal(text, bound, value, unit))} {unit}"])
    for count in (1000, MANY):
        measured(f"heap calls an argument, M={count}", 3, ask("own", "heap-calls", count), "calls")
        measured(f"bytes kept beside those of the values read, M={count}", 2, ask("own", "heap-share", count))
    measured(f"the help of {COUNTS[-1]} options", 1, ask("own", "help", COUNTS[-1]), "ms")
    if BITS == 32:
        measured("library, stripped", 160, stripped_kibibytes((FOLDER.parent / "libvorn.so").resolve()), "KiB")
    measured("a tool with the companion, stripped", 140, stripped_kibibytes(FOLDER / "bench_tool"), "KiB")
    table("Memory and size", "", ["what", "measured"], rows)


def compile_time(*words):
    """Milliseconds of processor time that the compiler takes."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    if subprocess.run([*COMPILER, "-O2", "-std=c++17", "-c", "-o", "/dev/null", *words], stderr=subprocess.DEVNULL).returncode:
        return None
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return 1000 * (after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)


def ask_headers():
    """What a file of a host costs to compile."""
    with tempfile.TemporaryDirectory() as folder:
        def including(header):
            path = pathlib.Path(folder) / f"{header.replace('/', '_')}.cpp"
            path.write_text(f"#include <{header}>\n" if header else "")
            return str(path)
        here = pathlib.Path(__file__).parent
        pairs = [("vorn/vorn.h", "an empty file", including("vorn/vorn.h"), including(""), 1.6, 201),
                 ("vorn/host.h", "cxxopts.hpp", including("vorn/host.h"), including("cxxopts.hpp"), 0.12, 7),
                 ("a tool with the companion", "the same with cxxopts", str(ROOT / "examples/thumbs.cpp"),
                  str(here / "tool_cxxopts.cpp"), 0.2, 7)]
        rows = []
        for own_name, other_name, own, other, bound, rounds in pairs[:1] if QUICK else pairs:
            if not (pathlib.Path(own).exists() and pathlib.Path(other).exists()) or compile_time(other) is None:
                continue
            both = Race({"own": lambda: compile_time(own), "other": lambda: compile_time(other)}, rounds)
            ratio = goal(f"compiling {own_name}, beside {other_name}", bound, both.ratio("own", "other"))
            rows.append([own_name, figure(both.median("own")), other_name, figure(both.median("other")), figure(ratio)])
        table("Compiling", "Milliseconds of processor time.", ["own", "ms", "beside", "ms", "ratio"], rows)


def main():
    print(f"## {BITS} bit\n")
    missing = [text for name, text in NAMES.items() if name not in PEERS]
    if missing:
        print(f"Not installed for this width: {', '.join(missing)}.\n")
    for question in (ask_first_parse, ask_fresh_parser, ask_registration, ask_process, ask_growth, ask_hostile,
                     ask_memory_and_size, ask_headers):
        question()
    print("\n".join(goals))


main()
