# SPDX-License-Identifier: MIT
"""What README.md, docs/formats and ./run say of the formats is true of all of them.

usage: format_table.py PROGRAM SOURCE"""
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

PROGRAM, SOURCE = sys.argv[1:]
FAULTS = []


def text_of(*parts):
    with open(os.path.join(SOURCE, *parts), encoding="utf-8") as text:
        return text.read()


def expect(condition, fault):
    if not condition:
        FAULTS.append(fault)


def check_row(key, rows):
    """One row of the table: its page, which names a source, and a test that there is and that speaks of the format."""
    own = [row for row in rows if f"`{key}`" in row]
    expect(len(own) == 1, f"{key}: {len(own)} rows of README.md name it")
    for row in own:
        pages = re.findall(r"\(docs/(formats/\w+\.md)\)", row)
        page = " ".join(text_of("docs", pages[0]).split()) if pages else ""
        expect(f"`{key}`" in page, f"{key}: no page of docs/formats names it")
        expect(re.search(r"[Pp]ublic description|not public|no standard", page), f"{key}: its page names no source")
        test = re.findall(r"`(truth|tst_\w+)`", row.split("|")[-2])
        expect(len(test) == 1, f"{key}: its row does not name one test")
        for name in test:
            pattern = "truth/truth.py" if name == "truth" else f"**/{name}.cpp"
            found = glob.glob(os.path.join(SOURCE, "tests", pattern), recursive=True)
            said = "".join(text_of(path) for path in found)
            spoken = f'"{key}": (' in said and f'"{key}": ("", None)' not in said if name == "truth" else key in said
            expect(spoken, f"{key}: the test {name} is missing or does not speak of it")


def check_run(keys):
    """The exports of ./run, with the program under test and in a folder of its own."""
    script = text_of("run")
    exports = script[script.index("\nmkdir -p out\n"):]
    named = set(re.findall(r"^export_as (\w+) ", exports, re.M))
    expect(named == keys, f"./run exports {sorted(named ^ keys)} otherwise than the program")
    with tempfile.TemporaryDirectory() as folder:
        head = f'set -euo pipefail\nprogram="{PROGRAM}"\nsample="{SOURCE}/examples/sample/sample.kpmodel"\n'
        done = subprocess.run(["bash", "-c", head + exports], cwd=folder, text=True, capture_output=True)
        expect(done.returncode == 0, f"./run fails: {done.stderr[-500:]}")
        for path in re.findall(r"^(out/[^\t]+)\t[\d,]+ rows", done.stdout, re.M):
            expect(os.path.getsize(os.path.join(folder, path)) > 0, f"./run: {path} is empty")
        written = sum(line.startswith("out/") for line in done.stdout.splitlines())
        expect(written >= len(keys), f"./run wrote {written} files for {len(keys)} formats")


def main():
    listed = json.loads(subprocess.run([PROGRAM, "formats", "--json"], check=True, capture_output=True).stdout)
    keys = {entry["key"] for entry in listed["formats"]}
    readme = text_of("README.md")
    rows = [line for line in readme[readme.index("\n## Formats"):readme.index("\n## More")].splitlines()
            if line.startswith("| [`")]
    for key in sorted(keys):
        check_row(key, rows)
    check_run(keys)
    print("\n".join(FAULTS) or f"{len(keys)} formats")
    return 1 if FAULTS else 0


sys.exit(main())
