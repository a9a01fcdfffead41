#!/usr/bin/env bash
# instance.sh up NUMBER | down NUMBER | down-all
# An instance is an X server, a Wine prefix with a living server, and a print service, all of its
# own, so that programs in different instances can't disturb each other. Sourced with
# INSTANCE_LIBRARY=1 it only gives its routines.
set -euo pipefail
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
. "$here/settings.sh"
wine=$tree/usr/lib/wine/wine
wine_server=$tree/usr/lib/wine/wineserver
screen=1280x1024x24

# The environment of a program in instance folder $1.
set_environment() {
    local name
    for name in $(compgen -e | grep -E '^(WINE|XDG_|DBUS|LC_|LANG|DISPLAY|XAUTH)' || true); do
        unset "$name"
    done
    unset TMPDIR
    export HOME=$1/home XDG_RUNTIME_DIR=$1/run LC_ALL=C.UTF-8 TZ=UTC
    export WINEPREFIX=$1/prefix WINEDEBUG=${TESSARINE_WINEDEBUG:--all} WINEARCH=win32
    export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
    export FONTCONFIG_FILE=$1/fonts.conf CUPS_SERVER=$1/printing/cups.sock
    export TESSARINE_PRINT_DIR=$1/printing/jobs
    [ ! -s "$1/run/display" ] || export DISPLAY=:$(<"$1/run/display")
}

# True when the process whose id stands in file $1 runs (and isn't a zombie).
alive() {
    local id
    [ -s "$1" ] && id=$(<"$1") && [ -d "/proc/$id" ] &&
        ! grep -q '^State:.*Z' "/proc/$id/status" 2>/dev/null
}

start_display() {
    ! alive "$1/run/xvfb.pid" || return 0
    : >"$1/run/display.new"
    setsid Xvfb -displayfd 7 -screen 0 $screen -nolisten tcp -noreset >"$1/run/xvfb.log" 2>&1 \
        7>"$1/run/display.new" 9>&- </dev/null &
    echo $! >"$1/run/xvfb.pid"
    for _ in $(seq 500); do [ ! -s "$1/run/display.new" ] || break; sleep 0.02; done
    mv "$1/run/display.new" "$1/run/display"
}

# A prefix that all instances are copied from: registry and fonts are settled once.
make_base() {
    local base=$instances/base
    exec 8>"$instances/base.lock"
    flock 8
    local stamp
    stamp=$(cat "$here"/instance.sh "$here"/prefix.reg "$tree/.ready" | sha256sum)
    # a change of these scripts makes prefixes anew
    if [ -f "$base/.stamp" ] && [ "$(<"$base/.stamp")" = "$stamp" ]; then
        exec 8>&-
        return
    fi
    rm -rf "$base"
    mkdir -p "$base"
    (
        export WINEPREFIX=$base
        unset DISPLAY
        timeout -s KILL 180 "$wine" wineboot -i >/dev/null 2>&1 8>&- 9>&- </dev/null
        cp "$tree"/usr/share/wine/fonts/* "$tree"/usr/share/fonts/truetype/liberation/*.ttf \
            "$base/drive_c/windows/Fonts/"
        cp "$here/prefix.reg" "$base/drive_c/prefix.reg"
        "$wine" regedit /S 'C:\prefix.reg' >/dev/null 2>&1 8>&- 9>&- </dev/null
        "$wine_server" -k 8>&- 9>&- || true
        "$wine_server" -w 8>&- 9>&- || true
        find "$base/drive_c/users" -type l | while read -r link; do rm "$link" && mkdir "$link"; done
    )
    echo "$stamp" >"$base/.stamp"
    exec 8>&-
}

# Modules and fonts are shared by hard links; what programs write in place gets a copy.
copy_base() {
    [ ! -d "$1/prefix" ] || return 0
    cp -al "$instances/base" "$1/prefix.new"
    find "$1/prefix.new" -type f -links +1 ! -name '*.dll' ! -name '*.exe' ! -name '*.drv' \
        ! -name '*.fon' ! -name '*.ttf' ! -name '*.nls' | while read -r file; do
        cp -p --remove-destination "$file" "$file.copy" && mv "$file.copy" "$file"
    done
    mv "$1/prefix.new" "$1/prefix"
}

up() {
    local folder=$instances/$1
    mkdir -p "$folder"/{home,run}
    exec 9>"$folder/run/lock"
    flock 9
    local want
    want=$(cat "$here"/*.sh "$here"/*.reg "$here"/*.py "$tree/.ready" | sha256sum)
    if [ ! -f "$folder/stamp" ] || [ "$(<"$folder/stamp")" != "$want" ]; then
        down_folder "$folder"
        rm -rf "$folder/prefix" "$folder/printing"
        echo "$want" >"$folder/stamp"
    fi
    if alive "$folder/run/xvfb.pid" && alive "$folder/run/holder.pid" &&
        alive "$folder/printing/cupsd.pid" && [ -s "$folder/run/ready" ]; then
        exec 9>&-
        return
    fi
    printf '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig><dir>%s</dir><cachedir>%s</cachedir></fontconfig>\n' \
        "$folder/no-fonts" "$folder/font-cache" >"$folder/fonts.conf"
    start_display "$folder"
    alive "$folder/printing/cupsd.pid" || "$here/printing.sh" "$folder/printing" start 9>&-
    set_environment "$folder"
    make_base
    copy_base "$folder"
    rm -f "$folder/run/ready"
    "$wine_server" -p >/dev/null 2>&1 </dev/null 9>&- || true
    setsid "$wine" "$tree/holder.exe" "Z:$folder/run/ready" >/dev/null 2>&1 </dev/null 9>&- &
    echo $! >"$folder/run/holder.pid"
    for _ in $(seq 2400); do [ ! -s "$folder/run/ready" ] || break; sleep 0.025; done
    [ -s "$folder/run/ready" ] || {
        echo "instance.sh: instance $1 did not come up" >&2
        exit 1
    }
    exec 9>&-
}

down_folder() {
    (
        set_environment "$1"
        [ ! -d "$1/prefix" ] || "$wine_server" -k >/dev/null 2>&1 9>&- || true
        [ ! -d "$1/printing" ] || "$here/printing.sh" "$1/printing" stop
        ! alive "$1/run/xvfb.pid" || kill "$(<"$1/run/xvfb.pid")" || true
        rm -f "$1/run/"{xvfb.pid,holder.pid,ready,display}
    )
}

if [ -z "${INSTANCE_LIBRARY:-}" ]; then
    case ${1:-} in
    up) up "$2" ;;
    down) [ ! -d "$instances/$2" ] || down_folder "$instances/$2" ;;
    down-all)
        for folder in "$instances"/[0-9]*; do [ ! -d "$folder" ] || down_folder "$folder"; done
        ;;
    *)
        echo "usage: instance.sh up NUMBER | down NUMBER | down-all" >&2
        exit 2
        ;;
    esac
fi
