# shellcheck shell=bash
# What the scripts share: where the project is, how they speak, how they time their steps. Sourced,
# never run. It changes to the top folder of the project, so every path below it is relative to that.
set -euo pipefail

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

# Speaks to the person who runs the script.
say() {
    printf '%s\n' "$*"
}

# Says what went wrong and ends the script.
fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# An option the script does not know: the usage text, and 2 as the exit status.
misuse() {
    printf '%s: %s\n\n' "$(basename "$0")" "$1" >&2
    usage >&2
    exit 2
}

# Seconds as people write them: 42 s, 3 min 7 s.
duration() {
    if (($1 < 60)); then
        printf '%d s' "$1"
    else
        printf '%d min %d s' $(($1 / 60)) $(($1 % 60))
    fi
}

# step TITLE COMMAND...: runs the command under a heading and tells how long it took. A command
# that fails ends the script. Shell functions are run without `set -e`: join their commands by &&.
step() {
    local title=$1 began=$SECONDS
    shift
    say ""
    say "==> $title"
    "$@" || fail "failed after $(duration $((SECONDS - began))): $title"
    say "    done in $(duration $((SECONDS - began)))"
}

# build PRESET [TARGET...]: configures and builds build/PRESET, the whole of it or the targets alone.
build() {
    local preset=$1
    shift
    cmake --preset "$preset" --log-level=WARNING &&
        cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
