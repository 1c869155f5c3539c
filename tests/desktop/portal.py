#!/usr/bin/python3
# portal.py READY URI: a desktop's own service for dialogs that open files. It answers the first call with the URI, and
# later ones never.
#
# It makes the file READY when it can be called, and READY.unanswered at a call that it does not answer.
import pathlib
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

INTERFACE = """<node><interface name="org.freedesktop.portal.FileChooser"><method name="OpenFile">
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/>
<arg type="o" direction="out"/></method><property name="version" type="u" access="read"/></interface></node>"""
REQUEST = "/org/freedesktop/portal/desktop/request/"
uris = sys.argv[2:]


def ask(connection, _caller, _path, _interface, _method, _arguments, invocation):
    request = REQUEST + str(len(uris))
    invocation.return_value(GLib.Variant("(o)", (request,)))
    if uris:
        # The caller listens only after it has got the return value, so the answer is repeated.
        GLib.timeout_add(100, answer, connection, request, uris.pop())
    else:
        pathlib.Path(sys.argv[1] + ".unanswered").touch()


def answer(connection, request, uri):
    chosen = GLib.Variant("(ua{sv})", (0, {"uris": GLib.Variant("as", [uri])}))
    return connection.emit_signal(None, request, "org.freedesktop.portal.Request", "Response", chosen)


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object("/org/freedesktop/portal/desktop", Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], ask,
                    lambda *_: GLib.Variant("u", 4))
bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
              GLib.Variant("(su)", ("org.freedesktop.portal.Desktop", 0)), None, Gio.DBusCallFlags.NONE, -1, None)
pathlib.Path(sys.argv[1]).touch()
GLib.MainLoop().run()
