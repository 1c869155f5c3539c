#!/usr/bin/python3
# partner.py FILE: another program. Its upper half is dragged as the FILE's text. A text that is dropped onto the lower
# one goes into a file .dropped beside FILE.
import pathlib
import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

file = pathlib.Path(sys.argv[1])


def hand_out(_widget, _context, selection, _info, _time):
    selection.set_text(file.read_text(), -1)


def take(_widget, _context, _left, _top, selection, _info, _time):
    file.with_suffix(".dropped").write_text(selection.get_text())


source, target = Gtk.Button(label="Drag"), Gtk.Button(label="Drop")
source.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
source.drag_source_add_text_targets()
source.connect("drag-data-get", hand_out)
target.drag_dest_set(Gtk.DestDefaults.ALL, [], Gdk.DragAction.COPY)
target.drag_dest_add_text_targets()
target.connect("drag-data-received", take)
box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, homogeneous=True)
for half in source, target:
    box.pack_start(half, True, True, 0)
window = Gtk.Window(title="Partner", default_width=200, default_height=200)
window.add(box)
window.show_all()
Gtk.main()
