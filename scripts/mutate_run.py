"""Builds and tests for mutate.py: commands under a time limit, ended with their
whole process group, and the failed tests read from ctest's summary."""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass

_FAILED = re.compile(r"^\s*\d+ - (\S+) \((.+)\)\s*$")


@dataclass
class Outcome:
    code: int
    timed_out: bool
    output: str
    seconds: float


def run(cmd, limit, env=None):
    """Runs cmd in a session of its own, so that on time-out or Ctrl-C the
    tests it started end with it."""
    begun = time.monotonic()
    proc = subprocess.Popen(
        cmd,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        errors="replace",
        env=env,
        start_new_session=True,
    )
    timed_out = False
    try:
        output, _ = proc.communicate(timeout=limit)
    except subprocess.TimeoutExpired:
        timed_out = True
        _end_group(proc)
        output, _ = proc.communicate()
    finally:
        if proc.poll() is None:
            _end_group(proc)
            proc.wait()
    return Outcome(proc.returncode, timed_out, output, time.monotonic() - begun)


def _end_group(proc):
    for sig in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(proc.pid, sig)
        except ProcessLookupError:
            return
        try:
            proc.wait(timeout=5)
            return
        except subprocess.TimeoutExpired:
            pass


class Tests:
    """The build directory's cmake and ctest commands."""

    def __init__(self, build, jobs, test_timeout, include_road):
        self.build = build
        self.jobs = jobs
        self.test_timeout = test_timeout
        self.excluded = [] if include_road else ["road"]
        self.runtime = tempfile.mkdtemp(prefix="sidekin-mutate-")  # made 0700
        self.env = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=self.runtime)

    def close(self):
        shutil.rmtree(self.runtime, ignore_errors=True)

    def configure(self):
        if os.path.exists(os.path.join(self.build, "CMakeCache.txt")):
            return True
        cmd = ["cmake", "-S", ".", "-B", self.build, "-DCMAKE_BUILD_TYPE=RelWithDebInfo"]
        return run(cmd, None).code == 0

    def compile(self, limit):
        return run(["cmake", "--build", self.build, f"-j{self.jobs}"], limit, self.env)

    def test(self, limit, stop_on_failure=True):
        cmd = ["ctest", "--test-dir", self.build, f"-j{self.jobs}"]
        cmd += ["--timeout", str(self.test_timeout)]
        if self.excluded:
            cmd += ["-E", "|".join(self.excluded)]
        if stop_on_failure:
            cmd.append("--stop-on-failure")
        return run(cmd, limit, self.env)

    def exclude(self, names):
        """Leaves tests out of every later run (those that fail unmutated)."""
        self.excluded += ["^" + re.sub(r"([][.*+?^$|()\\])", r"\\\1", n) + "$" for n in names]


def failed_tests(output):
    """Names of the tests ctest lists as failed, with why."""
    failed = {}
    listing = False
    for line in output.splitlines():
        if line.startswith("The following tests FAILED:"):
            listing = True
        elif listing:
            m = _FAILED.match(line)
            if m:
                failed[m.group(1)] = m.group(2)
            elif line.strip():
                listing = False
    return failed
