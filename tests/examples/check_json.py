#!/usr/bin/env python3
"""Holds the JSON of a report against its schema: that of every sample, and the tables of the guide.

Usage: check_json.py SCHEMA_PRINTER PROGRAM SAMPLES DOCS [--write]

SCHEMA_PRINTER prints the schema by the program's own tables: DOCS/tradebill.schema.json is what it prints, and the
tables in DOCS/json.md are made of it; --write brings both up to date. Every sample's JSON is valid by the schema, and
also if nothing but what it names may be there.
"""

import copy
import json
import math
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import jsonschema

TABLE = re.compile(r"(<!-- table: (\S+) -->\n).*?(<!-- end -->)", re.DOTALL)
SCHEMA_FILE, GUIDE_FILE = "tradebill.schema.json", "json.md"


def closed(schema):
    """The schema with objects that take no other names than those they tell."""
    if isinstance(schema, dict):
        for part in schema.values():
            closed(part)
        if "properties" in schema:
            schema["additionalProperties"] = False
    elif isinstance(schema, list):
        for part in schema:
            closed(part)
    return schema


def at(schema, path):
    """The object schema at a path such as "run.statements"."""
    here = schema
    for name in path.split("."):
        if name != "$":
            here = here["properties"][name]
        while "$ref" in here or "items" in here:
            here = schema["$defs"][here["$ref"].rsplit("/", 1)[1]] if "$ref" in here else here["items"]
    return here


def type_of(schema):
    if "const" in schema:
        return str(schema["const"])
    if "$ref" in schema:
        return {"figure": "number", "value": "number or null"}.get(schema["$ref"].rsplit("/", 1)[1], "object")
    if "enum" in schema:
        return ", ".join("null" if word is None else f"`{word}`" for word in schema["enum"])
    names = schema["type"] if isinstance(schema["type"], list) else [schema["type"]]
    if schema.get("pattern") == "^[0-9]{8}$":
        names = ["day" if name == "string" else name for name in names]
    return " or ".join({"array": "list", "string": "text", "integer": "whole number"}.get(name, name) for name in names)


def row(cells):
    return "| " + " | ".join(cells) + " |\n"


def table(schema, path):
    """Name, type and meaning of each member; for records with numbers beside the texts which have one."""
    members = at(schema, path)["properties"]
    values = members.get("values", {}).get("properties")
    heads = ["name", "type", "number", "meaning"] if values is not None else ["name", "type", "meaning"]
    if not any("description" in member for member in members.values()):
        heads.remove("meaning")
    text = row(heads) + row("---" for _ in heads)
    for name, member in members.items():
        cells = {"name": f"`{name}`", "type": type_of(member), "meaning": member.get("description", ""),
                 "number": "yes" if values and name in values else ""}
        text += row(cells[head] for head in heads)
    return text


def guide(text, schema):
    return TABLE.sub(lambda match: match.group(1) + "\n" + table(schema, match.group(2)) + "\n" + match.group(3), text)


def no_constant(text):
    raise ValueError(f"{text} is no JSON")


def report_of(program, sample, folder):
    copied = shutil.copytree(sample, pathlib.Path(folder) / sample.name)
    output = copied / "report.json"
    command = [program, "report", "--quiet", "--root", copied / "root", "--request", copied / "request.ini",
               "--json", output]
    for option in ("units", "products", "live"):
        if (copied / f"{option}.ini").exists():
            command += [f"--{option}", copied / f"{option}.ini"]
    subprocess.run(command, check=True, timeout=60)
    text = output.read_text(encoding="utf-8")
    if folder in text:
        raise ValueError("the folder of this machine is in the JSON")
    return json.loads(text, parse_constant=no_constant)


def nulls_without_reason(analysis):
    """Each null among the figures has its reason, and each reason its null."""
    found = set()

    def walk(value, path):
        if value is None:
            found.add(path)
        elif isinstance(value, dict):
            for name, member in value.items():
                walk(member, f"{path}.{name}" if path else name)
        elif isinstance(value, list):
            for position, member in enumerate(value):
                walk(member, f"{path}[{position}]")
        elif isinstance(value, float) and not math.isfinite(value):
            found.add(path + " isn't finite")

    walk({name: value for name, value in analysis.items() if name != "reasons"}, "")
    return sorted(found ^ set(analysis["reasons"]))


def check_samples(schema, program, samples):
    opened, strict = jsonschema.Draft202012Validator(schema), jsonschema.Draft202012Validator(
        closed(copy.deepcopy(schema)))
    folders = sorted(folder for folder in samples.iterdir() if (folder / "request.ini").exists())
    if not folders:
        yield f"no sample in {samples}"
    for sample in folders:
        with tempfile.TemporaryDirectory() as folder:
            report = report_of(program, sample, folder)
        for validator in (opened, strict):
            for error in list(validator.iter_errors(report))[:5]:
                yield f"{sample.name}: {error.json_path}: {error.message[:200]}"
        for path in nulls_without_reason(report["analysis"])[:5]:
            yield f"{sample.name}: analysis: {path}: a null without a reason, or a reason without a null"
        print(f"{sample.name}: {len(report['analysis']['days'])} days, valid")
    yield from check_teeth(strict, report)


def check_teeth(validator, report):
    """A schema that takes everything would agree with every sample."""
    for path, wrong in ((("schema",), 2), (("run", "page", "sha256"), "00"), (("matches", 0, "BILL_DATE"), 20240102),
                        (("analysis", "ratios", "sharpe"), "inf"), (("money", "Records", 0, "values", "KHQY"), "1.00"),
                        (("money", "LONG_PL"), 1.0)):
        spoilt = copy.deepcopy(report)
        here = spoilt
        for name in path[:-1]:
            here = here[name]
        here[path[-1]] = wrong
        if validator.is_valid(spoilt):
            yield f"the schema takes {wrong!r} for {'.'.join(map(str, path))}"


def main():
    if len(sys.argv) not in (5, 6) or sys.argv[5:] not in ([], ["--write"]):
        raise SystemExit(__doc__)
    printer, program, samples, docs = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3]), pathlib.Path(sys.argv[4])
    printed = subprocess.run([printer], check=True, capture_output=True, encoding="utf-8").stdout
    schema = json.loads(printed)
    jsonschema.Draft202012Validator.check_schema(schema)
    told = (docs / GUIDE_FILE).read_text(encoding="utf-8")
    if sys.argv[5:]:
        (docs / SCHEMA_FILE).write_text(printed, encoding="utf-8")
        (docs / GUIDE_FILE).write_text(guide(told, schema), encoding="utf-8")
        return 0
    problems = []
    if (docs / SCHEMA_FILE).read_text(encoding="utf-8") != printed:
        problems.append(f"{SCHEMA_FILE} isn't what the program's tables make: --write brings it up to date")
    if guide(told, schema) != told:
        problems.append(f"{GUIDE_FILE} has other tables than the schema: --write brings it up to date")
    for path in schema["properties"]:
        if f"## `{path}`" not in told and f"`{path}`" not in told:
            problems.append(f"{GUIDE_FILE} has no word on {path}")
    problems += check_samples(schema, program, samples)
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
