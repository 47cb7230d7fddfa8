# SPDX-License-Identifier: MIT
"""What the program prints and reads as JSON is what docs/schemas says.

usage: schemas.py PROGRAM SOURCE"""
import json
import os
import re
import subprocess
import sys
import tempfile

try:
    import jsonschema
except ImportError:
    print("python3-jsonschema is not installed")
    sys.exit(77)

PROGRAM, SOURCE = sys.argv[1:]
SAMPLE = os.path.join(SOURCE, "examples/sample/sample.kpmodel")
FAULTS = []


def check(name, schema, document):
    with open(os.path.join(SOURCE, "docs/schemas", schema + ".schema.json"), encoding="utf-8") as text:
        validator = jsonschema.Draft202012Validator(json.load(text))
    for error in validator.iter_errors(document):
        FAULTS.append(f"{name}: /{'/'.join(map(str, error.absolute_path))}: {error.message[:300]}")


def run(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=False).stdout


def job_of_documentation():
    with open(os.path.join(SOURCE, "docs/command-line.md"), encoding="utf-8") as text:
        section = text.read().split("## Job files")[1]
    return json.loads(re.search(r"```json\n(.*?)```", section, re.S).group(1))


def main():
    check("formats", "kpexport-formats-1", json.loads(run("formats", "--json")))
    check("inspect", "kpexport-inspect-1", json.loads(run("inspect", SAMPLE, "--json")))
    check("job", "kpexport-job-1", job_of_documentation())
    with tempfile.TemporaryDirectory() as folder:
        report = os.path.join(folder, "report.json")

        def reported(name, *arguments):
            run("export", *arguments, "--report", report, "--quiet")
            with open(report, encoding="utf-8") as text:
                document = json.load(text)
            os.remove(report)
            check(name, "kpexport-report-1", document)
            return document

        def output(name):
            return os.path.join(folder, name)

        for name in ("a.vs", "a.csv", "a.shp", "a.off", "a.kml", "a.grdecl"):
            reported("written " + name, SAMPLE, "--output", output(name), "--verify")
            reported("planned " + name, SAMPLE, "--output", output(name), "--dry-run")
        refused = reported("refused", SAMPLE, "--output", output("a.csv"), "--format", "nothing")
        # The schema holds no more than it says.
        before = len(FAULTS)
        refused["surprise"] = 1
        refused["exitCode"] = 9
        check("wrong", "kpexport-report-1", refused)
        if len(FAULTS) - before != 2:
            FAULTS.append("a wrong report was not refused")
        else:
            del FAULTS[before:]
    print("\n".join(FAULTS))
    return 1 if FAULTS else 0


if __name__ == "__main__":
    sys.exit(main())
