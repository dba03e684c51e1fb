#!/bin/sh
# The guest's first program, run by busybox: makes the host's files appear, brings up MIDI, runs
# the command it was given and powers off. What the host and the guest tell each other stands in the
# folder /control: shares and command (from the host), started, output, errors and status (from here).
#
# A failure ends this script, and with it the guest; the console's text tells the host why.
set -eu

/bin/busybox --install -s /bin
export PATH=/bin
mount -t proc proc /proc

# At once, whatever state the drivers are in: the emulator ends instead of starting again.
power_off() {
    echo b >/proc/sysrq-trigger
    sleep 60
}
trap power_off EXIT

mount -t sysfs sysfs /sys
mount -t devtmpfs devtmpfs /dev
modprobe -a virtio_pci 9pnet_virtio 9p overlay

# share TAG FOLDER OPTIONS: mounts a folder of the host.
share() {
    mount -t 9p -o "trans=virtio,version=9p2000.L,msize=262144,$3" "$1" "$2"
}

# The host's files, with a layer in memory above them that takes what is written.
share control /control rw,cache=none
share host /host ro,cache=loose
mount -t tmpfs tmpfs /upper
mkdir /upper/files /upper/work
mount -t overlay -o lowerdir=/host,upperdir=/upper/files,workdir=/upper/work overlay /root

mount -t proc proc /root/proc
mount -t sysfs sysfs /root/sys
mount -t devtmpfs devtmpfs /root/dev
mkdir -p /root/dev/pts /root/dev/shm /root/dev/gadget
mount -t devpts -o ptmxmode=666 devpts /root/dev/pts
mount -t tmpfs tmpfs /root/dev/shm
mount -t tmpfs tmpfs /root/run
mkdir -p /root/lib/modules
mount --bind /lib/modules /root/lib/modules

number=0
while IFS= read -r folder; do
    mkdir -p "/root$folder"
    share "share$number" "/root$folder" rw,cache=none
    number=$((number + 1))
done </control/shares

ip link set lo up

# Card 0 is virtual MIDI, so that cards of USB devices start at 1.
modprobe -a snd-seq snd-seq-midi snd-seq-dummy
modprobe snd-virmidi midi_devs=1
modprobe dummy_hcd num=4
modprobe -a libcomposite usb_f_midi gadgetfs snd-usb-audio
# Whoever lists the sequencer's clients makes the kernel look for drivers, a hundred times at once, if
# a MIDI device has none; so has the device's side of what tests plug. There are none to be found.
echo >/proc/sys/kernel/modprobe
mount -t configfs configfs /root/sys/kernel/config
# It offers the first controller there is. Tests plug other kinds of devices into the others.
mount -t gadgetfs gadgetfs /root/dev/gadget

cp /control/command /root/run/command
: >/control/started
status=0
chroot /root /bin/bash /run/command </dev/null >>/control/output 2>>/control/errors || status=$?
echo "$status" >/control/status
