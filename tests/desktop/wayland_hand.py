#!/usr/bin/env python3
"""A mouse and a keyboard for sway, and its list of windows.

Reads commands from the standard input, one a line, and answers each with lines that end with an empty one:

    move X Y | button down | button up    # places are those of the screen
    press ctrl+a Return                   # one key after the other
    windows                               # of each its number, whether it has the focus, place, size, and title
"""
import json
import os
import struct
import sys
import time
from socket import AF_UNIX, MSG_WAITALL, send_fds, socket

SCREEN = 1280, 1024
KEYMAP = """xkb_keymap { xkb_keycodes { include "evdev" }; xkb_types { include "complete" };
  xkb_compat { include "complete" }; xkb_symbols { include "pc+us" }; };\0"""
MODIFIERS = {"shift": 1, "ctrl": 4, "alt": 8}  # the bits that the keymap gives them
# The codes that Linux gives to keys and buttons.
KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "space": 57, "F4": 62, "KP_Enter": 96,
        "Home": 102, "Down": 108}
for first, row in (16, "qwertyuiop"), (30, "asdfghjkl"), (44, "zxcvbnm"):
    KEYS.update((letter, first + place) for place, letter in enumerate(row))
LEFT_BUTTON = 0x110

# The Wayland protocol, as far as a mouse and a keyboard need it: objects and requests are numbers.
DISPLAY, REGISTRY, ANSWER, SEAT, MICE, KEYBOARDS, MOUSE, KEYBOARD = range(1, 9)
INTERFACES = {SEAT: "wl_seat", MICE: "zwlr_virtual_pointer_manager_v1", KEYBOARDS: "zwp_virtual_keyboard_manager_v1"}
compositor = socket(AF_UNIX)


def send(receiver, request, *arguments, descriptors=()):
    body = b"".join(struct.pack("=I", argument) if isinstance(argument, int) else
                    struct.pack("=I", len(argument) + 1) + argument.encode() + bytes(4 - len(argument) % 4)
                    for argument in arguments)
    send_fds(compositor, [struct.pack("=II", receiver, (8 + len(body)) << 16 | request) + body], descriptors)


def offered():
    """The interfaces that the compositor offers, with their names, up to the answer to the last request."""
    names = {}
    while True:
        sender, head = struct.unpack("=II", compositor.recv(8, MSG_WAITALL))
        event = compositor.recv((head >> 16) - 8, MSG_WAITALL)
        if sender == ANSWER:
            return names
        if sender == REGISTRY:
            name, length = struct.unpack_from("=II", event)
            names[event[8:7 + length].decode()] = name


def connect():
    compositor.connect(os.environ["WAYLAND_DISPLAY"])
    send(DISPLAY, 1, REGISTRY)
    send(DISPLAY, 0, ANSWER)
    names = offered()
    for number, interface in INTERFACES.items():
        send(REGISTRY, 0, names[interface], interface, 1, number)
    send(MICE, 0, SEAT, MOUSE)
    send(KEYBOARDS, 0, SEAT, KEYBOARD)
    keymap = os.memfd_create("keymap")
    send(KEYBOARD, 0, 1, os.write(keymap, KEYMAP.encode()), descriptors=[keymap])


def now():
    return int(time.monotonic() * 1000) & 0xFFFFFFFF


def move(left, top):
    send(MOUSE, 1, now(), int(left), int(top), *SCREEN)
    send(MOUSE, 4)


def button(state):
    send(MOUSE, 2, now(), LEFT_BUTTON, int(state == "down"))
    send(MOUSE, 4)


def press(*chords):
    for *modifiers, key in (chord.split("+") for chord in chords):
        send(KEYBOARD, 2, sum(MODIFIERS[modifier] for modifier in modifiers), 0, 0, 0)
        for state in 1, 0:
            send(KEYBOARD, 1, now(), KEYS[key], state)
        send(KEYBOARD, 2, 0, 0, 0, 0)


def windows():
    """Asks sway, in its own protocol."""
    with socket(AF_UNIX) as sway:
        sway.connect(os.environ["SWAYSOCK"])
        sway.sendall(b"i3-ipc" + struct.pack("=II", 0, 4))
        size = struct.unpack("=6sII", sway.recv(14, MSG_WAITALL))[1]
        waiting = [json.loads(sway.recv(size, MSG_WAITALL))]
    for node in waiting:
        waiting += node["nodes"] + node["floating_nodes"]
        if node.get("pid"):
            print(node["id"], int(node["focused"]), *node["rect"].values(), node["name"])


connect()
for line in sys.stdin:
    command, *arguments = line.split()
    {"move": move, "button": button, "press": press, "windows": windows}[command](*arguments)
    print(flush=True)
