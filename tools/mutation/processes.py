# SPDX-License-Identifier: MIT
"""Programs with limits: of time, memory and the size of a file; killed with all they started."""
import os
import signal
import subprocess
import tempfile
import threading
from dataclasses import dataclass

MEMORY_KB = 4 * 1024 * 1024
FILE_KB = 1024 * 1024
SHOWN_BYTES = 4 * 1024 * 1024

_running = set()
_stopped = threading.Event()
_lock = threading.Lock()


class Stopped(Exception):
    """The run has been told to end."""


@dataclass
class Outcome:
    status: int  # as subprocess has it: negative for a signal
    output: str  # both streams; the end of it when it is long
    timed_out: bool

    @property
    def ending(self):
        """How it ended, when that was not an exit by its own will."""
        return signal.Signals(-self.status).name if self.status < 0 else f"exit status {self.status}"


def run(command, timeout, cwd, environment=None):
    """Runs a program to its end, or to the end of its time."""
    if _stopped.is_set():
        raise Stopped
    # A shell sets the limits: code between fork and exec is not safe beside threads.
    limited = ["sh", "-c", f'ulimit -v {MEMORY_KB}; ulimit -f {FILE_KB * 2}; ulimit -c 0; exec "$@"', "sh", *command]
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(
            limited, cwd=cwd, env=environment, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
            start_new_session=True,
        )  # fmt: skip
        timed_out = False
        try:
            with _lock:
                _running.add(process)
            process.wait(timeout)
        except subprocess.TimeoutExpired:
            timed_out = True
        finally:
            _kill_group(process)
            process.wait()
            with _lock:
                _running.discard(process)
        if _stopped.is_set():
            raise Stopped
        output.seek(max(0, output.seek(0, os.SEEK_END) - SHOWN_BYTES))
        return Outcome(process.returncode, output.read().decode(errors="replace"), timed_out)


def _kill_group(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def stop():
    """Ends what is still running of all that `run` has started, and starts no more."""
    _stopped.set()
    with _lock:
        for process in _running:
            _kill_group(process)
