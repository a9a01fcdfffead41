#!/usr/bin/env bash
# Fetches the libraries that the distribution has as source alone, into the cache folder. Does
# nothing when they are there.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/runtime/settings.sh"
mkdir -p "$cache"
exec 9>"$cache/sources.lock"
flock 9
[ ! -f "$csv_source/libcsv.c" ] || exit 0
echo "fetching the CSV reader's source ..." >&2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work"/{lists/partial,archives/partial,source}
mirror=$(apt-get indextargets --format '$(SITE)' | sort -u | grep '/debian/\?$' | head -n 1)
keyring=/usr/share/keyrings/debian-archive-keyring.gpg
echo "deb-src [signed-by=$keyring] $mirror bookworm main" >"$work/sources.list"
cat >"$work/apt.conf" <<CONF
Dir::Etc::sourcelist "$work/sources.list"; Dir::Etc::sourceparts "/dev/null";
Dir::State::lists "$work/lists"; Dir::Cache "$work";
APT::Sandbox::User ""; Acquire::Languages "none";
CONF
(
    export APT_CONFIG=$work/apt.conf
    cd "$work"
    apt-get -qq update
    apt-get -qq source --download-only libcsv
    tar -xzf libcsv_*.orig.tar.gz -C source --strip-components 1
) >&2
rm -rf "$csv_source"
mv "$work/source" "$csv_source"
