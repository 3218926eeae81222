#!/usr/bin/env python3
"""Mutation testing of src/: changes one token at a time in a source file,
builds, runs the suite and tells whether a test noticed. See
docs/mutation-testing.md."""

import argparse
import fnmatch
import glob
import os
import random
import signal
import sys

sys.dont_write_bytecode = True  # no __pycache__ in the checkout
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from mutate_places import places  # noqa: E402
from mutate_run import Tests, failed_tests  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def arguments():
    p = argparse.ArgumentParser(description=__doc__)
    p.add_argument("--seed", type=int, default=1, help="random seed of the sample (1)")
    p.add_argument("--count", type=int, default=10, help="mutants to try (10)")
    p.add_argument("--files", help="glob of the sources to mutate, under src/ (src/**/*.cpp)")
    p.add_argument("--exclude", action="append", default=[], help="glob of sources left alone")
    p.add_argument("--build", default="build-mutate", help="build directory (build-mutate)")
    p.add_argument("--jobs", type=int, default=2, help="parallel build and test jobs (2)")
    p.add_argument("--test-timeout", type=int, default=120, help="seconds per test (120)")
    p.add_argument(
        "--time-limit", type=int, default=900, help="seconds for one mutant's test run (900)"
    )
    p.add_argument("--build-limit", type=int, default=1800, help="seconds for one build (1800)")
    p.add_argument("--include-road", action="store_true", help="run the road test as well")
    p.add_argument("--report", help="write the report to this file too")
    p.add_argument("--list", action="store_true", help="print the sampled mutants, run nothing")
    return p.parse_args()


def sources(pattern, excluded):
    pattern = pattern or "src/**/*.cpp"
    if not pattern.startswith("src/"):
        sys.exit("--files must name sources under src/")
    names = sorted(glob.glob(pattern, recursive=True))
    names = [n for n in names if n.endswith(".cpp") and os.path.isfile(n)]
    return [n for n in names if not any(fnmatch.fnmatch(n, x) for x in excluded)]


def read(path):
    with open(path, "rb") as f:
        return f.read()


def write(path, data):
    with open(path, "wb") as f:
        f.write(data)


class Backup:
    """The original of the file being mutated, kept on disk as well, so that
    a run cut short is mended by the next one."""

    def __init__(self, build):
        self.folder = os.path.join(build, "mutate-backup")
        self.copy = os.path.join(self.folder, "original")
        self.target = os.path.join(self.folder, "target")

    def recover(self):
        if not os.path.exists(self.target):
            return
        with open(self.target) as f:
            path = f.read()
        write(path, read(self.copy))
        print(f"restored {path} from an interrupted run")
        self.clear()

    def keep(self, path, data):
        os.makedirs(self.folder, exist_ok=True)
        write(self.copy, data)
        with open(self.target, "w") as f:
            f.write(path)

    def clear(self):
        for name in (self.target, self.copy):
            if os.path.exists(name):
                os.remove(name)


def text_of(data):
    return data.decode("utf-8", "surrogateescape")


def bytes_of(text):
    return text.encode("utf-8", "surrogateescape")


def line_of(text, number):
    return text.split("\n")[number - 1].strip()


def built_here(build, path):
    """Whether this build compiles path (its object is there after the unmutated build)."""
    folder, name = os.path.split(path)
    return bool(glob.glob(os.path.join(build, folder, "CMakeFiles", "*.dir", name + ".o")))


