# shellcheck shell=bash
# What the scripts share; they source it, nobody runs it.

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
    # The folder may belong to another user, as on machines that check out as root and test as somebody else.
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
