#!/usr/bin/env python3
"""Runs a fuzz target and tells in a line what it did: run.py PROGRAM FOLDER SECONDS LONGEST_INPUT SEEDS...

FOLDER has NAME.dict, and keeps corpus/NAME from run to run, the log as NAME.log and the line as NAME.summary. What is
found goes to found/NAME-*; it is kept under fuzz/regressions/NAME with a name that tells what it shows.
"""
import re
import subprocess
import sys
from pathlib import Path


def last(pattern, log):
    found = re.findall(pattern, log)
    return int(found[-1]) if found else 0


def summary(name, log, corpus, found):
    runs, seconds = map(int, (re.findall(r"^Done (\d+) runs in (\d+) second", log, re.M) or [(0, 0)])[-1])
    return (f"{name:13} runs {runs:9}  a second {runs // max(seconds, 1):6}  coverage {last(r'cov: ([0-9]+)', log):6}  "
            f"corpus {len(list(corpus.iterdir())):6}  findings {len(found)}")


def main():
    program, folder, seconds, longest, *seeds = sys.argv[1:]
    name, folder = Path(program).name.removesuffix("_fuzz"), Path(folder)
    corpus = folder / "corpus" / name
    corpus.mkdir(parents=True, exist_ok=True)
    (folder / "found").mkdir(exist_ok=True)
    before = set((folder / "found").iterdir())
    log_path = folder / f"{name}.log"
    with open(log_path, "wb") as log:  # a new folder's runs all go alike; entropic schedules cost most of the time here
        code = subprocess.run(
            [program, f"-max_total_time={seconds}", f"-max_len={longest}", "-timeout=60", "-rss_limit_mb=4000",
             "-seed=1", "-entropic=0", f"-dict={folder / name}.dict", f"-artifact_prefix={folder / 'found' / name}-", corpus, *seeds],
            stdout=log, stderr=subprocess.STDOUT, check=False).returncode
    text = log_path.read_text(errors="replace")
    found = set((folder / "found").iterdir()) - before
    found = {path for path in found if path.name.startswith(f"{name}-") and "slow-unit" not in path.name}
    line = summary(name, text, corpus, found)
    (folder / f"{name}.summary").write_text(line + "\n")
    print(line)
    if code != 0:
        print("\n".join(text.splitlines()[-60:]))
    sys.exit(code)


main()
