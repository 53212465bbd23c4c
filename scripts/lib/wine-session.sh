# Wine sessions. Each has its own prefix and server, and usually its own screen, so that any number of them can run at once.
# To be sourced after common.sh.
#
#   open_session KIND           for the calling script; closed when the script ends
#   open_screen KIND FOLDER     the same in a folder that other processes can join by sourcing FOLDER/environment
#   renew_screen FOLDER         replaces a screen that has become unfit
#   close_screen FOLDER
#
# KIND is
#   desktop   Wine's own desktop. Wine is the only client of the X server, so no other client changes focus and positions.
#   managed   a screen with a window manager, which X programs can query: for drags out of the program and wmctrl
#   inherit   the screen in DISPLAY
wine_home=$build/wine
screen_size=1600x1000
# Larger than Wine's desktop, so that the X server's pointer can rest outside of every window.
server_size=1616x1016

wine_environment() {
    export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
    # Nobody uses the desktop's menu here, but Wine would start a program for each link that is saved to it.
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=" LANG=ja_JP.UTF-8
    unset LC_ALL LANGUAGE
}

# Preloaded into Wine's own processes and the programs on a screen, see still_pointer.c.
ensure_still_pointer() {
    local source=$root/scripts/lib/still_pointer.c library=$wine_home/still_pointer.so
    [ "$library" -nt "$source" ] && return 0
    cc -shared -fPIC -O2 -Wall -Wextra -Werror -o "$library.new" "$source" && mv "$library.new" "$library"
}

keep_pointer_still() {
    export PAGEWICK_POINTER=$1/pointer LD_PRELOAD=$wine_home/still_pointer.so
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
    # A crash dialog would block the run for ever.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
    # Addresses are written to a log and never opened in a browser of the machine.
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

# Created next to its final place and renamed, so that an interrupted run leaves no incomplete prefix.
ensure_template() {
    wine_environment
    mkdir -p "$wine_home"
    exec 8>"$wine_home/template.lock"
    flock 8
    ensure_still_pointer
    if [ ! -d "$wine_home/template" ]; then
        say "Preparing a Wine prefix under build/ (once)"
        rm -rf "$wine_home/template.new"
        (
            exec 8>&-
            export WINEPREFIX=$wine_home/template.new
            fill_prefix
        ) || die "the Wine prefix could not be made"
        mv "$wine_home/template.new" "$wine_home/template"
    fi
    flock -u 8
    exec 8>&-
}

# Files that Wine never writes to are hard links to the template, so a prefix is created quickly and takes little space.
copy_template() {
    local prefix=$1 from=$wine_home/template
    cp -al "$from" "$prefix"
    rm -rf "$prefix/drive_c/users"
    cp -a "$from/drive_c/users" "$prefix/drive_c/users"
    cp -a --remove-destination "$from"/*.reg "$prefix/"
}

use_desktop_of_wine() {
    printf '\n[%s]\n"%s"="%s"\n' 'Software\\Wine\\Explorer' Desktop Default \
        'Software\\Wine\\Explorer\\Desktops' Default $screen_size >>"$1/user.reg"
}

poll() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || return 1
        sleep 0.05
    done
}

# Without -noreset the server would reset when its last client leaves, and put its pointer back in the middle. Server and
# manager run in their own sessions, so that Ctrl+C reaches only the script, which closes them in order.
# start_server FOLDER SIZE
start_server() {
    : >"$1/display"
    setsid Xvfb -displayfd 3 -screen 0 "$2"x24 -nolisten tcp -noreset 3>"$1/display" >"$1/xvfb.log" 2>&1 &
    screen_pid=$!
    poll 20 test -s "$1/display" || return 1
    DISPLAY=:$(tr -d '[:space:]' <"$1/display")
    export DISPLAY
    xdotool mousemove 32000 32000
}

start_manager() {
    setsid openbox >"$1/openbox.log" 2>&1 &
    manager_pid=$!
}

# If the display number was just released by another server, the first call may be refused. The manager has ended then and
# is started again.
has_manager() {
    wmctrl -m && return 0
    kill -0 "$manager_pid" || start_manager "$1"
    return 1
}

stop_processes() {
    [ -z "${manager_pid:-}" ] || kill "$manager_pid" 2>/dev/null || true
    [ -z "${screen_pid:-}" ] || kill "$screen_pid" 2>/dev/null || true
    manager_pid=
    screen_pid=
}

start_display() {
    local attempt
    for attempt in 1 2 3; do
        if [ "$1" = desktop ]; then
            if start_server "$2" $server_size; then return 0; fi
        elif start_server "$2" $screen_size && start_manager "$2" && poll 20 has_manager "$2"; then
            return 0
        fi
        stop_processes
    done
    die "no virtual screen after $attempt attempts: $(cat "$2"/*.log)"
}

# The first program starts Wine's desktop and services, which keep its output open. Without output here they keep no pipe
# open that a reader waits for.
start_wine() {
    wineserver -p 2>/dev/null || true
    setsid -w timeout 120 wine cmd /c exit </dev/null >/dev/null 2>&1 || true
}

open_screen() {
    local kind=$1 folder=$2
    ensure_template
    screen_pid=
    manager_pid=
    mkdir -p "$folder"
    export WINEPREFIX=$folder/prefix
    copy_template "$WINEPREFIX"
    [ "$kind" != desktop ] || use_desktop_of_wine "$WINEPREFIX"
    if [ "$kind" != inherit ]; then
        start_display "$kind" "$folder"
        keep_pointer_still "$folder"
    fi
    # For close_screen and processes that join.
    printf '%s=%q\n' kind "$kind" screen_pid "$screen_pid" manager_pid "$manager_pid" >"$folder/processes"
    local run=${folder#"$wine_home/"}
    export PAGEWICK_RUN=${run//\//-}
    {
        echo "unset LC_ALL LANGUAGE"
        declare -p WINEPREFIX WINEARCH WINEDEBUG WINEDLLOVERRIDES LANG DISPLAY PAGEWICK_RUN
        [ "$kind" = inherit ] || declare -p PAGEWICK_POINTER LD_PRELOAD
    } >"$folder/environment"
    start_wine
}

close_screen() {
    local folder=$1 kind screen_pid manager_pid
    [ -f "$folder/processes" ] || return 0
    # shellcheck disable=SC1091
    source "$folder/processes"
    WINEPREFIX=$folder/prefix timeout 30 wineserver -k 2>/dev/null || true
    stop_processes
    rm -rf "$folder"
}

renew_screen() {
    local folder=$1 kind
    # shellcheck disable=SC1091
    source "$folder/processes"
    close_screen "$folder"
    open_screen "$kind" "$folder"
}

# Within a session further scripts join it by PAGEWICK_SESSION.
open_session() {
    mkdir -p "$wine_home"
    session_dir=$(mktemp -d "$wine_home/session.XXXXXX")
    trap 'close_screen "$session_dir"' EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    open_screen "$1" "$session_dir"
    export PAGEWICK_SESSION=$session_dir
}
