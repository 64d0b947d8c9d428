"""drag_source.py X Y URI...: shows a window at that place, from which the URIs can be dragged."""

import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402 (the versions come first)

x, y, *uris = sys.argv[1:]
window = Gtk.Window(title="Files to drag", default_width=200, default_height=100)
box = Gtk.EventBox()
window.add(box)
targets = [Gtk.TargetEntry.new("text/uri-list", 0, 0)]
box.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, targets, Gdk.DragAction.COPY)
box.connect("drag-data-get", lambda _box, _context, data, *_: data.set_uris(uris))
window.show_all()
window.move(int(x), int(y))
Gtk.main()
