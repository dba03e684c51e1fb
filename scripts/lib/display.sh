# shellcheck shell=bash
# Programs with windows on machines without a screen.

# Large enough for all the windows side by side; a script may set another.
screen_size=1920x1200

# on_virtual_display COMMAND...: runs the command on an X display that exists in memory only. The
# command's exit status is kept. Without resets: the server would tell of one by a signal that
# disturbs xvfb-run while it cleans up.
on_virtual_display() {
    env --unset=WAYLAND_DISPLAY --unset=QT_SCALE_FACTOR QT_QPA_PLATFORM=xcb \
        xvfb-run --auto-servernum --server-args="-screen 0 ${screen_size}x24 -noreset" "$@"
}

# The same surroundings for every user and on every machine: texts in UTF-8, messages in English, and
# the folder for sockets that Qt asks for, where the session gives none (as in a container). That
# folder goes when the script ends. Where there is no session bus, none is started: it would stay
# behind, with a folder in the home of the user.
provide_plain_session() {
    export LC_ALL=C.UTF-8
    if [[ -z ${XDG_RUNTIME_DIR:-} ]]; then
        XDG_RUNTIME_DIR=$(mktemp --directory)
        export XDG_RUNTIME_DIR
        at_exit rm -rf "$XDG_RUNTIME_DIR"
    fi
    if [[ -z ${DBUS_SESSION_BUS_ADDRESS:-} && ! -e $XDG_RUNTIME_DIR/bus ]]; then
        export DBUS_SESSION_BUS_ADDRESS=disabled:
    fi
}
