import hashlib
import os

import gi

gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf, Gio, GLib

import services
from services import MIME_TYPE, expect

NAME = "org.freedesktop.thumbnails.Thumbnailer1"
service = Gio.DBusProxy.new_for_bus_sync(
    Gio.BusType.SESSION, 0, None, NAME, "/" + NAME.replace(".", "/"), NAME, None
)


def answers(uris, flavour):
    """What the service says about each file: "Ready", "Error"."""
    found = {}
    loop = GLib.MainLoop()

    def listen(proxy, sender, signal, parameters):
        values = parameters.unpack()
        if signal in ("Ready", "Error"):
            found.update(dict.fromkeys(values[1], signal))
        if signal == "Finished":
            loop.quit()

    handler = service.connect("g-signal", listen)
    arguments = GLib.Variant("(asasssu)", (uris, [MIME_TYPE] * len(uris), flavour, "default", 0))
    service.call_sync("Queue", arguments, 0, -1, None)
    GLib.timeout_add_seconds(60, loop.quit)
    loop.run()
    service.disconnect(handler)
    return found


good, bad = services.uri_of(services.good_skin()), services.uri_of(services.bad_skin())
_, types = service.call_sync("GetSupported", None, 0, -1, None).unpack()
expect(MIME_TYPE in types, True, "is supported")
for name in services.SIZES:
    expect(answers([good, bad], name), {good: "Ready", bad: "Error"}, name)
    digest = hashlib.md5(good.encode()).hexdigest()
    cache = os.path.join(os.environ["XDG_CACHE_HOME"], "thumbnails", name, digest + ".png")
    services.expect_thumbnail(GdkPixbuf.Pixbuf.new_from_file(cache), name)
