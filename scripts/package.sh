#!/bin/bash
# Makes the Debian packages in build/packages and tries them: lintian looks for errors, then a bare
# Debian 12 gets the programs, which do what README.md shows, and then what is needed to build the
# programs of README.md against the library. Needs root and the package sources of Debian.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

packages+=(debootstrap dpkg-dev file lintian)
install_packages

cd "$project"
out=build/packages
root="$out/root"
try="$out/try"

echo "== Building in build/package, some minutes the first time"
eval "$(dpkg-buildflags --export=sh)"
(build package) 2>&1
rm -f "$out"/*.deb
quietly cpack --config build/package/CPackConfig.cmake -B "$out"
rm -rf "$out/_CPack_Packages"
(cd "$out" && ls -l ./*.deb)

echo "== Looking for errors with lintian"
lintian --allow-root --fail-on error "$out"/*.deb

# The root stays as it was made; what is tried gets a copy.
if [ ! -f "$root.whole" ]; then
    echo "== Making a bare Debian 12, some minutes the first time"
    as_root rm -rf "$root"
    quietly as_root debootstrap --variant=minbase bookworm "$root"
    touch "$root.whole"
fi
as_root rm -rf "$try"
as_root cp -a "$root" "$try"
as_root mkdir -p "$try/srv/tests/api" "$try/srv/work"
as_root cp "$out"/*.deb packaging/smoke.sh README.md examples/traces -r "$try/srv"
as_root cp tests/api/installtest.cmake "$try/srv/tests/api"

in_root() {
    as_root chroot "$try" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root \
        DEBIAN_FRONTEND=noninteractive ${http_proxy:+http_proxy="$http_proxy"} "$@"
}
install_in_root() {
    quietly in_root apt-get install --yes --no-install-recommends "$@"
}

echo "== Installing the programs in it"
quietly in_root apt-get update
in_root sh -c 'ls /srv/*.deb' >"$out/names"
install_in_root $(grep -v -e -dev_ "$out/names")
in_root sh -c 'cd /srv/work && ../smoke.sh ../README.md ../traces'

echo "== Building against the library in it"
install_in_root $(grep -e -dev_ "$out/names") cmake g++ make pkg-config
in_root cmake -DWORK=/srv/work/consumers "-DGENERATOR=Unix Makefiles" \
    "-DLIBDIR=lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)" -P /srv/tests/api/installtest.cmake

echo "== Removing them"
quietly in_root apt-get purge --yes datachunk datachunk-monitor 'libdatachunkhandler*'
as_root rm -rf "$try"
echo "Good packages lie in $out"
