# shellcheck shell=bash
# The Debian packages the project needs, by purpose, and how a missing one gets here.

# shellcheck disable=SC2034  # read by the scripts that source this file
{
    packages_to_build=(
        g++ cmake ninja-build git
        nlohmann-json3-dev
        libasound2-dev
        qt6-base-dev libqt6svg6
    )
    # What a window needs where there is no screen: a virtual one, and letters to write with.
    packages_for_virtual_display=(
        xvfb xauth
        fonts-dejavu-core
    )
    packages_to_test=(
        libgtest-dev libgmock-dev libxcb1-dev
        clang libclang-rt-dev clang-format clang-tidy
        openbox xdotool x11-utils
        dbus at-spi2-core python3-pyatspi
        desktop-file-utils shared-mime-info
        weston qt6-wayland
    )
    packages_to_measure=(
        libgtest-dev libgmock-dev
        gcovr python3
    )
    packages_to_mutate=(
        libgtest-dev libgmock-dev
        python3
    )
}

# install_missing PACKAGE...: installs those of the packages that are not installed yet, and says
# which. Quick, silent and without asking for rights when there are none.
install_missing() {
    if ! command -v apt-get >/dev/null; then
        say "This is not a Debian system. See to it that these are installed, under the names they have here:"
        say "    $*"
        return
    fi

    local installed missing=() package
    # A package may be installed for several architectures: one line for each, with its name first.
    installed=$(dpkg-query --show --showformat '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package; do
        grep --quiet --line-regexp --fixed-strings "$package installed" <<<"$installed" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    say "Installing with apt-get: ${missing[*]}"
    local as_root=()
    if (($(id -u) != 0)); then
        command -v sudo >/dev/null ||
            fail "that takes root's rights, and there is no sudo here. As root, run: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    local apt_get=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive
        apt-get --yes --quiet --option Dpkg::Use-Pty=0 --option DPkg::Lock::Timeout=300)
    # A source that cannot be reached need not be the one with our packages: the installation decides.
    "${apt_get[@]}" --quiet update || say "Not every list of packages could be refreshed; going on with what is there."
    "${apt_get[@]}" --no-install-recommends install "${missing[@]}" ||
        fail "apt-get could not install: ${missing[*]}"
}
