# shellcheck shell=bash
# One run of the guest: the emulator is started, watched and ended, and what the program wrote is
# passed on. Uses guest_folder (scripts/lib/guest-kernel.sh) and the options of scripts/guest.
# shellcheck disable=SC2154  # those are set there

# The processes this run has started, for when it ends early.
guest_processes=()

# Leaves nothing behind, however the script ends.
tidy_up() {
    kill "${guest_processes[@]}" 2>/dev/null || true
    rm -rf "$control"
}

# write_command FILE PROGRAM [ARGUMENT...]: a script that runs the program as it would be run here.
write_command() {
    local file=$1
    shift
    {
        declare -px
        printf 'cd %q || exit 125\n' "$called_from"
        printf 'exec -- '
        printf '%q ' "$@"
        printf '\n'
    } >"$file"
}

# folder_arguments TAG FOLDER [OPTION]: adds the emulator's arguments for a folder of the host.
folder_arguments() {
    # A comma within a value is written twice.
    emulator+=(
        -fsdev "local,id=$1,path=${2//,/,,},security_model=none,multidevs=remap${3:+,$3}"
        -device "virtio-9p-pci,fsdev=$1,mount_tag=$1"
    )
}

# Sets emulator to the command that boots the guest. Software emulation only: it works everywhere,
# while /dev/kvm may be there and useless. Programs get plain addresses (norandmaps): the sanitizers
# need them.
make_emulator_command() {
    local kernel_arguments=(
        console=ttyS0 loglevel=4 panic=-1 oops=panic reboot=t
        mitigations=off nokaslr random.trust_cpu=on edd=off tsc=reliable no_timer_check
        norandmaps tormelk.guest
    )
    emulator=(
        qemu-system-x86_64 -nodefaults -no-user-config -no-reboot -display none
        -machine pc -accel "tcg,thread=multi" -cpu max -smp 2 -m 1024
        -kernel "$guest_folder/kernel" -initrd "$guest_folder/initramfs"
        -append "${kernel_arguments[*]}"
        -serial "file:$control/console"
    )
    folder_arguments host / readonly=on
    folder_arguments control "$control"
    local number
    for number in "${!shares[@]}"; do
        mkdir --parents "${shares[number]}"
        folder_arguments "share$number" "${shares[number]}"
    done
}

# The guest itself went wrong: says what, shows the end of what its kernel said, and ends.
guest_failed() {
    printf '%s: the guest failed: %s\n' "$(basename "$0")" "$*" >&2
    tail --quiet --lines=40 "$control/emulator" "$control/console" >&2 || true
    exit 125
}

# wait_for_emulator PROCESS LIMIT [FILE]: waits until the emulator has ended, or the file is there.
# Fails after the limit (seconds).
wait_for_emulator() {
    local ends=$((SECONDS + $2))
    while kill -0 "$1" 2>/dev/null && ! [[ -n ${3:-} && -e $3 ]]; do
        ((SECONDS < ends)) || return 1
        sleep 0.05
    done
}

# Passes on what the program writes, while it writes it, until the emulator has ended.
pass_on_output() {
    tail --follow --bytes=+1 --sleep-interval=0.1 --pid="$1" "$control/output" &
    guest_processes+=($!)
    tail --follow --bytes=+1 --sleep-interval=0.1 --pid="$1" "$control/errors" >&2 &
    guest_processes+=($!)
}

# run_in_guest PROGRAM [ARGUMENT...]: runs it in the guest and ends with its exit status.
run_in_guest() {
    control=$(mktemp --directory --tmpdir tormelk-guest.XXXXXX)
    trap tidy_up EXIT
    : >"$control/output"
    : >"$control/errors"
    printf '%s\n' ${shares[@]+"${shares[@]}"} | sed '/^$/d' >"$control/shares"
    write_command "$control/command" "$@"
    make_emulator_command

    # Should this script be killed, the emulator must not stay behind.
    setpriv --pdeathsig KILL "${emulator[@]}" </dev/null >"$control/emulator" 2>&1 &
    local process=$!
    guest_processes+=("$process")
    pass_on_output "$process"

    wait_for_emulator "$process" "$boot_limit" "$control/started" ||
        guest_failed "it has not started after $boot_limit s"
    if ! wait_for_emulator "$process" "$run_limit"; then
        printf '%s: the program was stopped after %d s\n' "$(basename "$0")" "$run_limit" >&2
        exit 124
    fi
    wait "${guest_processes[@]:1}" || true
    [[ -s $control/status ]] || guest_failed "it ended before the program did"
    exit "$(<"$control/status")"
}
