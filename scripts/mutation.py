#!/usr/bin/env python3
"""Measures what the tests catch: puts small faults into src/, one at a time, and counts those that a test sees.

    scripts/mutation.py [--count 400] [--seed 1] [--tests FOLDER] [--list FILE] [--again FILE] [--jobs N]

A fault flips a condition, moves a bound, turns a comparison round, changes a number by one or spoils a text.
All faults are compiled into one build of a copy of the tree (build/mutation), each asleep until the environment
variable MUTANT names it, so one build serves them all. Places and order depend on src/ and the seed alone: two
runs over the same src/, with other tests (--tests names another tests/ folder), meet the same faults.

A fault counts as caught when the tests of its own folder, or those of a folder above it, fail or hang. Programs
that never come to its place are not run for it. To compare tests with fewer of them, list the faults with the old
tests (--list), and meet those that they caught once more with the new ones (--tests, --again).
"""
import argparse
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time

TOP = pathlib.Path(__file__).resolve().parent.parent
WORK = TOP / "build/mutation"
HEADER = """#pragma once
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
namespace mutation {
inline unsigned char* map_reached() {
    const char* file = std::getenv("MUTATION_REACHED");
    const int opened = file ? ::open(file, O_RDWR | O_CLOEXEC) : -1;
    void* map = opened < 0 ? MAP_FAILED : ::mmap(nullptr, 65536, PROT_READ | PROT_WRITE, MAP_SHARED, opened, 0);
    if (opened >= 0) ::close(opened);
    return map == MAP_FAILED ? nullptr : static_cast<unsigned char*>(map);
}
inline unsigned char* reached() {
    static unsigned char* const map = map_reached();
    return map;
}
inline int active() {
    static const int mutant = [] { const char* t = std::getenv("MUTANT"); return t ? std::atoi(t) : 0; }();
    return mutant;
}
inline bool on(int n) {
    if (unsigned char* map = reached()) map[n] = 1;
    return active() == n;
}
inline int number(int n, int value) { return on(n) ? value + 1 : value; }
inline const char* text(int n, const char* value) { return on(n) ? "spoilt" : value; }
struct At { int n; };
template <class T> struct Held { const T& value; int n; };
template <class T> Held<T> operator<(const T& a, At m) { return {a, m.n}; }
template <class T> Held<T> operator>(const T& a, At m) { return {a, m.n}; }
template <class T> Held<T> operator<=(const T& a, At m) { return {a, m.n}; }
template <class T> Held<T> operator>=(const T& a, At m) { return {a, m.n}; }
template <class T> Held<T> operator==(const T& a, At m) { return {a, m.n}; }
template <class T> Held<T> operator!=(const T& a, At m) { return {a, m.n}; }
template <class T, class U> bool operator<(Held<T> a, const U& b) { return on(a.n) ? a.value <= b : a.value < b; }
template <class T, class U> bool operator>(Held<T> a, const U& b) { return on(a.n) ? a.value >= b : a.value > b; }
template <class T, class U> bool operator<=(Held<T> a, const U& b) { return on(a.n) ? a.value < b : a.value <= b; }
template <class T, class U> bool operator>=(Held<T> a, const U& b) { return on(a.n) ? a.value > b : a.value >= b; }
template <class T, class U> bool operator==(Held<T> a, const U& b) { return (a.value == b) != on(a.n); }
template <class T, class U> bool operator!=(Held<T> a, const U& b) { return (a.value != b) != on(a.n); }
}
"""
FOLDERS = re.search(r"set\(FOLDERS(.*?)\)", (TOP / "cmake/targets.cmake").read_text(), re.S).group(1).split()
SKIPPED_FOLDERS = {"gallery", "main"}
PASSED_OVER = re.compile(r"constexpr|static_assert|template|operator|^\s*(//|#|case )|using |asm")


