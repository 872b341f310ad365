#!/usr/bin/env python3
"""Drives a panel from outside, as a person with a keyboard does, and reads every byte on its line.

    drive_panel.py --simulator PROGRAM [--port LINK] [--pictures FOLDER] -- panel [words...]

LINK becomes the device that the panel knows as COM1: a link to a pseudo-terminal with a simulated
supply behind it; without it, the link that the Linux panel looks for in a runtime folder. Needs an X server with a window manager, and xdotool. Works on any panel that takes
keys from X: the Linux program, and the Windows program under Wine.
"""
import argparse
import os
import select
import signal
import subprocess
import sys
import tempfile
import threading
import time
import tty
from pathlib import Path


def frame(*payload):
    """A framed command of address 1."""
    head = [1, 2, len(payload), *payload, 3]
    return bytes([*head, sum(head) & 0xFF])


ENQ, DLE, DC1, DC3 = (bytes([1, code, code + 1]) for code in (5, 16, 17, 19))
STEP_0 = frame(*b"\x1bS\0\x1bV\0\0\x1bC\x27\x10\x1bT\0\0\0\0\0\x1bD\0\0\0\x1bO\x3f\xde")
STEP_1 = frame(*b"\x1bS\1\x1bV\0\0\x1bC\x27\x10\x1bT\0\0\0\0\0\x1bD\0\0\0\x1bO\x3f\xde")
VOLTS_12_34 = frame(*b"\x1bV\x04\xd2\0\0")
OUTPUT_ON = frame(*b"\x1bA\1\0\0\0\0\0")
OUTPUT_OFF = frame(*b"\x1bA\0\0\0\0\0\0")
DATA_REPLY = 14  # bytes


class Line:
    """A pseudo-terminal for the panel, and what goes over it on its way to the supply and back."""

    def __init__(self, supply, link):
        self.supply = os.open(supply, os.O_RDWR | os.O_NOCTTY)
        tty.setraw(self.supply)
        self.link = link
        self.panel = None
        self.sent = []  # of the panel: (time, bytes), one read each
        self.answers = []
        self.plug()
        threading.Thread(target=self.carry, daemon=True).start()

    def plug(self):
        panel, self.inner = os.openpty()
        tty.setraw(self.inner)
        new = Path(f"{self.link}.new")
        new.symlink_to(os.ttyname(self.inner))
        new.replace(self.link)
        self.panel = panel

    def unplug(self):
        """As a pulled adapter: the panel's device is hung up, its name is gone."""
        panel, self.panel = self.panel, None
        self.link.unlink()
        os.close(self.inner)
        os.close(panel)

    def carry(self):
        while True:
            panel = self.panel
            try:
                ready, _, _ = select.select([self.supply, *([panel] if panel else [])], [], [], 0.05)
                if self.supply in ready:
                    data = os.read(self.supply, 512)
                    self.answers.append((time.monotonic(), data))
                    if self.panel:
                        os.write(self.panel, data)
                if panel in ready:
                    data = os.read(panel, 512)
                    self.sent.append((time.monotonic(), data))
                    os.write(self.supply, data)
            except OSError:
                time.sleep(0.05)  # unplugged meanwhile

    def times_of(self, wanted, since):
        return [at for at, data in self.sent[since:] if data.startswith(wanted)]

    def data_replies(self, since):
        return [at for at, data in self.answers[since:] if len(data) == DATA_REPLY]


