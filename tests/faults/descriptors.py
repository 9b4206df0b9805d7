#!/usr/bin/env python3
"""Has the module make a report with few descriptors, from none to spare up to enough, and one more in the same process:
that one must be what a process makes that was never short of any.

Usage: descriptors.py BUILD SAMPLES
"""

import pathlib
import sys

from allocations import judge_module, scenarios

FEWEST = 3      # those that a process begins with
ENOUGH = 30


def main():
    build, samples = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    faults, verdicts = [], set()
    for scenario in scenarios(build, samples):
        if not scenario.is_module:
            continue
        clean = scenario.run(samples, [])
        command = scenario.command
        for most in range(FEWEST, ENOUGH + 1):
            scenario.command = [*command, str(most)]
            ended = scenario.run(samples, [])
            verdict = judge_module(clean, ended) if ended[0] in (0, 1) else f"ended with {ended[0]}"
            verdicts.add(verdict)
            if verdict not in ("same", "told"):
                faults.append(f"{scenario.name} with {most} descriptors: {verdict}")
    if not faults and verdicts != {"same", "told"}:
        faults.append(f"expected some shortages and some none, found only: {', '.join(verdicts)}")
    print("\n".join(faults) or "each next report is whole")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