def sites_of_line(line):
    """The faults that a line offers: (kind, start, end) in the text of the line."""
    if PASSED_OVER.search(line) or not line.startswith("    "):
        return []
    code = re.sub(r'"(\\.|[^"\\])*"', lambda m: '"' + "_" * (len(m.group()) - 2) + '"', line)
    code = code.split("//")[0]
    found = []
    match = re.match(r"\s*(?:} else )?if \((.*)\)( \{)?$", code)
    if match and not re.search(r"[^=!<>]=[^=]|;", match.group(1)):
        found.append(("condition", match.start(1), match.end(1)))
    for match in re.finditer(r" (<|>|<=|>=|==|!=) ", code):
        found.append(("bound" if match.group(1) not in ("==", "!=") else "comparison", match.end(), match.end()))
    for match in re.finditer(r"(?<=[ (,+-])\d+(?=[ );,])(?!\.)", code):
        found.append(("number", match.start(), match.end()))
    for match in re.finditer(r'(?<!\w)"_+"(?!\s*")', code):
        if code[: match.start()].strip() and code[match.end():].strip():  # not one of texts that follow each other
            found.append(("text", match.start(), match.end()))
    return found


def all_sites():
    sites = []
    for folder in FOLDERS:
        if folder in SKIPPED_FOLDERS:
            continue
        for file in sorted((TOP / "src" / folder).rglob("*.cpp")):
            for number, line in enumerate(file.read_text().splitlines()):
                for kind, start, end in sites_of_line(line):
                    sites.append((folder, file.relative_to(TOP), number, kind, start, end))
    return sites


def mutate(line, faults):
    """The line with its faults put in, from the last to the first."""
    for number, kind, start, end in sorted(faults, key=lambda f: -f[2]):
        old = line[start:end]
        if kind in ("bound", "comparison"):
            new = f"mutation::At{{{number}}} {line[:start].split()[-1]} "
        else:
            new = {"condition": f"mutation::on({number}) != static_cast<bool>({old})",
                   "number": f"mutation::number({number}, {old})",
                   "text": f"mutation::text({number}, {old})"}[kind]
        line = line[:start] + new + line[end:]
    return line


def write_files(chosen, dropped):
    by_file = {}
    for number, site in chosen.items():
        by_file.setdefault(site[1], {})
        if number not in dropped:
            by_file[site[1]].setdefault(site[2], []).append((number, *site[3:]))
    for file, lines in by_file.items():
        text = (TOP / file).read_text().splitlines()
        for line, faults in lines.items():
            text[line] = mutate(text[line], faults)
        new = "\n".join(text) + "\n"
        if (WORK / "tree" / file).read_text() != new:
            (WORK / "tree" / file).write_text(new)


def build(chosen):
    """Builds; what does not compile is left out. Returns the numbers left out."""
    dropped = set()
    flags = f"-include {WORK}/mutation.h -w -O0"
    subprocess.run(["cmake", "-S", WORK / "tree", "-B", WORK / "bin", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                    f"-DCMAKE_CXX_FLAGS={flags}"], check=True, stdout=subprocess.DEVNULL)
    for _ in range(30):
        write_files(chosen, dropped)
        result = subprocess.run(["ninja", "-C", WORK / "bin", "-k", "0"], capture_output=True, text=True)
        if result.returncode == 0:
            return dropped
        places = set(re.findall(r"tree/(src/[^:\s]+):(\d+):\d+: (?:error|  *required from here)", result.stdout))
        places |= set(re.findall(r"tree/(src/[^:\s]+):(\d+):", result.stdout))
        new = {n for n, s in chosen.items() if (str(s[1]), str(s[2] + 1)) in places} - dropped
        if not new:
            sys.exit(result.stdout[-4000:])
        dropped |= new
    sys.exit("the tree with its faults does not compile")


