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

# at_exit COMMAND...: runs it when the script ends, however it does; what was said last comes first.
commands_at_exit=()
at_exit() {
    commands_at_exit=("$(printf '%q ' "$@")" ${commands_at_exit[@]+"${commands_at_exit[@]}"})
    trap 'for at_end in "${commands_at_exit[@]}"; do eval "$at_end"; done' EXIT
}

# begin_beside NAME COMMAND...: runs the command beside the steps that follow, in silence. When the
# script ends before it does, it is stopped.
declare -A process_beside
begin_beside() {
    local name=$1 log=build/log/$1
    shift
    mkdir -p build/log
    rm -f "$log.seconds"
    set -o monitor  # a process group of its own
    (
        began=$SECONDS
        status=0
        "$@" || status=$?
        echo $((SECONDS - began)) >"$log.seconds"
        exit "$status"
    ) </dev/null >"$log" 2>&1 &
    process_beside[$name]=$!
    set +o monitor
    at_exit stop_beside "$name"
}

stop_beside() {
    [[ -z ${process_beside[$1]:-} ]] || kill -- "-${process_beside[$1]}" 2>/dev/null || true
}

# end_beside NAME TITLE: waits for it, and then tells of it as of any step, with all its output.
end_beside() {
    local name=$1 title=$2 status=0 took
    wait "${process_beside[$name]}" || status=$?
    process_beside[$name]=
    took=$(cat "build/log/$name.seconds" 2>/dev/null || echo 0)
    say ""
    say "==> $title"
    cat "build/log/$name"
    ((status == 0)) || fail "failed after $(duration "$took"): $title"
    say "    done in $(duration "$took"), beside the steps above"
}

# patiently COMMAND...: leaves the processors to what cannot wait.
patiently() (
    renice --priority 10 --pid "$BASHPID" >/dev/null
    "$@"
)

# build PRESET [TARGET...]: configures and builds build/PRESET, the whole of it or the targets alone.
build() {
    local preset=$1
    shift
    cmake --preset "$preset" --log-level=WARNING &&
        cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
