#!/usr/bin/env python3
"""Holds the sources against the "never" lines of docs/architecture.md, and that page against the tree.

    check_architecture.py ROOT
"""

import re
import sys
from pathlib import Path

ROOT = Path(sys.argv[1]).resolve()
LIBRARY = ROOT / "QZParserSQL"
DIALECT_FOLDERS = ["MSAccess_v3", "Grammar", "Oracle"]  # MS SQL stands at the library's top level
SHARED_FOLDERS = ["platform", "catalog", "model", "front", "dialect"]

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.M)
MACRO = re.compile(r"^\s*#\s*define\s+(\w+)", re.M)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.S)
SYSTEM_QUESTION = re.compile(r"\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|_MSC_VER)\b")
OUTSIDE_WORLD = re.compile(r"\b(fopen|[io]?fstream|getenv|setenv|std::thread|pthread_create|socket|std::filesystem)\b")
DIALECT_NAME = re.compile(r"Access|MSSQL|MySQL|Oracle|MSAccessSQL")

problems: list[str] = []


def sources(folder: Path, pattern: str = "*") -> list[Path]:
    return sorted(p for p in folder.rglob(pattern) if p.suffix in {".h", ".cpp"})


def includes(path: Path) -> list[str]:
    return INCLUDE.findall(path.read_text())


def code(path: Path) -> str:
    return COMMENT.sub("", path.read_text())


def complain(path: Path, what: str) -> None:
    problems.append(f"{path.relative_to(ROOT)}: {what}")


def folder_of(include: str) -> str:
    parts = include.split("/")
    return parts[1] if len(parts) > 2 and parts[0] == "QZParserSQL" else ""


def is_top_level_dialect(include: str) -> bool:
    return include.startswith("QZParserSQL/") and include.count("/") == 1


def dialect_of(include: str) -> str:
    folder = folder_of(include)
    return "top level" if is_top_level_dialect(include) else folder if folder in DIALECT_FOLDERS else ""


def is_generated(include: str) -> bool:
    return re.search(r"(Lexer|Parser)\.h$", include) is not None and "CQZ" not in include and "dialect/" not in include


def check_dialects_apart() -> None:
    top = [p for p in LIBRARY.glob("*") if p.suffix in {".h", ".cpp"}]
    for own, files in [("top level", top)] + [(f, sources(LIBRARY / f)) for f in DIALECT_FOLDERS]:
        for path in files:
            for include in includes(path):
                if dialect_of(include) not in ("", own):
                    complain(path, f"includes another dialect's {include}")


def check_direction() -> None:
    above_platform = set(SHARED_FOLDERS) - {"platform"} | set(DIALECT_FOLDERS)
    for path in sources(LIBRARY / "platform"):
        for include in includes(path):
            if folder_of(include) in above_platform or is_top_level_dialect(include):
                complain(path, f"platform/ includes {include} from above it")
    for folder in ["model", "catalog", "front", "dialect"]:
        for path in sources(LIBRARY / folder):
            for include in includes(path):
                if is_generated(include):
                    complain(path, f"includes a recognizer's header {include}")
                if dialect_of(include) and path.name != "BuildQueryInfo.cpp":
                    complain(path, f"looks into a dialect: {include}")


def check_system_questions() -> None:
    for path in sources(LIBRARY) + sources(ROOT / "host"):
        if path.parent.name != "platform" and SYSTEM_QUESTION.search(code(path)):
            complain(path, "asks which operating system it runs on")


def check_outside_world() -> None:
    for path in sources(LIBRARY):
        found = OUTSIDE_WORLD.search(code(path))
        if found:
            complain(path, f"reaches outside the library: {found.group(0)}")


def check_no_dialect_names() -> None:
    declares_all = {"QZRecognizers.h", "QZRecognizerConstructors.h"}
    for folder in ["platform", "dialect"]:
        for path in sources(LIBRARY / folder):
            found = DIALECT_NAME.search(code(path))
            if found and path.name not in declares_all:
                complain(path, f"shared code names a dialect: {found.group(0)}")


def installed_headers() -> list[Path]:
    listing = (LIBRARY / "installed_headers.txt").read_text().split()
    return [LIBRARY / name for name in listing]


def check_installed_headers() -> None:
    headers = installed_headers()
    known = {str(p.relative_to(ROOT)) for p in headers}
    for path in headers:
        for include in includes(path):
            if include.startswith("QZParserSQL/") and include not in known:
                complain(path, f"is installed but includes {include}, which is not")
            if "antlr3" in include or is_generated(include):
                complain(path, f"is installed but includes {include}")
        for macro in MACRO.findall(code(path)):
            if not macro.startswith("QZ"):
                complain(path, f"is installed but defines the macro {macro}")
    needs_static_library = ROOT / "host" / "static_walkers.cpp"
    for path in sources(ROOT / "host"):
        for include in includes(path):
            is_ours = include.startswith("QZParserSQL/") and not include.endswith("Tokens.h")
            if is_ours and include not in known and path != needs_static_library:
                complain(path, f"includes {include}, which is not installed")


def check_pages() -> None:
    for page in [ROOT / "docs" / f"{name}.md" for name in ["architecture", "dialects", "extending", "guide-host"]]:
        for name in re.findall(r"`([\w./-]+/[\w./-]*)`", page.read_text()):
            if not (ROOT / name).exists() and not (LIBRARY / name).exists():
                complain(page, f"names {name}, which does not exist")
        for name in re.findall(r"\]\(([\w./-]+)\)", page.read_text()):
            if not (page.parent / name).exists():
                complain(page, f"links to {name}, which does not exist")


for check in [check_dialects_apart, check_direction, check_system_questions, check_outside_world,
              check_no_dialect_names, check_installed_headers, check_pages]:
    check()
print("\n".join(problems) or "no line is crossed")
sys.exit(1 if problems else 0)
