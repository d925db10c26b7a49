#!/usr/bin/env python3
"""Holds the man page and the completions of qzsql against what the program says of itself.

    check_cli_pages.py QZSQL ROOT
"""

import re
import shlex
import subprocess
import sys
from pathlib import Path

QZSQL, ROOT = sys.argv[1], Path(sys.argv[2])
MAN = ROOT / "host" / "qzsql.1"
BASH = ROOT / "host" / "completions" / "qzsql"
ZSH = ROOT / "host" / "completions" / "_qzsql"
problems: list[str] = []


def output(*command: str) -> str:
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def rows(help_text: str, title: str) -> list[str]:
    """The first column of a section."""
    section = re.search(rf"^{title}:\n((?:  .*\n)+)", help_text, re.M)
    return re.findall(r"^  (\S.*?)(?:  |$)", section[1], re.M) if section else []


def options(help_text: str) -> dict[str, list[str]]:
    """Each option with the words that it takes."""
    found = {}
    for row in rows(help_text, "Options"):
        choices = re.search(r"\{(.*?)\}", row)
        for option in re.findall(r"(?:^|,)(--?[\w-]+)", row):
            found[option] = choices[1].split(",") if choices else []
    if "-d" in found:
        found["-d"] = re.search(r"^  -d .*(?:\n {10,}.*)*?: (.*)$", help_text, re.M)[1].split(", ")
    return found


def complete_in_bash(words: list[str]) -> set[str]:
    line = " ".join(shlex.quote(word) for word in words)
    script = f'. {shlex.quote(str(BASH))}; COMP_WORDS=({line}); COMP_CWORD={len(words) - 1}; _qzsql; printf "%s\\n" "${{COMPREPLY[@]}}"'
    return set(output("bash", "-c", script).split())


def expect(what: str, found: object, wanted: object) -> None:
    if found != wanted:
        problems.append(f"{what}: {found} instead of {wanted}")


def check(path: list[str]) -> None:
    help_text = output(QZSQL, *path, "--help")
    words = ["qzsql", *path]
    found = options(help_text)
    expect(f"bash, options of {words}", complete_in_bash([*words, "-"]), set(found))
    for option, choices in found.items():
        if choices:
            expect(f"bash, {words} {option}", complete_in_bash([*words, option, ""]), set(choices))
            if f"({' '.join(choices)})" not in ZSH.read_text():
                problems.append(f"zsh does not offer {choices} for {words} {option}")
        for page, named in [(ZSH, option), (MAN, "Fl " + option[1:])]:
            if not re.search(rf"(?<![\w-]){named}(?![\w-])", page.read_text()):
                problems.append(f"{page.name} does not name {option} of {words}")
    commands = rows(help_text, "Subcommands")
    if commands:
        expect(f"bash, commands of {words}", complete_in_bash([*words, ""]), set(commands))
    for command in commands:
        if f"'{command}:" not in ZSH.read_text():
            problems.append(f"zsh does not offer {words} {command}")
        if f".Cm {' '.join([*path, command])}\n" not in MAN.read_text() and command != "catalog":
            problems.append(f"{MAN.name} does not name {words} {command}")
        check([*path, command])


check([])
subprocess.run(["zsh", "-n", str(ZSH)], check=True)
lint = subprocess.run(["mandoc", "-Tlint", "-Wwarning", str(MAN)], capture_output=True, text=True, check=False)
if lint.stdout:
    problems.append(lint.stdout)
if problems:
    sys.exit("\n".join(problems))
print("man page and completions name all commands and options")
