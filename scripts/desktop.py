"""A desktop of its own, for tests, benchmarks and pictures: display, window manager, buses, and the
processes on them.

All of it lies in one temporary folder and ends with the `Desktop`, whatever happens in between.
"""

import contextlib
import ctypes
import os
import pathlib
import select
import shutil
import signal
import subprocess
import tempfile
import time

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
LIBC = ctypes.CDLL(None, use_errno=True)
PATIENCE = 10  # seconds, for anything that is started or ended
ACCESSIBILITY_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def end_with_parent():
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def children():
    """The ids of all children of this process, orphans of its children among them."""
    own = pathlib.Path(f"/proc/self/task/{os.getpid()}/children")
    return [int(number) for number in own.read_text().split()]


def wait_for_end(child):
    """Waits at most a second for this child. Collects all children that have ended."""
    with open(os.pidfd_open(child), "rb") as handle:
        select.select([handle], [], [], 1)
    with contextlib.suppress(ChildProcessError):  # that was the last one
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass


class Desktop:
    """Used in a `with`: sets this process's environment so that it belongs to the new desktop."""

    def __init__(self, accessible=True):
        self._accessible = accessible
        # Orphans become children of this process, so that it can end them and wait for them.
        LIBC.prctl(PR_SET_CHILD_SUBREAPER, 1)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="feedloom-desktop-"))

    def __enter__(self):
        with contextlib.ExitStack() as on_failure:
            on_failure.callback(self.__exit__)
            self._set_up()
            on_failure.pop_all()
        return self

    def __exit__(self, *_):
        for number in (signal.SIGTERM, signal.SIGKILL):
            told = set()
            deadline = time.monotonic() + PATIENCE
            while (left := children()) and time.monotonic() < deadline:
                for child in set(left) - told:
                    os.kill(child, number)
                told.update(left)
                wait_for_end(left[0])
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, *command, **options):
        """Starts a program that ends with the desktop; what it says goes to a file of its name."""
        with open(self.folder / (pathlib.Path(command[0]).name + ".log"), "ab") as log:
            return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                    preexec_fn=end_with_parent, **options)

    def logs(self):
        return "\n".join(f"--- {path.name}\n{path.read_text(errors='replace')[-2000:]}"
                         for path in sorted(self.folder.glob("*.log")))

    def _set_up(self):
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        os.environ.update(HOME=str(self.folder), XDG_RUNTIME_DIR=str(runtime),
                          XDG_SESSION_TYPE="x11", GSETTINGS_BACKEND="memory")
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XAUTHORITY", "XDG_DATA_HOME",
                     "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE"):
            os.environ.pop(name, None)
        os.environ["DISPLAY"] = ":" + self.start_and_read(
            "Xvfb", "-displayfd", "{}", "-screen", "0", "1280x900x24", "-nolisten", "tcp")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_and_read(
            "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address={}")
        self._start_window_manager()
        if self._accessible:
            self.start(ACCESSIBILITY_LAUNCHER, "--launch-immediately", "--a11y=1")

    def _start_window_manager(self):
        """A window that came before it would never get the keyboard."""
        ready = self.folder / "ready"
        os.mkfifo(ready)
        with open(os.open(ready, os.O_RDONLY | os.O_NONBLOCK), "rb", buffering=0) as pipe:
            self.start("openbox", "--sm-disable", "--startup", f"sh -c 'echo >{ready}'")
            self._read_line(pipe, "openbox")

    def start_and_read(self, *command):
        """Starts a program that tells a line on the file descriptor put for "{}" when ready."""
        reader, writer = os.pipe()
        with open(reader, "rb", buffering=0) as pipe:
            with open(writer, "wb"):
                self.start(*(str(part).format(writer) for part in command), pass_fds=[writer])
            return self._read_line(pipe, command[0])

    def _read_line(self, pipe, program):
        line = b""
        while not line.endswith(b"\n"):
            if not select.select([pipe], [], [], PATIENCE)[0]:
                raise TimeoutError(f"{program} does not get ready\n{self.logs()}")
            part = pipe.read(1024)
            if not part:
                raise RuntimeError(f"{program} has ended\n{self.logs()}")
            line += part
        return line.decode().strip()
