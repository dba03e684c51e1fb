# shellcheck shell=bash
# The kernel for programs that need the ALSA sequencer, and the first files it sees: fetched and put
# together once, then kept in build/guest.

# The emulator, what it takes to put the guest's files together, and the tools that tests use inside.
packages_for_guest=(
    qemu-system-x86
    busybox-static cpio kmod xz-utils zstd
    alsa-utils libasound2-dev
)

# The modules that come along; what they depend on follows by itself. scripts/lib/guest-init.sh
# loads them.
guest_modules=(
    virtio_pci 9pnet_virtio 9p overlay
    snd-seq snd-seq-midi snd-seq-dummy snd-virmidi snd-usb-audio
    dummy_hcd libcomposite usb_f_midi gadgetfs
)

# This machine cannot run a guest, which is no verdict on the program: says why, and ends with the
# exit status that test drivers take for "skipped".
cannot_run() {
    printf '%s: cannot run the guest: %s\n' "$(basename "$0")" "$*" >&2
    exit 77
}

# Ends unless everything the host has to have is there.
require_host_tools() {
    [[ $(uname -m) = x86_64 ]] || cannot_run "it is for x86_64, and this machine is not: $(uname -m)"
    (install_missing "${packages_for_guest[@]}") >&2 || cannot_run "packages are missing (see above)"
    local tool
    for tool in qemu-system-x86_64 busybox cpio depmod modprobe xz dpkg apt-get apt-cache; do
        PATH=$PATH:/usr/sbin:/sbin command -v "$tool" >/dev/null || cannot_run "there is no $tool here"
    done
}

# kernel_behind PACKAGE: the package of a kernel that a package without files depends on; the
# package itself if it is one of a kernel.
kernel_behind() {
    local behind
    behind=$(apt-cache depends --important "$1" 2>/dev/null |
        awk '$1 == "Depends:" && $2 ~ /^linux-image-/ { print $2; exit }')
    printf '%s\n' "${behind:-$1}"
}

# download_kernel PACKAGE FOLDER: puts the kernel's package file into the folder.
download_kernel() {
    local package
    package=$(kernel_behind "$1")
    (cd "$2" && timeout 600 apt-get --quiet --quiet download "$package") >"$2/log" 2>&1
}

refresh_package_lists() {
    local as_root=()
    (($(id -u) == 0)) || as_root=(sudo --non-interactive)
    timeout 300 "${as_root[@]}" apt-get --quiet --quiet update >/dev/null 2>&1
}

# kernel_file PACKAGE FOLDER: the path of the kernel's package file, downloaded if it is not there.
kernel_file() {
    local files=("$2"/*.deb)
    if [[ ! -e ${files[0]} ]]; then
        say "Downloading the kernel for the guest ($1)" >&2
        local download
        rm -rf "$2"/download.*
        download=$(mktemp --directory "$2/download.XXXXXX")
        download_kernel "$1" "$download" || { refresh_package_lists && download_kernel "$1" "$download"; } ||
            cannot_run "apt-get could not download the kernel: $(tail -n 3 "$download/log")"
        mv "$download"/*.deb "$2/"
        rm -r "$download"
        files=("$2"/*.deb)
    fi
    printf '%s\n' "${files[0]}"
}

# places_of PATTERN FILE: how many bytes stand before each match, line by line.
places_of() (
    export LC_ALL=C
    grep --only-matching --byte-offset --text --perl-regexp "$1" "$2" | cut --delimiter=: --fields=1
)

# unpack_image FROM TO: the kernel inside its self-extracting file. The emulator starts it as it is,
# which saves the seconds that unpacking takes in there. Fails where there is none.
unpack_image() {
    local tool magic place
    while read -r tool magic; do
        while read -r place; do
            # What follows the compressed part makes the tools complain after they did their work.
            tail --bytes=+$((place + 1)) "$1" | "$tool" --decompress --stdout --quiet >"$2" 2>/dev/null || true
            if [[ $(head --bytes=4 "$2" | od --address-radix=n --format=x1) = ' 7f 45 4c 46' ]]; then
                return 0
            fi
        done < <(places_of "$magic" "$1")
    done <<'END'
xz \xFD7zXZ\x00
zstd \x28\xB5\x2F\xFD
END
    return 1
}

# copy_modules FROM VERSION TO: the guest's modules and all that they depend on, ready for modprobe.
copy_modules() {
    local from=$1 version=$2 to=$3 path
    depmod --basedir "$from" "$version"
    printf '%s\n' "${guest_modules[@]}" |
        xargs --max-args=1 modprobe --dirname "$from" --set-version "$version" --show-depends |
        awk '$1 == "insmod" { print $2 }' | sort --unique |
        while read -r path; do
            install -D --mode=644 "$path" "$to/${path#"$from"/}"
        done
    cp "$from/lib/modules/$version"/modules.{order,builtin,builtin.modinfo} "$to/lib/modules/$version/"
    depmod --basedir "$to" "$version"
}

# make_initramfs FOLDER FILE: packs the folder into the file the kernel takes its first files from.
make_initramfs() {
    (cd "$1" && find . -print0 | cpio --null --create --format=newc --owner=0:0 --quiet) >"$2"
}

# prepare_files DEB FOLDER: makes `kernel` and `initramfs` in the folder (a full path) from the
# kernel's package.
prepare_files() {
    local deb=$1 folder=$2 version first=$2/first
    local unpacked=$folder/unpacked
    dpkg --extract "$deb" "$unpacked"
    version=$(basename "$unpacked"/lib/modules/*)
    unpack_image "$unpacked/boot/vmlinuz-$version" "$folder/kernel" ||
        cp "$unpacked/boot/vmlinuz-$version" "$folder/kernel"

    mkdir --parents "$first"/{bin,proc,sys,dev,host,upper,root,control}
    ln --symbolic bin "$first/sbin"
    cp "$(command -v busybox)" "$first/bin/busybox"
    ln --symbolic busybox "$first/bin/sh"
    install --mode=755 scripts/lib/guest-init.sh "$first/init"
    copy_modules "$unpacked" "$version" "$first"
    make_initramfs "$first" "$folder/initramfs"
    rm -r "$unpacked" "$first"
}

# prepare_guest PACKAGE: sets guest_folder to the folder with the kernel's and the initramfs's file,
# which are made only if they are not there or these scripts have changed since. Several may ask at
# the same time.
prepare_guest() {
    require_host_tools
    local PATH=$PATH:/usr/sbin:/sbin
    local cache=$PWD/build/guest/$1 deb key lock
    mkdir --parents "$cache"
    exec {lock}>"$cache/lock"
    flock --timeout 900 "$lock" || cannot_run "somebody else has been preparing it for 15 minutes"

    deb=$(kernel_file "$1" "$cache")
    key=$(cat scripts/lib/guest-init.sh scripts/lib/guest-kernel.sh | sha256sum | head --bytes=16)
    guest_folder=$cache/$key
    if [[ ! -d $guest_folder ]]; then
        say "Preparing the guest ($(basename "$deb"))" >&2
        local making=$cache/making
        rm -rf "$making" "$cache"/????????????????
        mkdir "$making"
        # A script of its own, so that it ends at the first command that fails.
        "$BASH" -euo pipefail -c 'source scripts/lib/guest-kernel.sh && prepare_files "$@"' - "$deb" "$making" ||
            cannot_run "its files could not be put together"
        mv "$making" "$guest_folder"
    fi
    exec {lock}>&-
}
