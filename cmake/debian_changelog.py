"""Prints CHANGELOG.md in Debian's form: debian_changelog.py CHANGELOG.md PACKAGE MAINTAINER."""

import re
import sys
import textwrap
from datetime import datetime, timezone
from email.utils import format_datetime
from pathlib import Path

changes, package, maintainer = sys.argv[1:]
RELEASE = re.compile(r"^## (\S+), (\d{4}-\d\d-\d\d)\n(.*?)(?=^## |\Z)", re.M | re.S)
releases = RELEASE.findall(Path(changes).read_text(encoding="utf-8"))
if not releases:
    sys.exit(f"{changes} has no heading like: ## 1.0.0, 2026-11-21")
for version, day, items in releases:
    date = datetime.fromisoformat(day).replace(hour=12, tzinfo=timezone.utc)
    text = "\n".join(textwrap.fill(" ".join(item.split()), 80, initial_indent="  * ", subsequent_indent="    ")
                     for item in re.split(r"^- ", items, flags=re.M)[1:])
    print(f"{package} ({version}) unstable; urgency=medium\n\n{text}\n\n -- {maintainer}  {format_datetime(date)}\n")
