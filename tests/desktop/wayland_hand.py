#!/usr/bin/env python3
"""A mouse and a keyboard for sway, and its list of windows.

Reads commands from the standard input, one a line, and answers each with lines that end with an empty one:

    move X Y | button down | button up    # places are those of the screen
    press ctrl+a Return                   # one key after the other
    windows                               # of each its number, whether it has the focus, place, size, and title
"""
import array
import json
import os
import socket
import struct
import sys
import time

SCREEN = (1280, 1024)
KEYMAP = b"""xkb_keymap { xkb_keycodes { include "evdev" }; xkb_types { include "complete" };
  xkb_compat { include "complete" }; xkb_symbols { include "pc+us" }; };\0"""
MODIFIERS = {"shift": 1, "ctrl": 4, "alt": 8}  # the bits that the keymap gives them
# The codes that Linux gives to keys.
KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "ctrl": 29, "shift": 42, "alt": 56, "space": 57, "F4": 62, "KP_Enter": 96,
        "Home": 102, "Up": 103, "End": 107, "Down": 108, "Delete": 111}
for first, row in (16, "qwertyuiop"), (30, "asdfghjkl"), (44, "zxcvbnm"):
    KEYS.update((letter, first + place) for place, letter in enumerate(row))
LEFT_BUTTON = 0x110


class Compositor:
    """The Wayland protocol, as far as a mouse and a keyboard need it: objects are numbers, requests are numbers too."""

    DISPLAY, REGISTRY, CALLBACK, SEAT, POINTER_MANAGER, KEYBOARD_MANAGER, POINTER, KEYBOARD = range(1, 9)

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.request(self.DISPLAY, 1, self.REGISTRY)
        globals_ = self.globals()
        for new, interface in ((self.SEAT, "wl_seat"), (self.POINTER_MANAGER, "zwlr_virtual_pointer_manager_v1"),
                               (self.KEYBOARD_MANAGER, "zwp_virtual_keyboard_manager_v1")):
            name = interface.encode() + b"\0"
            padded = name + b"\0" * (-len(name) % 4)
            self.send(self.REGISTRY, 0, struct.pack("=II", globals_[interface], len(name)) + padded +
                      struct.pack("=II", 1, new))
        self.request(self.POINTER_MANAGER, 0, self.SEAT, self.POINTER)
        self.request(self.KEYBOARD_MANAGER, 0, self.SEAT, self.KEYBOARD)
        keymap = os.memfd_create("keymap")
        os.write(keymap, KEYMAP)
        self.send(self.KEYBOARD, 0, struct.pack("=II", 1, len(KEYMAP)), keymap)

    def send(self, receiver, opcode, arguments, descriptor=None):
        message = struct.pack("=II", receiver, (8 + len(arguments)) << 16 | opcode) + arguments
        passed = [] if descriptor is None else [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [descriptor]))]
        self.socket.sendmsg([message], passed)

    def request(self, receiver, opcode, *numbers):
        self.send(receiver, opcode, struct.pack(f"={len(numbers)}I", *numbers))

    def globals(self):
        """The interfaces that the compositor announces, with their names, up to the answer to a last request."""
        found = {}
        self.request(self.DISPLAY, 0, self.CALLBACK)
        while True:
            sender, head = struct.unpack("=II", self.socket.recv(8, socket.MSG_WAITALL))
            if sender == self.CALLBACK:
                self.socket.recv(4, socket.MSG_WAITALL)
                return found
            event = self.socket.recv((head >> 16) - 8, socket.MSG_WAITALL)
            if sender == self.REGISTRY:
                name, length = struct.unpack_from("=II", event)
                found[event[8:8 + length - 1].decode()] = name

    def move(self, left, top):
        self.request(self.POINTER, 1, now(), int(left), int(top), *SCREEN)
        self.request(self.POINTER, 4)

    def button(self, state):
        self.request(self.POINTER, 2, now(), LEFT_BUTTON, state == "down")
        self.request(self.POINTER, 4)

    def press(self, *chords):
        for chord in chords:
            *modifiers, key = chord.split("+")
            self.keys(modifiers, 1)
            self.request(self.KEYBOARD, 2, sum(MODIFIERS[modifier] for modifier in modifiers), 0, 0, 0)
            self.keys([key], 1)
            self.keys([key], 0)
            self.keys(modifiers, 0)
            self.request(self.KEYBOARD, 2, 0, 0, 0, 0)

    def keys(self, names, state):
        for name in names:
            self.request(self.KEYBOARD, 1, now(), KEYS[name], state)


def now():
    return int(time.monotonic() * 1000) & 0xFFFFFFFF


def windows():
    """Asks sway, in its own protocol."""
    with socket.socket(socket.AF_UNIX) as sway:
        sway.connect(os.environ["SWAYSOCK"])
        sway.sendall(b"i3-ipc" + struct.pack("=II", 0, 4))
        size = struct.unpack("=6sII", sway.recv(14, socket.MSG_WAITALL))[1]
        waiting = [json.loads(sway.recv(size, socket.MSG_WAITALL))]
    while waiting:
        node = waiting.pop()
        waiting += node["nodes"] + node["floating_nodes"]
        if node.get("pid"):
            place = " ".join(str(node["rect"][side]) for side in ("x", "y", "width", "height"))
            print(node["id"], int(node["focused"]), place, node["name"])


compositor = Compositor(os.environ["WAYLAND_DISPLAY"])
for line in sys.stdin:
    command, *arguments = line.split()
    windows() if command == "windows" else getattr(compositor, command)(*arguments)
    print(flush=True)
