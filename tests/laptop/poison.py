"""In the laptop: waits for the program's memory under test; tells the kernel that a page is lost."""
import glob
import os
import struct
import time

PAGE = 4096
LEAST_UNDER_TEST = 64 << 20
NAMES = ("sysdiagnose", "hardware-probe")
IN_MEMORY = 1 << 63
FRAME = (1 << 55) - 1


def middle_of_largest_mapping(process):
    largest, middle = 0, None
    with open(f"{process}/maps", encoding="utf-8") as lines:
        for line in lines:
            span, mode, _, _, inode = line.split()[:5]
            start, end = (int(address, 16) for address in span.split("-"))
            if mode.startswith("rw") and inode == "0" and end - start > largest:
                largest, middle = end - start, (start + end) // 2
    return middle if largest >= LEAST_UNDER_TEST else None


def frame_at(process, address):
    with open(f"{process}/pagemap", "rb") as pages:
        pages.seek(address // PAGE * 8)
        (entry,) = struct.unpack("<Q", pages.read(8))
    return entry & FRAME if entry & IN_MEMORY else None


def find_frame():
    for process in glob.glob("/proc/[0-9]*"):
        try:
            if os.path.basename(os.readlink(f"{process}/exe")) not in NAMES:
                continue
            address = middle_of_largest_mapping(process)
            frame = address and frame_at(process, address)
            if frame:
                return frame
        except OSError:
            continue  # has ended, or is the kernel's own
    return None


while (frame := find_frame()) is None:
    time.sleep(0.02)
with open("/sys/kernel/debug/hwpoison/corrupt-pfn", "w", encoding="ascii") as file:
    file.write(str(frame))
