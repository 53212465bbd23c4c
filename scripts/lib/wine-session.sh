# A private Wine prefix and a private screen under build/. Sourced after common.sh.
#
#   wine_environment      exports what every Wine process of the project runs with
#   ensure_prefix         makes the prefix once
#   use_own_prefix NAME   the same under a name: another prefix, for programs that must not meet the tests
#   open_session          starts a screen with a window manager and keeps the Wine server; closed when the script ends
wine_home=$build/wine
screen_size=1600x1000x24

wine_environment() {
    export WINEPREFIX=$wine_home/prefix WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
    # A menu of the desktop is nobody's here: Wine would start a program for each link that is saved.
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=" LANG=ja_JP.UTF-8
    unset LC_ALL LANGUAGE
}

replace_font() { wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$1" /d "$2" /f >/dev/null; }

fill_prefix() {
    wineboot -i >/dev/null 2>&1
    wineserver -w
    wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f >/dev/null
    local face
    for face in 'メイリオ' Meiryo 'Meiryo UI' 'Yu Gothic UI' 'Yu Gothic' '游ゴシック' 'MS UI Gothic' 'Segoe UI' \
        'ＭＳ Ｐゴシック' 'MS PGothic' Tahoma 'Microsoft Sans Serif'; do
        replace_font "$face" 'Noto Sans CJK JP'
    done
    for face in 'ＭＳ ゴシック' 'MS Gothic'; do replace_font "$face" IPAGothic; done
    replace_font Arial 'DejaVu Sans'
    # A crash dialog would hang the run for ever.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
    # Addresses go to a log, never to a browser of the machine.
    printf '#!/bin/sh\nprintf "%%s\\n" "$1" >>"%s/opened-addresses.txt"\n' "$wine_home" >"$wine_home/open-address"
    chmod +x "$wine_home/open-address"
    wine reg add 'HKCU\Software\Wine\WineBrowser' /v Browsers /d "$wine_home/open-address" /f >/dev/null
    wine reg add 'HKCU\Software\Wine\WineBrowser' /v Mailers /d "$wine_home/open-address" /f >/dev/null
    wineserver -k || true
    wineserver -w || true
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    local link
    while IFS= read -r link; do
        rm "$link" && mkdir "$link"
    done < <(find "$WINEPREFIX/drive_c/users" -type l)
}

# Made beside its place and renamed, so that a broken run leaves no half prefix.
ensure_prefix() {
    mkdir -p "$wine_home"
    exec 8>"$wine_home/prefix.lock"
    flock 8
    if [ ! -d "$wine_home/prefix" ]; then
        say "Preparing a Wine prefix under build/ (once)"
        rm -rf "$wine_home/prefix.new"
        (
            exec 8>&-
            export WINEPREFIX=$wine_home/prefix.new
            fill_prefix
        ) || die "the Wine prefix could not be made"
        mv "$wine_home/prefix.new" "$wine_home/prefix"
    fi
    flock -u 8
    exec 8>&-
}

# A copy of the tests' prefix. What Wine never writes to is shared with it on disk.
copy_prefix() {
    local from=$1 to=$2
    rm -rf "$to.new"
    cp -al "$from" "$to.new"
    rm -rf "$to.new/drive_c/users"
    cp -a "$from/drive_c/users" "$to.new/drive_c/users"
    cp -a --remove-destination "$from"/*.reg "$to.new/"
    mv "$to.new" "$to"
}

use_own_prefix() {
    wine_environment
    ensure_prefix
    local template=$wine_home/prefix
    wine_home=$build/wine/$1
    mkdir -p "$wine_home"
    [ -d "$wine_home/prefix" ] || copy_prefix "$template" "$wine_home/prefix"
}

poll() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || return 1
        sleep 0.05
    done
}

# Server and manager run in sessions of their own, so that Ctrl+C reaches the script, which closes them in order.
start_server() {
    : >"$session_dir/display"
    setsid Xvfb -displayfd 3 -screen 0 $screen_size -nolisten tcp 3>"$session_dir/display" >"$session_dir/xvfb.log" 2>&1 &
    screen_pid=$!
    poll 20 test -s "$session_dir/display" || return 1
    DISPLAY=:$(tr -d '[:space:]' <"$session_dir/display")
    export DISPLAY
}

start_manager() {
    setsid openbox >"$session_dir/openbox.log" 2>&1 &
    manager_pid=$!
}

# A number that another server is just giving back may refuse the first call: then the manager has ended and is
# started again.
has_manager() {
    wmctrl -m && return 0
    kill -0 "$manager_pid" || start_manager
    return 1
}

stop_screen() {
    [ -z "${manager_pid:-}" ] || kill "$manager_pid" 2>/dev/null || true
    [ -z "${screen_pid:-}" ] || kill "$screen_pid" 2>/dev/null || true
}

start_screen() {
    session_dir=$(mktemp -d "$wine_home/session.XXXXXX")
    local attempt
    for attempt in 1 2 3; do
        if start_server && start_manager && poll 20 has_manager; then return 0; fi
        stop_screen
    done
    die "no virtual screen with a window manager after $attempt attempts: $(cat "$session_dir"/*.log)"
}

# Coming and leaving exclude each other: a session that leaves must not stop the server under one that has just come.
# Only the script itself holds the lock; a server that inherited it would keep it for ever.
lock_holders() {
    mkdir -p "$wine_home/holders"
    exec 9>"$wine_home/holders.lock"
    flock 9
}

unlock_holders() {
    flock -u 9
    exec 9>&-
}

hold_server() {
    lock_holders
    : >"$wine_home/holders/$$"
    unlock_holders
    wineserver -p 2>/dev/null || true
    # The first program starts Wine's services, which keep its output open: let them keep none that a reader waits on.
    setsid -w timeout 60 wine cmd /c exit </dev/null >/dev/null 2>&1 || true
}

has_holders() {
    local holder
    for holder in "$wine_home"/holders/*; do
        [ -e "$holder" ] || continue
        kill -0 "$(basename "$holder")" 2>/dev/null && return 0
        rm -f "$holder"
    done
    return 1
}

# The last session to leave stops the server.
release_server() {
    lock_holders
    rm -f "$wine_home/holders/$$"
    has_holders || timeout 30 wineserver -k 2>/dev/null || true
    unlock_holders
}

close_session() {
    release_server
    stop_screen
    [ -z "${session_dir:-}" ] || rm -rf "$session_dir"
}

# $1: "own" for a private screen, "inherit" for the one in DISPLAY.
open_session() {
    wine_environment
    ensure_prefix
    trap close_session EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    [ "$1" = inherit ] || start_screen
    hold_server
    export PAGEWICK_WINE_SESSION=$$
}
