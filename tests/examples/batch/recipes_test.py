#!/usr/bin/env python3
"""Runs the recipes of GNU parallel and make, and holds the one of Kubernetes against its schema.

Usage: recipes_test.py SOURCE PROGRAM
"""

import copy
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import jsonschema
import yaml

import made_batch

TODAY = "2024-01-31"


def run(command, folder, expected, **variables):
    environment = {**os.environ, "TODAY": TODAY, "PAUSE": "0", **variables}
    answer = subprocess.run(command, cwd=folder, env=environment, capture_output=True, text=True, check=False)
    if answer.returncode != expected:
        raise SystemExit(f"{command}: {answer.returncode} instead of {expected}\n{answer.stdout}{answer.stderr}")
    return answer


def stopping_once(folder, program):
    """A program that is stopped the first time that it makes the second task."""
    path = folder / "stopped_once.sh"
    path.write_text(
        "#!/bin/sh\n"
        f'case "$*" in *"--shard 2/"*) [ -e {folder}/stopped ] || {{ touch {folder}/stopped; exit 75; }};; esac\n'
        f'exec {program} "$@"\n',
        encoding="ascii",
    )
    path.chmod(0o755)
    return str(path)


def check_parallel(recipes, program, folder, wanted):
    made_batch.found_program("parallel")
    out = folder / "parallel"
    variables = {"ROOT": "root", "OUT": str(out), "TASKS": "3", "AT_ONCE": "2"}
    run([recipes / "parallel.sh"], folder, 0, TRADEBILL=stopping_once(folder, program), **variables)
    made_batch.expect_same(out, wanted)
    if not (folder / "stopped").exists():
        raise SystemExit("no task was stopped")
    lost = {**variables, "OUT": str(folder / "lost"), "TRIES": "1"}
    (folder / "stopped").unlink()
    answer = run([recipes / "parallel.sh"], folder, 75, TRADEBILL=stopping_once(folder, program), **lost)
    if "the task 2-of-3 hasn't begun" not in answer.stderr:
        raise SystemExit(f"nobody missed the second task:\n{answer.stderr}")
    # What is there is of the call before, and isn't joined once more.
    (out / "index.html").unlink()
    run([recipes / "parallel.sh"], folder, 2, TRADEBILL=program, OPTIONS="--nonsense", **variables)
    if (out / "index.html").exists():
        raise SystemExit("tasks that were called wrongly were joined")


def check_make(recipes, program, folder, wanted):
    out = folder / "make"
    command = ["make", "-j2", "-f", str(recipes / "Makefile"), "ROOT=root", f"OUT={out}", "TASKS=3", f"TRADEBILL={program}"]
    run(command, folder, 0)
    made_batch.expect_same(out, wanted)
    if "batch" in run(command, folder, 0).stdout:
        raise SystemExit("a rerun made something")
    times = {path.name: path.stat().st_mtime_ns for path in out.glob("results-*")}
    (out / "results-2-of-3.jsonl").unlink()
    run(command, folder, 0)
    made_batch.expect_same(out, wanted)
    changed = {path.name for path in out.glob("results-*") if path.stat().st_mtime_ns != times[path.name]}
    if changed != {"results-2-of-3.jsonl"}:
        raise SystemExit(f"made again: {changed}")
    run(command, folder, 0, TODAY="2024-02-01")
    if json.loads((out / "batch.json").read_text(encoding="utf-8"))["today"] != "2024-02-01":
        raise SystemExit("another day is another batch")
    broken = folder / "root/Users/demo/Data/Bill/D70000000.20240102o.txt"
    broken.mkdir()
    (out / "index.html").unlink()
    run(command, folder, 2, TODAY="2024-02-02")
    if "70000000" not in (out / "summary.csv").read_text(encoding="utf-8-sig") or not (out / "index.html").exists():
        raise SystemExit("accounts that failed kept the others from being joined")
    broken.rmdir()
    run(command, folder, 0, TODAY="2024-02-02")


def spoiled(job):
    """Jobs that aren't as they should be, and why."""
    def changed(why, change):
        other = copy.deepcopy(job)
        change(other["spec"])
        return why, other

    def rule(spec):
        return spec["podFailurePolicy"]["rules"][0]

    pod = ("template", "spec")
    return [
        changed("a mode of its own", lambda spec: spec.update(completionMode="NonIndexed")),
        changed("no number of pods", lambda spec: spec.pop("completions")),
        changed("an unknown field", lambda spec: spec.update(completion=8)),
        changed("a code as a text", lambda spec: rule(spec)["onExitCodes"].update(values=["3"])),
        changed("success as a failure", lambda spec: rule(spec)["onExitCodes"].update(values=[0])),
        changed("an unknown action", lambda spec: rule(spec).update(action="Retry")),
        changed("two reasons", lambda spec: rule(spec).update(onPodConditions=[{"type": "a", "status": "True"}])),
        changed("a policy without Never", lambda spec: spec[pod[0]][pod[1]].update(restartPolicy="OnFailure")),
    ]


def check_kubernetes(recipes, program, folder):
    job = yaml.safe_load((recipes / "kubernetes_job.yaml").read_text(encoding="utf-8"))
    schema = json.loads((recipes / "kubernetes_job.schema.json").read_text(encoding="utf-8"))
    validator = jsonschema.Draft202012Validator(schema)
    validator.check_schema(schema)
    validator.validate(job)
    for why, other in spoiled(job):
        if validator.is_valid(other):
            raise SystemExit(f"the schema takes {why}")
    spec = job["spec"]
    (container,) = spec["template"]["spec"]["containers"]
    if f"--shard=auto/{spec['completions']}" not in container["args"]:
        raise SystemExit("the pods aren't as many as the shards")
    out = folder / "pod"
    places = {"/data/settlement": str(folder / "root"), "/data/reports": str(out)}
    arguments = [argument.replace(*pair) for argument in container["args"] for pair in places.items() if pair[0] in argument]
    arguments += [argument for argument in container["args"] if "/data/" not in argument]
    arguments.sort(key=lambda argument: argument != "batch")
    run([program, *arguments], folder, 0, JOB_COMPLETION_INDEX="0")
    if not (out / "results-1-of-8.jsonl").exists():
        raise SystemExit("the first pod has made another part")


def main():
    recipes = pathlib.Path(sys.argv[1]).resolve() / "examples/batch"
    program = str(pathlib.Path(sys.argv[2]).resolve())
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        made_batch.make_accounts(pathlib.Path(sys.argv[1], "samples").resolve(), folder / "root", 8, 2)
        os.chdir(folder)  # the same paths in all of them: what a batch is asked is part of its results
        wanted = made_batch.in_one_task(program, "root", "whole", TODAY)
        check_parallel(recipes, program, folder, wanted)
        check_make(recipes, program, folder, wanted)
        check_kubernetes(recipes, program, folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
