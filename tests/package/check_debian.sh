#!/bin/sh
# Makes the Debian packages of a build, installs them in a clean root, and builds hosts against them there.
#
#     check_debian.sh BUILD_FOLDER
#
# Ends with code 77 where there can be no clean root.
set -eu
build=$1
here=$(dirname "$(realpath "$0")")
mirror=http://deb.debian.org/debian
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"

skip() {
    echo "SKIPPED: no package was made or installed, since $*" >&2
    exit 77
}

. /etc/os-release
[ "$ID" = debian ] || skip "this system is not Debian"
command -v mmdebstrap >/dev/null || skip "mmdebstrap is not installed"
command -v lintian >/dev/null || skip "lintian is not installed"
command -v dpkg-shlibdeps >/dev/null || skip "dpkg-dev is not installed"
[ "$(id -u)" = 0 ] || unshare --user true 2>/dev/null || skip "there are neither root's rights nor user namespaces"
/usr/lib/apt/apt-helper download-file "$mirror/dists/$VERSION_CODENAME/InRelease" "$work/InRelease" >/dev/null 2>&1 ||
    skip "$mirror cannot be reached"

cpack --config "$build/CPackConfig.cmake" -B "$work/made" >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
mkdir "$work/packages"
mv "$work"/made/*.deb "$work/packages"
# CPack's own scripts call ldconfig beside the trigger.
lintian --allow-root --suppress-tags maintscript-calls-ldconfig --fail-on error,warning "$work"/packages/*.deb
cp -r "$here/consumer" "$here/check_consumers.sh" "$work/packages"
for package in "$work"/packages/*.deb; do
    dpkg-deb --field "$package" Package Version Depends
done

cat >"$work/packages/try" <<'END'
#!/bin/sh
set -eu
export DEBIAN_FRONTEND=noninteractive
cd /packages
apt-get install -qq --no-install-recommends ./*.deb >/dev/null
qzsql --version
qzsql check -d access -e "SELECT a FROM t"
apt-get install -qq --no-install-recommends g++ cmake make pkg-config libantlr3c-dev libicu-dev >/dev/null
sh check_consumers.sh /usr consumer /packages/work
apt-get purge -qq qzsql libqzparsersql-dev libqzparsersql1 >/dev/null
left=$(find / -xdev -path /packages -prune -o -iname '*qz*' ! -path '/proc/*' ! -path '/var/log/*' -print)
[ -z "$left" ] || { echo "left behind: $left" >&2; exit 1; }
END
mmdebstrap --quiet --variant=apt --format=null \
    --customize-hook="copy-in '$work/packages' /" --customize-hook='chroot "$1" sh /packages/try' \
    "$VERSION_CODENAME" - "$mirror" >/dev/null 2>"$work/log" || { cat "$work/log" >&2; exit 1; }
echo "the packages were installed, used and removed in a clean root"
