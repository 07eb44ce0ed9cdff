#!/usr/bin/env python3
"""Runs the built desktop program in a real window under Xvfb.

Opens the point screen through the menu by keyboard, keeps a screenshot, and closes the program through its
menu. Ends with 77 (skipped) where Xvfb or xdotool is missing.

    smoke.py PROGRAM SCREENSHOT.png
"""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zlib

SKIPPED = 77
SIZE = (1400, 1000)
PATIENCE = 60  # seconds until a step that does not come about is a failure


def wait_for(what, look):
    """Looks again and again until there is an answer: a step is over when it is seen, not after a time."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = look()
        if answer:
            return answer
        time.sleep(0.1)
    raise SystemExit(f"smoke: {what} did not come about in {PATIENCE} seconds")


def read_screen(path):
    """The screen's file as rows of RGB bytes: the XWD format, 32 bits a pixel."""
    with open(path, "rb") as file:
        data = file.read()
    header = struct.unpack(">25I", data[:100])
    header_size, width, height, stride, colours = header[0], header[4], header[5], header[12], header[19]
    big_endian, depth_bits = header[7] == 1, header[11]
    if depth_bits != 32:
        raise SystemExit(f"smoke: a screen of {depth_bits} bits a pixel")
    start = header_size + 12 * colours
    rows = []
    for y in range(height):
        line = data[start + y * stride:start + y * stride + 4 * width]
        red, green, blue = (1, 2, 3) if big_endian else (2, 1, 0)
        row = bytearray(3 * width)
        row[0::3], row[1::3], row[2::3] = line[red::4], line[green::4], line[blue::4]
        rows.append(bytes(row))
    return width, height, rows


def write_png(path, width, height, rows):
    def chunk(kind, body):
        return (struct.pack(">I", len(body)) + kind + body +
                struct.pack(">I", zlib.crc32(kind + body)))
    picture = zlib.compress(b"".join(b"\0" + row for row in rows), 6)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                   chunk(b"IDAT", picture) + chunk(b"IEND", b""))


class Desktop:
    """An X server of our own, with a person at its keyboard."""

    def __init__(self, folder):
        self.folder = folder
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24", "-fbdir", folder,
             "-nolisten", "tcp"], pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            display = number.readline().strip()
        if not display:
            raise SystemExit("smoke: Xvfb did not start")
        self.environment = dict(os.environ, DISPLAY=f":{display}", QT_QPA_PLATFORM="xcb")
        self.environment.pop("WAYLAND_DISPLAY", None)

    def do(self, *words):
        done = subprocess.run(["xdotool", *words], env=self.environment, capture_output=True, text=True)
        return done.stdout.split()

    def keys(self, window, *keys):
        self.do("windowfocus", "--sync", window)
        for key in keys:
            self.do("key", "--clearmodifiers", key)
            wait_for(f"an answer to {key}", lambda: settled(self))  # a menu opens

    def screen(self):
        return read_screen(os.path.join(self.folder, "Xvfb_screen0"))

    def close(self):
        self.server.terminate()
        self.server.wait()


def smoke(program, screenshot):
    with tempfile.TemporaryDirectory() as folder:
        desktop = Desktop(folder)
        vastrel = subprocess.Popen([program], env=desktop.environment)
        try:
            window = wait_for("the frame", lambda: desktop.do(
                "search", "--onlyvisible", "--name", r"^Vastrel \(Ver1\.1\)$"))[0]
            empty = wait_for("a painted frame", lambda: settled(desktop))
            # Cluster Detection, Retrospective Test, Score and M Statistic; then Point (Text File), the second
            # entry with a P
            desktop.keys(window, "alt+c", "r", "s", "p", "Return")
            # The point screen stands in the frame when much of the picture has changed, and stays so.
            shown = wait_for("the point screen", lambda: changed(empty, settled(desktop)))
            write_png(screenshot, *shown)
            if vastrel.poll() is not None:
                raise SystemExit(f"smoke: the program ended with {vastrel.returncode}")
            desktop.keys(window, "alt+f")
            desktop.do("key", "e")
            status = wait_for("the end of the program", lambda: [vastrel.poll()] if vastrel.poll() is not None else None)
            if status != [0]:
                raise SystemExit(f"smoke: the exit ended with {status[0]}")
        finally:
            if vastrel.poll() is None:
                vastrel.kill()
                vastrel.wait()
            desktop.close()


def settled(desktop):
    """The screen, once two looks at it are the same and it is not all one colour."""
    first = desktop.screen()
    time.sleep(0.3)
    second = desktop.screen()
    return second if first == second and len(set(second[2])) > 2 else None


def changed(before, after):
    """The later screen, where a quarter of its lines differ from the earlier one."""
    if after is None:
        return None
    different = sum(old != new for old, new in zip(before[2], after[2]))
    return after if different > len(after[2]) / 4 else None


if __name__ == "__main__":
    for tool in ("Xvfb", "xdotool"):
        if shutil.which(tool) is None:
            print(f"smoke: skipped, {tool} is not installed")
            sys.exit(SKIPPED)
    smoke(*sys.argv[1:3])
    print(f"smoke: passed, the picture is {sys.argv[2]}")
