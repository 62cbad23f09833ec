"""Makes a program's calls fail: disks full or broken, no threads."""

import contextlib
import os
import pathlib
import subprocess

SOURCE = pathlib.Path(__file__).with_name("faults.c")


def library(folder):
    """Compiles what is preloaded, where it is not yet."""
    path = folder / "faults.so"
    if not path.exists() or path.stat().st_mtime < SOURCE.stat().st_mtime:
        subprocess.run(["cc", "-O1", "-shared", "-fPIC", "-o", path, SOURCE, "-ldl"], check=True)
    return path


def sanitizer_library(program):
    """The sanitizer's library that must come first, if the program was built with one."""
    lines = subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout
    return next((line.split()[2] for line in lines.splitlines() if "libasan" in line), "")


class Injection:
    """Environments in which the calls of `program` fail."""

    def __init__(self, program, folder):
        self.library = library(folder)
        first = sanitizer_library(program)
        self.preloaded = f"{first} {self.library}".strip()

    def full_disk(self, folder, room=0):
        """Also for the programs that this one starts."""
        return {"LD_PRELOAD": self.preloaded, "FAULT_CHILDREN": str(self.library),
                "FAULT_FULL": os.path.realpath(folder), "FAULT_ROOM": str(room)}

    def broken_disk(self, file, offset):
        return {"LD_PRELOAD": self.preloaded, "FAULT_UNREADABLE": os.path.realpath(file),
                "FAULT_AT": str(offset)}

    def few_threads(self, count):
        return {"LD_PRELOAD": self.preloaded, "FAULT_THREADS": str(count)}


@contextlib.contextmanager
def small_disk(folder, size="48k"):
    """A disk of this size in the folder. Yields whether there is one: not everybody may mount."""
    folder.mkdir(parents=True, exist_ok=True)
    done = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "none", folder],
                          capture_output=True, check=False) if os.geteuid() == 0 else None
    is_mounted = done is not None and done.returncode == 0
    try:
        yield is_mounted
    finally:
        if is_mounted:
            subprocess.run(["umount", "-l", folder], check=True)


def filled(folder):
    """Leaves no room in the folder, but lets empty files be made."""
    with contextlib.suppress(OSError), open(folder / "filler", "wb", buffering=0) as file:
        while True:
            file.write(bytes(4096))
