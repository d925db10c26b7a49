#!/bin/sh
# Installs a build into a folder of its own, holds what is there against installed.txt, and builds hosts against it.
#
#     check_install.sh BUILD_FOLDER [COMPILER_FLAGS]
set -eu
build=$1 flags=${2:-}
here=$(dirname "$(realpath "$0")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" >/dev/null
# Where Debian keeps libraries and zsh completions differs by the prefix of the build.
(cd "$work/prefix" && find . ! -type d | sed 's#^\./##; s#^lib/[^/]*-linux-gnu[^/]*/#lib/#; s#site-functions#vendor-completions#;
    s#-\(relwithdebinfo\|debug\|release\|noconfig\)\.cmake#-CONFIGURATION.cmake#' | grep -v '^share/doc/' | LC_ALL=C sort) >"$work/found"
{ sed 's#^#include/QZParserSQL/#' "$here/../../QZParserSQL/installed_headers.txt" && cat "$here/installed.txt"; } |
    LC_ALL=C sort | diff "$work/found" - || { echo "installed (<) and listed (>) files differ" >&2; exit 1; }

"$work/prefix/bin/qzsql" --version
"$work/prefix/bin/qzsql" check -d oracle -e "SELECT a FROM t" 2>/dev/null
sh "$here/check_consumers.sh" "$work/prefix" "$here/consumer" "$work" "$flags"