def try_mutant(mutant, tests, backup, args):
    """Applies the mutant, builds and tests; always puts the original back."""
    if not built_here(args.build, mutant.path):
        return "not built", "another platform's source"
    original = read(mutant.path)
    mutated = bytes_of(mutant.apply(text_of(original)))
    backup.keep(mutant.path, original)
    try:
        write(mutant.path, mutated)
        built = tests.compile(args.build_limit)
        if built.code != 0 or built.timed_out:
            return "not compiled", ""
        tested = tests.test(args.time_limit)
        if tested.timed_out:
            return "killed", f"time limit of {args.time_limit} s"
        if tested.code == 0:
            return "survived", ""
        failed = failed_tests(tested.output)
        why = ", ".join(f"{n} ({r})" for n, r in list(failed.items())[:3]) or "ctest failed"
        return "killed", why
    finally:
        write(mutant.path, original)
        if read(mutant.path) != original:
            sys.exit(f"could not restore {mutant.path}: the original is in {backup.copy}")
        backup.clear()


def baseline(tests, args):
    """Builds the unmutated tree and leaves out the tests that already fail."""
    built = tests.compile(args.build_limit)
    if built.code != 0:
        print(built.output[-3000:])
        sys.exit("the unmutated tree does not build")
    tested = tests.test(args.time_limit, stop_on_failure=False)
    if tested.timed_out:
        sys.exit("the unmutated suite went over the time limit")
    failed = failed_tests(tested.output)
    if tested.code != 0 and not failed:
        print(tested.output[-3000:])
        sys.exit("ctest failed on the unmutated tree")
    if failed:
        print("failing before any mutation, left out:", ", ".join(sorted(failed)))
        tests.exclude(failed)
    print(f"unmutated suite: {tested.seconds:.0f} s")


def stop_on_signal(signum, frame):
    raise KeyboardInterrupt(f"signal {signum}")


def report_line(mutant, outcome, why):
    original = text_of(read(mutant.path))
    before, after = line_of(original, mutant.line), line_of(mutant.apply(original), mutant.line)
    line = f"{outcome:<13} {mutant.path}:{mutant.line} [{mutant.kind}]  {before}  =>  {after}"
    return line + (f"  ({why})" if why else "")


def totals(outcomes):
    killed = outcomes.count("killed")
    survived = outcomes.count("survived")
    compiled = killed + survived
    rate = f"{100 * killed / compiled:.1f}%" if compiled else "n/a"
    return (
        f"killed {killed}, survived {survived}, not compiled {outcomes.count('not compiled')}, "
        f"not built here {outcomes.count('not built')}; "
        f"kill rate {rate} of {compiled} compiled"
    )


def main():
    args = arguments()
    sys.stdout.reconfigure(line_buffering=True)  # progress shows when piped to a file
    os.chdir(ROOT)
    # SIGINT too: a shell's background job starts with it ignored.
    for sig in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(sig, stop_on_signal)
    backup = Backup(args.build)
    backup.recover()
    files = sources(args.files, args.exclude)
    candidates = []
    for path in files:
        candidates += places(path, text_of(read(path)))
    where = len({(m.path, m.start) for m in candidates})
    print(f"{where} candidate places ({len(candidates)} mutants) in {len(files)} files")
    sample = random.Random(args.seed).sample(candidates, min(args.count, len(candidates)))
    if args.list:
        for m in sample:
            print(report_line(m, "sampled", ""))
        return

    tests = Tests(args.build, args.jobs, args.test_timeout, args.include_road)
    lines, outcomes = [], []
    try:
        if not tests.configure():
            sys.exit(f"cmake could not configure {args.build}")
        baseline(tests, args)
        for number, mutant in enumerate(sample, 1):
            outcome, why = try_mutant(mutant, tests, backup, args)
            lines.append(report_line(mutant, outcome, why))
            outcomes.append(outcome)
            print(f"[{number}/{len(sample)}] {lines[-1]}")
    except KeyboardInterrupt:
        print("interrupted: the sources are as they were", file=sys.stderr)
    finally:
        tests.close()
    report = "\n".join(lines + ["", totals(outcomes)]) + "\n"
    print("\n" + report, end="")
    if args.report:
        with open(args.report, "w") as f:
            f.write(f"seed {args.seed}, {len(outcomes)} of {len(sample)} mutants\n{report}")


if __name__ == "__main__":
    main()
