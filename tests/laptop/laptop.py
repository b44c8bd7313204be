"""The laptop: simulated hardware on which Debian's kernel runs. What breaks it is in actions.py."""
import json
import os
import shlex
import socket
import subprocess
import tempfile

import actions

HERE = os.path.dirname(os.path.abspath(__file__))
BOOT_LIMIT = 180  # seconds
COMMAND_LIMIT = 240
END_OF_OUTPUT = b"\x1e"
ENDS_OF_PROGRAM = (0, 1, 5)  # normal, abnormal, not all could be tested

# What the buses of a machine announce, and the radios, which are on none.
MODULES = ("bochs snd_hda_intel snd_hda_codec_generic e1000 nvme ahci sd_mod battery evdev "
           "mac80211_hwsim hci_vhci")

HARDWARE = [
    "-smbios", "type=0,vendor=Sample Firmware,version=L14.007,date=05/02/2026",
    "-smbios", "type=1,manufacturer=Sample Works,product=LARK 14,version=2,serial=L-000017",
    "-smbios", "type=2,manufacturer=Sample Works,product=LARK-MB,version=B3,serial=M-000018",
    "-smbios", "type=17,loc_pfx=DIMM,bank=BANK,manufacturer=Kestrel,serial=K-0019,part=KS-3200,"
               "speed=3200",
    "-device", "VGA,id=video,addr=0x12,edid=on,xres=1920,yres=1080",
    "-audiodev", "none,id=nowhere",
    "-device", "ich9-intel-hda,id=sound,addr=0x13", "-device", "hda-duplex,audiodev=nowhere",
    "-netdev", "user,id=lan,restrict=on",
    "-device", "e1000,id=wired,addr=0x14,netdev=lan,mac=52:54:00:14:00:01",
    "-blockdev", "null-co,node-name=flash,size=256060514304,read-zeroes=on",
    "-device", "nvme,id=ssd,addr=0x15,drive=flash,serial=S-000020",
    "-blockdev", "null-co,node-name=platter,size=500107862016,read-zeroes=on",
    "-device", "ide-hd,bus=ide.0,drive=platter,model=SAMPLE HD500,serial=H-000021,ver=HD01,"
               "rotation_rate=5400",
    "-device", "pc-testdev",
]

# What stands before a program that such a user starts.
USERS = {
    "root": [],
    "owner": ["setpriv", "--reuid=1000", "--regid=1000", "--clear-groups"],
}


class Fault(Exception):
    pass


class Laptop:
    """Switched on by `with`. Each of its commands raises Fault when it cannot be done."""

    def __init__(self, built, app):
        self.sockets = tempfile.TemporaryDirectory(prefix="laptop-")
        self.built, self.app = built, app
        self.console = f"{built}/console.txt"

    def __enter__(self):
        listeners = {name: self._listen(name) for name in ("commands", "monitor")}
        self.qemu = subprocess.Popen(self._command_line(), stdin=subprocess.DEVNULL)
        try:
            streams = {name: listener.accept()[0] for name, listener in listeners.items()}
            for stream in streams.values():
                stream.settimeout(BOOT_LIMIT)
            self.commands = streams["commands"]
            self.monitor = streams["monitor"].makefile("rw")
            self.monitor.readline()
            self.ask_monitor("qmp_capabilities")
            self._read_until(b"ready\n")
            self.commands.settimeout(COMMAND_LIMIT)
            self.do(f"modprobe -a {MODULES}")
            self.do(actions.until_there("ssd", "disk", "sound", "wireless"))
            self.do(actions.plug("bluetooth"))
            return self
        except BaseException:
            self.__exit__()
            raise

    def __exit__(self, *_):
        self.qemu.kill()
        self.qemu.wait()
        self.sockets.cleanup()

    def _path(self, name):
        return os.path.join(self.sockets.name, name)

    def _listen(self, name):
        listener = socket.socket(socket.AF_UNIX)
        listener.bind(self._path(name))
        listener.listen(1)
        listener.settimeout(30)
        return listener

    def _command_line(self):
        def folder(name, path):
            return ["-fsdev", f"local,id={name},path={path},security_model=none,readonly=on,"
                              "multidevs=remap",
                    "-device", f"virtio-9p-pci,fsdev={name},mount_tag={name}"]

        return ["qemu-system-x86_64", "-machine", "q35,usb=off", "-accel", "tcg,thread=multi",
                "-cpu", "Westmere", "-smp", "2", "-m", "2048", "-nodefaults", "-no-user-config",
                "-display", "none", "-no-reboot",
                "-kernel", f"{self.built}/kernel", "-initrd", f"{self.built}/initrd",
                "-append", "console=ttyS0 quiet mitigations=off no_timer_check iomem=relaxed "
                           "panic=-1",
                "-chardev", f"file,id=console,path={self.console}", "-serial", "chardev:console",
                "-chardev", f"socket,id=commands,path={self._path('commands')}",
                "-device", "virtio-serial-pci", "-device", "virtserialport,chardev=commands",
                "-chardev", f"socket,id=monitor,path={self._path('monitor')}",
                "-mon", "chardev=monitor,mode=control",
                *folder("host", "/"), *folder("added", f"{self.built}/added"),
                *folder("app", self.app), *folder("laptop", HERE),
                "-acpitable", f"file={self.built}/battery.aml",
                "-smbios", f"file={self.built}/chassis",
                *HARDWARE]

    def _read_until(self, end):
        text = b""
        while end not in text:
            try:
                read = self.commands.recv(65536)
            except TimeoutError:
                raise Fault(f"the laptop gives no answer, see {self.console}") from None
            if not read:
                raise Fault(f"the laptop has gone off, see {self.console}")
            text += read
        return text

    def call(self, line):
        """What a line of shell prints, both its channels, and its exit status."""
        self.commands.sendall(line.encode() + b"\n")
        text = b""
        while not (text.endswith(b"\n") and END_OF_OUTPUT in text):
            text += self._read_until(b"\n")
        output, _, status = text.rpartition(END_OF_OUTPUT)
        return output.decode(errors="replace"), int(status)

    def do(self, line):
        output, status = self.call(line)
        if status:
            raise Fault(f"{line}: {output.strip() or status}")

    def ask_monitor(self, command, **arguments):
        self.monitor.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
        self.monitor.flush()
        while True:
            line = self.monitor.readline()
            if not line:
                raise Fault(f"the laptop has gone off, see {self.console}")
            answer = json.loads(line)
            if "error" in answer:
                raise Fault(f"{command}: {answer['error']['desc']}")
            if "return" in answer:
                return

    def run_program(self, arguments, user="root"):
        """The objects that the program prints as JSON."""
        options = ["--json", "--lang", "ids", "--data-dir", f"/tmp/{user}"]
        line = [*USERS[user], "/app/sysdiagnose", *options, *arguments]
        output, status = self.call(shlex.join(line))
        if status not in ENDS_OF_PROGRAM:
            raise Fault(f"the program ended with {status}: {output[-500:]}")
        try:
            return [json.loads(text) for text in output.splitlines()]
        except ValueError:
            raise Fault(f"the program printed {output}") from None
