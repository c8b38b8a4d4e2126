#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How long the program takes to start to a window that takes input, what a table of a million rows
costs, and how long the window ever leaves the user waiting. Prints tables.

    cmake --build --preset release && bench/window.py
"""

import argparse
import ctypes
import os
import select
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/support"))
from accessible import start_display

PATIENCE = 20  # seconds
UNMAP_NOTIFY, MAP_NOTIFY, CLIENT_MESSAGE = 18, 19, 33
SUBSTRUCTURE_NOTIFY = 1 << 19


class Event(ctypes.Structure):
    """A MapNotify, UnmapNotify or ClientMessage; all begin alike."""
    class Data(ctypes.Union):
        class Map(ctypes.Structure):
            _fields_ = [("event", ctypes.c_ulong), ("window", ctypes.c_ulong)]

        class Message(ctypes.Structure):
            _fields_ = [("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                        ("format", ctypes.c_int), ("l", ctypes.c_long * 5)]

        _fields_ = [("map", Map), ("message", Message), ("pad", ctypes.c_long * 20)]

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("data", Data)]


class Screen:
    """What happens to the windows of a display."""

    def __init__(self, name):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for function in (self.x11.XOpenDisplay, self.x11.XDefaultRootWindow, self.x11.XInternAtom):
            function.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.x11.XSelectInput(self.display, self.root, ctypes.c_long(SUBSTRUCTURE_NOTIFY))
        self.protocols, self.close = (self.x11.XInternAtom(self.display, atom, 0)
                                      for atom in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW"))
        self.x11.XSync(self.display, 0)

    def await_event(self, kind):
        event = Event()
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            while self.x11.XPending(self.display):
                self.x11.XNextEvent(self.display, ctypes.byref(event))
                if event.type == kind:
                    return event
            select.select([self.x11.XConnectionNumber(self.display)], [], [], 1)
        raise SystemExit("no answer from the window")

    def await_window(self):
        return self.await_event(MAP_NOTIFY).data.map.window

    def close_window(self, window):
        """As a user does. The window does so after all that it was told before: to paint itself."""
        event = Event(type=CLIENT_MESSAGE)
        event.data.message.window = window
        event.data.message.message_type = self.protocols
        event.data.message.format = 32
        event.data.message.l[0] = self.close
        self.x11.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0),
                            ctypes.byref(event))
        self.x11.XFlush(self.display)
        self.await_event(UNMAP_NOTIFY)


def environment(folder, **more):
    return {**os.environ, "HOME": folder, "XDG_CONFIG_HOME": folder, "XDG_RUNTIME_DIR": folder, **more}


def start_on_display(program, display):
    """Milliseconds from the start of the program until its window has painted itself and obeyed."""
    screen = Screen(display)
    with tempfile.TemporaryDirectory() as folder:
        begin = time.monotonic()
        running = subprocess.Popen([program], env=environment(folder, DISPLAY=display,
                                                              QT_QPA_PLATFORM="xcb"))
        try:
            screen.close_window(screen.await_window())
            return (time.monotonic() - begin) * 1000
        finally:
            running.terminate()
            running.wait()


def start_offscreen(bench):
    with tempfile.TemporaryDirectory() as folder:
        began = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
        return float(subprocess.check_output(
            [bench, "--start", str(began)], env=environment(folder, QT_QPA_PLATFORM="offscreen")))


def print_start(name, times):
    print(f"| {name} | {statistics.median(times):.0f} ms | {max(times):.0f} ms |", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=ROOT / "build/release")
    parser.add_argument("--files", type=int, default=1_000_000)
    parser.add_argument("--runs", type=int, default=11)
    arguments = parser.parse_args()
    programs = arguments.build / "bin"

    print(f"{os.cpu_count()} cores\n\n| start, {arguments.runs} runs | median | longest |\n|---|---|---|")
    server, display = start_display()
    try:
        print_start("X11 (Xvfb)", [start_on_display(programs / "marquell", display)
                                   for _ in range(arguments.runs)])
    finally:
        server.terminate()
        server.wait()
    bench = programs / "marquell_window_bench"
    print_start("offscreen", [start_offscreen(bench) for _ in range(arguments.runs)])

    offscreen = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    print("\nA preview table of a million rows:\n", flush=True)
    subprocess.run([programs / "marquell_table_bench"], env=offscreen, check=True)
    print(f"\nThe window over {arguments.files:,} files:\n", flush=True)
    subprocess.run([bench, "--files", str(arguments.files)], env=offscreen, check=True)


if __name__ == "__main__":
    main()
