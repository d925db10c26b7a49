#!/bin/sh
# Builds hosts against the package that is installed under a prefix and runs them: the examples and the consumer by CMake,
# the consumer by pkg-config too.
#
#     check_consumers.sh PREFIX CONSUMER_FOLDER WORK_FOLDER [COMPILER_FLAGS]
set -eu
prefix=$1 consumer=$2 work=$3 flags=${4:-}
export CMAKE_PREFIX_PATH="$prefix" CXXFLAGS="$flags"

fail() {
    echo "check_consumers: $*" >&2
    exit 1
}

expect() {
    "$@" 2>/dev/null | diff - "$consumer/expected.txt" || fail "$1 prints something else"
}

# CMake by itself asks for make, which needs not be there.
if command -v ninja >/dev/null; then export CMAKE_GENERATOR=Ninja; fi

cmake -S "$prefix/share/doc/libqzparsersql-dev/examples" -B "$work/examples" >/dev/null
cmake --build "$work/examples" >/dev/null
"$work/examples/walk_tree" "SELECT a FROM t LIMIT 5" | grep -qx "not understood: LIMIT 5" || fail "walk_tree"
"$work/examples/report_errors" "SELECT a FROM t" | grep -qx "understood to its end" || fail "report_errors"
"$work/examples/print_model" "SELECT Due FROM Orders" | grep -qx "  kind 5, text due_date" || fail "print_model"

cmake -S "$consumer" -B "$work/consumer" >/dev/null
cmake --build "$work/consumer" >/dev/null
expect "$work/consumer/consumer_of_shared"
expect "$work/consumer/consumer_of_static"
! ldd "$work/consumer/consumer_of_static" | grep -q libQZParserSQL || fail "the static library is not used"

pkgconfig=$(find "$prefix/lib" "$prefix/share" -name qzparsersql.pc -exec dirname {} \;)
export PKG_CONFIG_PATH="$pkgconfig"
libraries=$(pkg-config --variable=libdir qzparsersql)
# shellcheck disable=SC2046,SC2086
c++ -std=c++17 $flags "$consumer/consumer.cpp" $(pkg-config --cflags --libs qzparsersql) -o "$work/by_pkgconfig"
LD_LIBRARY_PATH=$libraries
export LD_LIBRARY_PATH
expect "$work/by_pkgconfig"
readelf -d "$work/by_pkgconfig" | grep -q 'NEEDED.*\[libQZParserSQL\.so\.1\]' || fail "the SONAME has no version"
echo "examples and consumers are built and run against $prefix"
