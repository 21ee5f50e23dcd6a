"""A window of another program, from which the files named on the command line can be dragged. It prints what the target
wants to do with them."""

import sys
from pathlib import Path

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

uris = [Path(name).resolve().as_uri() for name in sys.argv[1:]]
source = Gtk.EventBox()
source.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY | Gdk.DragAction.MOVE)
source.drag_source_add_uri_targets()
source.connect("drag-data-get", lambda _widget, _context, data, _info, _time: data.set_uris(uris))
source.connect("drag-end", lambda _widget, context: print("dropped:", context.get_selected_action().value_nicks, flush=True))
window = Gtk.Window(title="drag source")
window.set_default_size(150, 100)
window.add(source)
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
