# Sourced by the commands of the root folder: installs the Debian packages that are missing, as root or with sudo.
# Does nothing where all are there.

build_packages="g++ cmake ninja-build pkg-config python3-minimal antlr3 libantlr3c-dev libicu-dev libfmt-dev libcli11-dev
    libgraphviz-dev libsqlite3-dev"
test_packages="libgtest-dev nlohmann-json3-dev python3 clang libclang-rt-14-dev doxygen mandoc zsh"
package_packages="dpkg-dev lintian mmdebstrap"
lint_packages="clang-format clang-tidy"
valgrind_packages="valgrind"
coverage_packages="gcovr"
bench_packages="libbenchmark-dev python3"

missing_of() {
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || printf '%s ' "$package"
    done
}

need() {
    command -v dpkg-query >/dev/null || { echo "This command installs Debian packages; install by hand: $*" >&2; exit 3; }
    missing=$(missing_of "$@")
    [ -n "$missing" ] || return 0
    echo "Installing: $missing" >&2
    if [ "$(id -u)" = 0 ]; then as_root=""; elif command -v sudo >/dev/null; then as_root="sudo"; else
        echo "These packages are missing and only root or sudo can install them: $missing" >&2
        exit 3
    fi
    log=$(mktemp)
    $as_root apt-get update -qq >"$log" 2>&1 || echo "The package lists could not be renewed; going on as they are." >&2
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing \
        >>"$log" 2>&1 || tail -n 20 "$log" >&2
    rm -f "$log"
    missing=$(missing_of "$@")
    [ -z "$missing" ] || { echo "Could not be installed: $missing" >&2; exit 3; }
}
