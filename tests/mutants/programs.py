"""The tests of a build: which there are, and whether they notice a change."""

import collections
import concurrent.futures
import json
import os
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time

# The tests that may notice a change in a folder.
TESTS = {
    "fcf": ["fcf", "generator", "design"],
    "generator": ["generator", "design", "plugin"],
    "design": ["design", "plugin"],
    "archive": ["archive", "plugin"],
    "plugin": ["plugin", "toolkit"],
    "host-sdk": ["host/sdk", "plugin", "design", "archive"],
}

Program = collections.namedtuple("Program", "name command environment seconds")
# What notices a change; None where nothing does.
Verdict = collections.namedtuple("Verdict", "program how")


def build(copy, targets):
    """Builds targets and returns what the compiler says, or None if all is well."""
    result = subprocess.run(["cmake", "--build", "--preset", "dev", "--target", *targets, "--", "-k", "0"],
                            cwd=copy, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            check=False)
    return None if result.returncode == 0 else result.stdout


def errors(said, copy):
    """The places of errors, as pairs of a path in the copy and a line."""
    found = re.findall(r"^(\S+?):(\d+):\d+: error", said, re.M)
    return {(os.path.relpath(name, copy), int(line)) for name, line in found}


def configure(copy):
    # A change may leave a variable without use.
    subprocess.run(["cmake", "--preset", "dev", "-DCMAKE_COMPILE_WARNING_AS_ERROR=OFF",
                    "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"],
                   cwd=copy, stdout=subprocess.DEVNULL, check=True)


def targets(folder):
    return [f"tests/{tested}/all" for tested in TESTS[folder]]


def listed(copy, folder):
    """The tests that ctest knows in the folders for a folder of the product."""
    programs = []
    for tested in TESTS[folder]:
        output = subprocess.run(["ctest", "--show-only=json-v1"], cwd=copy / "build/dev/tests" / tested,
                                capture_output=True, text=True, check=True).stdout
        for test in json.loads(output)["tests"]:
            properties = {entry["name"]: entry["value"] for entry in test["properties"]}
            environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
            programs.append(Program(test["name"], test["command"], environment, 0))
    return programs


def run(program, number, seconds):
    """How a test fails with a change; None where it passes. It is ended at its first failure."""
    with tempfile.TemporaryDirectory(prefix="mutant-") as folder:
        environment = {**os.environ, **program.environment, "MUTANT": str(number),
                       "XDG_CONFIG_HOME": folder, "TMPDIR": folder}
        process = subprocess.Popen(program.command, env=environment, cwd=folder, text=True,
                                   errors="replace", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, start_new_session=True)
        watchdog = threading.Timer(seconds, end, [process])
        watchdog.start()
        failure = next((line.strip() for line in process.stdout if line.startswith("FAIL!")), None)
        late = not watchdog.is_alive()
        watchdog.cancel()
        if failure:
            end(process)
        status = process.wait()
        process.stdout.close()
    if failure:
        return failure
    if late:
        return f"does not end within {seconds:.0f} s"
    return f"ends with {status}" if status else None


def end(process):
    """Ends a test with all that it has started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def measured(programs):
    """The tests with the seconds that each takes without a change, the quickest first."""
    result = []
    for program in programs:
        begin = time.monotonic()
        failure = run(program, 0, 900)
        if failure:
            sys.exit(f"{program.name} does not pass without a change: {failure}")
        result.append(program._replace(seconds=time.monotonic() - begin))
    return sorted(result, key=lambda program: program.seconds)


def verdict(programs, number):
    for program in programs:
        failure = run(program, number, 30 + 10 * program.seconds)
        if failure:
            return Verdict(program.name, failure)
    return None


def verdicts(programs, numbers, jobs):
    """Yields each number with its verdict, as they come."""
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        futures = {pool.submit(verdict, programs, number): number for number in numbers}
        for future in concurrent.futures.as_completed(futures):
            yield futures[future], future.result()
