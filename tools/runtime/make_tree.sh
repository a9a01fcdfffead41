#!/usr/bin/env bash
# Makes a private tree with a 32-bit Wine that runs in place: i386 packages are unpacked, not
# installed, so neither root nor a second architecture is needed, and every machine gets the same
# Wine and the same fonts. Does nothing when the tree stands.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/settings.sh"
mkdir -p "$cache"
exec 9>"$cache/tree.lock"
flock 9
[ ! -f "$tree/.ready" ] || exit 0
echo "making the test runtime in $tree ..." >&2
rm -rf "$tree" "$tree.apt"
suite=bookworm
work=$tree.apt
mkdir -p "$tree" "$work"/{lists/partial,cache/archives/partial,etc/apt.conf.d,etc/preferences.d,state,debs}
: >"$work/state/status"
mirror=$(apt-get indextargets --format '$(SITE)' | sort -u | grep '/debian/\?$' | head -n 1)
keyring=/usr/share/keyrings/debian-archive-keyring.gpg
echo "deb [signed-by=$keyring] $mirror $suite main" >"$work/etc/sources.list"
cat >"$work/apt.conf" <<CONF
Dir::Etc "$work/etc"; Dir::Etc::sourcelist "$work/etc/sources.list";
Dir::Etc::sourceparts "/dev/null"; Dir::Etc::parts "/dev/null";
Dir::State "$work/state"; Dir::State::lists "$work/lists"; Dir::State::status "$work/state/status";
Dir::Cache "$work/cache"; APT::Architecture "i386"; APT::Architectures { "i386"; };
APT::Sandbox::User ""; Acquire::Languages "none"; APT::Install-Recommends "false";
CONF
packages="wine32 libwine libz-mingw-w64 libc6 libgcc-s1 libstdc++6 libfreetype6 libpng16-16
 libbrotli1 libbz2-1.0 zlib1g libexpat1 libfontconfig1 fontconfig-config fonts-wine fonts-liberation
 libx11-6 libxcb1 libxau6 libxdmcp6 libxext6 libxrender1 libxrandr2 libxcursor1 libxfixes3 libxi6
 libxinerama1 libxcomposite1 libxss1 libbsd0 libmd0 libcups2 libavahi-client3 libavahi-common3
 libdbus-1-3 libsystemd0 libgnutls30 libp11-kit0 libidn2-0 libunistring2 libtasn1-6 libhogweed6
 libnettle8 libgmp10 libffi8 libgssapi-krb5-2 libkrb5-3 libk5crypto3 libcom-err2 libkrb5support0
 libkeyutils1 libssl3 libcap2 libgcrypt20 libgpg-error0 liblzma5 liblz4-1 libzstd1 libuuid1 libudev1
 libodbc2 libodbcinst2 libltdl7 libsqliteodbc libsqlite3-0"
(
    export APT_CONFIG=$work/apt.conf
    apt-get -qq update
    cd "$work/debs"
    # shellcheck disable=SC2086
    apt-get -qq download $packages
)
for package in "$work"/debs/*.deb; do
    dpkg-deb --fsys-tarfile "$package" | tar -x -C "$tree" --no-same-owner \
        --exclude=./usr/share/doc --exclude=./usr/share/man --exclude=./usr/share/locale \
        --exclude=./usr/share/lintian --exclude=./usr/lib/i386-linux-gnu/gconv
done
[ -e "$tree/lib" ] || ln -s usr/lib "$tree/lib"

# What the packages' own scripts would have done: the zlib library is stamped as one of Wine's.
modules=$tree/usr/lib/i386-linux-gnu/wine/i386-windows
zlib=$tree/usr/i686-w64-mingw32/lib/zlib1.dll
{
    head -c 64 "$zlib"
    printf 'Wine builtin DLL\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0'
    tail -c +97 "$zlib"
} >"$modules/zlib1.dll"
rm -rf "$tree"/usr/{i686,x86_64}-w64-mingw32
find "$modules" -type f -size +8k -print0 |
    xargs -0 -n 40 i686-w64-mingw32-strip --strip-debug 2>/dev/null || true

# Make it run where it lies: interpreter and library paths point into the tree.
loader=$tree/lib/ld-linux.so.2
libraries=$tree/lib/i386-linux-gnu:$tree/usr/lib/i386-linux-gnu
bin=$tree/usr/lib/wine
mkdir -p "$bin/server"
cp "$bin/wineserver32" "$bin/server/wineserver32"
ln -sfn ../../share/wine/nls "$bin/nls"
ln -sf server/wineserver32 "$bin/wineserver"
for file in "$bin/wine" "$bin/server/wineserver32"; do
    patchelf --set-interpreter "$loader" --force-rpath --set-rpath "$libraries" "$file"
done
for file in "$tree"/usr/lib/i386-linux-gnu/wine/i386-unix/*.so; do
    patchelf --force-rpath --set-rpath "\$ORIGIN:$libraries" "$file"
done
i686-w64-mingw32-gcc-posix -O1 -o "$tree/holder.exe" "$here/holder.c" -lole32 -lwinspool
rm -rf "$work"
touch "$tree/.ready"
