# shellcheck shell=bash
# Functions that the scripts share. They source this file; it is not run by itself.

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export ROOT

fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# The comment block at the top of the calling script is its help text.
show_help() {
    sed -n '2,/^[^#]/ s/^# \{0,1\}//p' "$0"
}

cores() {
    nproc
}

# Prints the build folder of a preset. CMakePresets.json follows the same rule.
build_dir() {
    if [[ $1 == release ]]; then
        printf '%s/build\n' "$ROOT"
    else
        printf '%s/build-%s\n' "$ROOT" "$1"
    fi
}

# Prints the project's files that match the patterns, new ones that git ignores not included, NUL after each.
project_files() {
    local file
    # The folder may belong to another user, as on machines that check out as root and test as another user.
    git -C "$ROOT" -c safe.directory="$ROOT" ls-files -z --cached --others --exclude-standard -- "$@" | while IFS= read -r -d '' file; do
        if [[ -f $ROOT/$file ]]; then # a file deleted but not yet committed is still listed
            printf '%s\0' "$file"
        fi
    done
}

# wait_until SECONDS COMMAND...: runs the command ten times a second until it succeeds.
wait_until() {
    local seconds=$1 deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        if ((SECONDS >= deadline)); then
            printf '%s: gave up after %s s: %s\n' "$(basename "$0")" "$seconds" "$*" >&2
            return 1
        fi
        sleep 0.1
    done
}

# run_tests PRESET [CTEST-ARGUMENT...]: runs the tests of a built preset. They get the same surroundings everywhere:
# nothing of the caller's desktop, and a home that is removed afterwards.
run_tests() {
    local preset=$1 home status=0
    shift
    home=$(mktemp -d)
    env -u DISPLAY -u WAYLAND_DISPLAY -u XAUTHORITY -u DBUS_SESSION_BUS_ADDRESS -u XDG_RUNTIME_DIR \
        -u XDG_CONFIG_HOME -u XDG_DATA_HOME -u XDG_CACHE_HOME -u XDG_CURRENT_DESKTOP HOME="$home" \
        ctest --preset "$preset" --no-tests=error "$@" || status=$?
    rm -rf "$home"
    return "$status"
}

# Most of the slow tests wait for a server, a window or an animation most of the time.
test_jobs() {
    printf '%s\n' $((2 * $(cores)))
}