class Trial:
    def __init__(self, words, environment, line, pictures):
        self.line = line
        self.pictures = pictures
        self.began = time.monotonic()
        self.panel = subprocess.Popen(words, env=environment, start_new_session=True)
        self.mark = 0

    def note(self, text):
        print(f"{time.monotonic() - self.began:7.2f} s  {text}", flush=True)

    def fail(self, text):
        tail = "".join(f"\n    {data.hex(' ')}" for _, data in self.line.sent[-12:])
        sys.exit(f"drive_panel: {text}; the last that it sent:{tail}")

    def wait(self, what, condition, limit=20.0):
        end = time.monotonic() + limit
        while not (result := condition()):
            if self.panel.poll() is not None and what != "the end":
                self.fail(f"the panel ended while waiting for {what}")
            if time.monotonic() > end:
                self.fail(f"no {what} within {limit:g} s")
            time.sleep(0.02)
        self.note(what)
        return result

    def expect(self, what, wanted, limit=20.0):
        """Waits until the panel has sent `wanted` after the last thing that was expected."""
        since = self.mark
        self.wait(what, lambda: self.line.times_of(wanted, since), limit)
        self.mark = next(
            i + 1
            for i, (_, data) in enumerate(self.line.sent)
            if i >= since and data.startswith(wanted)
        )

    def window(self, title):
        found = subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--name", title], capture_output=True, text=True
        ).stdout.split()
        return found[-1] if found else None

    def front(self, title):
        """Waits until the window of this title has the keyboard."""

        def active():
            name = subprocess.run(
                ["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True
            ).stdout
            return name.startswith(title)

        self.wait(f"the window {title}", active)
        time.sleep(0.3)

    def keys(self, *keys):
        for key in keys:
            subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)
            time.sleep(0.1)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "60", text], check=True)

    def picture(self, name):
        if self.pictures:
            target = Path(self.pictures, f"{name}.png")
            subprocess.run(["import", "-window", "root", str(target)], check=False)

    def run(self):
        self.wait("the settings window", lambda: self.window("^ZPS설정"))
        for what, sent in (("the start: is it there", ENQ), ("remote", DC3)):
            self.expect(what, sent)
        self.wait("the supply's ratings", lambda: self.line.data_replies(0))
        time.sleep(1)
        self.picture("settings")
        self.front("ZPS설정")
        self.keys("Escape")
        self.expect("the upload of step 00", STEP_0)
        self.front("ZPS-RS232")
        time.sleep(0.5)
        self.enter()
        self.switch_on_and_measure()
        self.lose_the_line()
        self.keys("F9")
        self.expect("the output off", OUTPUT_OFF)
        time.sleep(0.5)
        self.look_round()
        self.end()

    def enter(self):
        # Along the fields of row 00 to the button of row 01, and on to its voltage.
        self.keys(*["Tab"] * 7, "space")
        self.expect("the upload of step 01", STEP_1)
        self.keys("Tab")
        self.type("12.34")
        self.keys("Tab")
        self.expect("the voltage entered", VOLTS_12_34)
        self.picture("entered")

    def switch_on_and_measure(self):
        self.keys("F9")
        self.expect("the output on", OUTPUT_ON)
        since = len(self.line.answers)
        self.wait("fifty samples", lambda: len(self.line.data_replies(since)) >= 51, 30)
        samples = self.line.data_replies(since)[1:51]
        mean = (samples[-1] - samples[0]) / (len(samples) - 1) * 1000
        volts = int.from_bytes(self.line.answers[-1][1][5:8], "big") / 1000
        self.note(f"a sample every {mean:.0f} ms; the supply says {volts:g} V")
        if not (150 <= mean <= 190 and abs(volts - 12.34) < 0.1):
            self.fail("this is not what was to be")
        self.picture("running")

    def lose_the_line(self):
        self.line.unplug()
        self.note("the line is pulled")
        time.sleep(3)
        since = len(self.line.answers)
        self.line.plug()
        self.wait("ten samples on the line put back", lambda: len(self.line.data_replies(since)) > 10)

    def look_round(self):
        """By F10, Alt alone and Alt with a letter: all ways lead to the menus."""
        self.keys("F10", "Right", "Right", "Down", "Return")
        self.front("ZPS-RS232 정보")
        self.picture("about")
        self.keys("Escape")
        self.front("ZPS-RS232")
        self.keys("Alt_L", "Down", "t")
        self.front("통신 TEST")
        self.keys("F2")
        self.expect("the probe of the test window", ENQ)
        time.sleep(0.5)
        self.picture("test")
        self.keys("Escape")
        self.front("ZPS-RS232")

    def end(self):
        self.keys("alt+p", "x")
        self.front("프로그램 종료")
        self.picture("end")
        self.keys("alt+y")
        self.expect("local at the end", DC1)
        code = self.wait("the end", lambda: (self.panel.poll() is not None and [self.panel.poll()]))[0]
        if code != 0:
            self.fail(f"it ended with {code}")


def main():
    words = argparse.ArgumentParser()
    words.add_argument("--simulator", required=True)
    words.add_argument("--port", type=Path)
    words.add_argument("--pictures")
    words.add_argument("panel", nargs="+")
    given = words.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        environment = {**os.environ, "XDG_RUNTIME_DIR": folder}
        port = given.port or Path(folder, "zps-rs232", "COM1")
        port.parent.mkdir(mode=0o700, exist_ok=True)
        simulator = subprocess.Popen(
            [given.simulator, "--supply", "1:150V/10A", "--port", "4"],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            text=True,
            env=environment,
        )
        trial = None
        try:
            line = Line(simulator.stdout.readline().split()[1], port)
            if given.port:
                environment = None  # the panel's own surroundings
            trial = Trial(given.panel, environment, line, given.pictures)
            trial.run()
            print("The panel did all that was asked of it.")
        finally:
            if trial and trial.panel.poll() is None:
                os.killpg(trial.panel.pid, signal.SIGKILL)
            simulator.terminate()
            simulator.wait()
            port.unlink(missing_ok=True)


if __name__ == "__main__":
    main()
