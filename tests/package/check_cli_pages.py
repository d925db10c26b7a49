#!/usr/bin/env python3
"""Holds the man page and the completions of qzsql against what the program says of itself.

    check_cli_pages.py QZSQL ROOT
"""

import os
import pty
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

QZSQL, ROOT = sys.argv[1], Path(sys.argv[2])
MAN = ROOT / "host" / "qzsql.1"
COMPLETIONS = ROOT / "host" / "completions"

# What zsh would insert goes into a file, block by block; the terminal shows where it takes a line.
ZSHRC = """\
fpath=({completions} $fpath)
autoload -U compinit; compinit -D -u
compadd() {{
    local -a hits
    if [[ " $* " != *' -'[OAD]' '* ]]; then builtin compadd -A hits "$@"; print -rl -- $hits >>{found}; fi
    builtin compadd "$@"
}}
zle-line-init() {{ print -- --- >>{found}; print -n @@@ }}
zle -N zle-line-init
"""


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


def commands(path: list[str]) -> list[list[str]]:
    """The command, and all below it."""
    below = rows(output(QZSQL, *path, "--help"), "Subcommands")
    return [path, *(command for name in below for command in commands([*path, name]))]


def expected(path: list[str]) -> dict[str, set[str]]:
    """What each beginning of a line is completed to."""
    help_text = output(QZSQL, *path, "--help")
    line = " ".join(["qzsql", *path])
    found = options(help_text)
    lines = {f"{line} -": set(found)}
    lines.update({f"{line} {option} ": set(choices) for option, choices in found.items() if choices})
    if below := rows(help_text, "Subcommands"):
        lines[f"{line} "] = set(below)
    return lines


def complete_in_bash(line: str) -> set[str]:
    words = line.split(" ")
    script = (f". {shlex.quote(str(COMPLETIONS / 'qzsql'))}; COMP_WORDS=({' '.join(map(shlex.quote, words))}); "
              f'COMP_CWORD={len(words) - 1}; _qzsql; printf "%s\\n" "${{COMPREPLY[@]}}"')
    return set(output("bash", "-c", script).split())


def complete_in_zsh(lines: list[str]) -> list[set[str]]:
    with tempfile.TemporaryDirectory() as work:
        found = Path(work) / "found"
        (Path(work) / ".zshrc").write_text(ZSHRC.format(completions=COMPLETIONS, found=found))
        process, terminal = pty.fork()
        if process == 0:
            os.execvpe("zsh", ["zsh", "-d", "-i"], {**os.environ, "TERM": "dumb", "ZDOTDIR": work})
        shown = b""
        for keys in [*(f"{line}\t\x15\n" for line in lines), "exit\n"]:  # the tab completes, control-U empties the line
            while b"@@@" not in shown:
                shown += os.read(terminal, 4096)
            shown = shown.partition(b"@@@")[2]
            os.write(terminal, keys.encode())
        try:
            while os.read(terminal, 4096):
                pass
        except OSError:  # zsh has gone
            pass
        os.waitpid(process, 0)
        return [set(block.split()) for block in found.read_text().split("---\n")[1:-1]]


def missing_in_man(path: list[str]) -> list[str]:
    page = MAN.read_text()
    names = [f"Fl {option[1:]}" for option in options(output(QZSQL, *path, "--help"))]
    if path and path != ["catalog"]:
        names.append(f".Cm {' '.join(path)}")
    return [name for name in names if not re.search(rf"(?<![\w-]){re.escape(name)}(?![\w-])", page)]


def main() -> None:
    paths = commands([])
    lines = {line: words for path in paths for line, words in expected(path).items()}
    problems = []
    for line, in_zsh in zip(lines, complete_in_zsh(list(lines)), strict=True):
        for shell, found in [("bash", complete_in_bash(line)), ("zsh", in_zsh)]:
            if found != lines[line]:
                problems.append(f"{shell} completes '{line}' to {sorted(found)} instead of {sorted(lines[line])}")
    problems += [f"the man page does not name {name}" for path in paths for name in missing_in_man(path)]
    lint = subprocess.run(["mandoc", "-Tlint", "-Wwarning", str(MAN)], capture_output=True, text=True, check=False)
    problems += lint.stdout.splitlines()
    if problems:
        sys.exit("\n".join(problems))
    print(f"the man page and the completions of {len(lines)} lines are true")


main()