def run_tests(programs, mutant, limits, **variables):
    """The first test program that fails or hangs with the fault; None when all pass."""
    for program in programs:
        environment = dict(os.environ, MUTANT=str(mutant), QT_QPA_PLATFORM="offscreen", **variables)
        try:
            done = subprocess.run([program, "--gtest_fail_fast", "--gtest_brief=1"], env=environment,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, cwd=WORK / "bin",
                                  timeout=limits.get(program, 60), start_new_session=True)
            if done.returncode != 0:
                return program.name
        except subprocess.TimeoutExpired:
            return program.name + " (hangs)"
    return None


def try_without_fault():
    """What each program needs: the seconds that it may take, and the numbers of the places that it comes to."""
    limits, reached = {}, {}
    for folder in FOLDERS:
        program = WORK / f"bin/bin/{folder}_tests"
        if not program.exists():
            continue
        trace = WORK / "reached"
        trace.write_bytes(bytes(65536))
        begin = time.monotonic()
        if run_tests([program], 0, {}, MUTATION_REACHED=str(trace)):
            sys.exit(f"{program.name} fails without a fault")
        limits[program] = 5 + 5 * (time.monotonic() - begin)
        reached[program] = trace.read_bytes()
    return limits, reached


def programs_for(folder, number, reached):
    """The test programs of the folder and those above that come to the fault's place, its own first."""
    above = (WORK / f"bin/bin/{f}_tests" for f in FOLDERS[FOLDERS.index(folder):])
    return [p for p in above if p in reached and reached[p][number]]


def place(site):
    return f"{site[1]}:{site[2] + 1}:{site[4] + 1}\t{site[3]}"


def caught_before(file):
    """Of a list made by --list: place of each fault that was caught, and what caught it."""
    rows = [line.split("\t") for line in file.read_text().splitlines()]
    return {f"{row[1]}\t{row[2]}": row[0] for row in rows if row[0] != "MISSED"}


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--count", type=int, default=400)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--tests", type=pathlib.Path, default=TOP / "tests")
    arguments.add_argument("--jobs", type=int, default=2, help="faults met at the same time")
    arguments.add_argument("--list", type=pathlib.Path, help="writes each fault and what caught it")
    arguments.add_argument("--again", type=pathlib.Path, help="meets only the faults caught in this earlier list")
    options = arguments.parse_args()

    sites = all_sites()
    random.Random(options.seed).shuffle(sites)
    chosen = dict(enumerate(sites[: options.count * 5 // 4], 1))  # some will not compile
    WORK.mkdir(parents=True, exist_ok=True)
    (WORK / "mutation.h").write_text(HEADER)
    shutil.rmtree(WORK / "tree", ignore_errors=True)
    shutil.copytree(TOP, WORK / "tree", ignore=shutil.ignore_patterns("build", ".git"))
    shutil.rmtree(WORK / "tree/tests")
    shutil.copytree(options.tests, WORK / "tree/tests")
    dropped = build(chosen)
    numbers = [n for n in chosen if n not in dropped][: options.count]
    print(f"{len(numbers)} faults of {len(sites)} places", flush=True)

    before = caught_before(options.again) if options.again else None
    limits, reached = try_without_fault()
    def meet(number):
        programs = programs_for(chosen[number][0], number, reached)
        if before is not None:
            if place(chosen[number]) not in before:
                return None
            programs.sort(key=lambda p: p.name not in before[place(chosen[number])])  # what caught it, most likely
        return run_tests(programs, number, limits)

    caught = {}
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for number, catcher in zip(numbers, pool.map(meet, numbers)):
            caught[number] = catcher
            if len(caught) % 50 == 0:
                print(f"{len(caught)} tried, {sum(c is not None for c in caught.values())} caught", flush=True)
    if options.list:
        with open(options.list, "w") as out:
            for number in numbers:
                _, file, line, *_ = chosen[number]
                text = (TOP / file).read_text().splitlines()[line].strip()
                out.write(f"{caught.get(number) or 'MISSED'}\t{place(chosen[number])}\t{text}\n")
    print(f"caught {sum(c is not None for c in caught.values())} of {len(numbers)}"
          + (f", before {len(before)}" if before is not None else ""))


if __name__ == "__main__":
    main()
