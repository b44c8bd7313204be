"""What can be done to the laptop: each takes the words behind its name and gives lines of shell."""

# Where each part hangs and which driver it has there.
PARTS = {
    "video": ("pci", "0000:00:12.0", "bochs-drm"),
    "sound": ("pci", "0000:00:13.0", "snd_hda_intel"),
    "wired": ("pci", "0000:00:14.0", "e1000"),
    "ssd": ("pci", "0000:00:15.0", "nvme"),
    "battery": ("acpi", "PNP0C0A:00", "battery"),
    "keyboard": ("serio", "serio0", "atkbd"),
}
# What shows that it works, where its driver takes longer than its binding.
SIGNS = {
    "ssd": "/dev/nvme0n1",
    "sound": "/proc/asound/card0",
    "bluetooth": "/sys/class/bluetooth/hci0",
    "wireless": "/sys/class/net/wlan0",
    "disk": "/sys/block/sda",
}
# The places of the battery's firmware (battery.asl), and how long the kernel keeps what it read.
BATTERY = {"voltage": 0xFF000000, "full": 0xFF000004, "gone": 0xFF000008}
BATTERY_IS_READ_AFTER = 1.1  # seconds


def wait_for(test):
    return f"{{ for i in $(seq 100); do {test} && break; busybox usleep 100000; done; {test}; }}"


def until_there(*names):
    return " && ".join(wait_for(f"[ -e {SIGNS[name]} ]") for name in names if name in SIGNS)


def write(text, file):
    return f"echo {text} >{file}"


def unbind(part):
    bus, device, driver = PARTS[part]
    return write(device, f"/sys/bus/{bus}/drivers/{driver}/unbind")


def bind(part):
    bus, device, driver = PARTS[part]
    bound = write(device, f"/sys/bus/{bus}/drivers/{driver}/bind")
    return f"{bound} && {until_there(part) or 'true'}"


def battery(name, value):
    """Voltage in mV, full in mWh, gone 0 or 1; 0 is as built. Its driver reads it all anew."""
    sleep = int(BATTERY_IS_READ_AFTER * 1e6)
    return (f"busybox devmem {BATTERY[name]:#x} 32 {int(value)} && {unbind('battery')} && "
            f"{bind('battery')} && busybox usleep {sleep}")


def switch(kind, state):
    """Of the radios of a kind (wlan, bluetooth), by software."""
    blocked = {"off": 1, "on": 0}[state]
    return (f"for folder in /sys/class/rfkill/*; do [ $(cat $folder/type) != {kind} ] || "
            f"{write(blocked, '$folder/soft')} || exit 1; done")


def plug(part):
    ways = {
        "wireless": "modprobe mac80211_hwsim",
        "bluetooth": "{ btvirt -l1 >/dev/null 2>&1 & echo $! >/run/btvirt.pid; }",
        "ssd": write(1, "/sys/bus/pci/rescan"),
    }
    return f"{ways[part]} && {until_there(part)}"


def unplug(part):
    ways = {
        "wireless": "modprobe -r mac80211_hwsim",
        "bluetooth": "kill $(cat /run/btvirt.pid)",
        "ssd": write(1, f"/sys/bus/pci/devices/{PARTS['ssd'][1]}/remove"),
    }
    return f"{ways[part]} && " + wait_for(f"[ ! -e {SIGNS[part]} ]")


def mixer(control, *settings):
    return f"amixer -q -c0 sset {control} {' '.join(settings)}"


def poison():
    """A page of the memory that the next run tests is lost while it does."""
    return "modprobe hwpoison_inject && { python3 /laptop/poison.py >/dev/null 2>&1 & }"


ACTIONS = {
    action.__name__: action
    for action in (unbind, bind, battery, switch, plug, unplug, mixer, poison)
}
