import os
import sys

import gi

gi.require_version("GdkPixbuf", "2.0")
gi.require_version("GnomeDesktop", "3.0")
from gi.repository import GdkPixbuf, GLib, GnomeDesktop

import services
from services import MIME_TYPE, expect

services.expect_types()
good, bad = services.good_skin(), services.bad_skin()
uri, time = services.uri_of(good), int(os.stat(good).st_mtime)
for name, size in [
    ("normal", GnomeDesktop.DesktopThumbnailSize.NORMAL),
    ("large", GnomeDesktop.DesktopThumbnailSize.LARGE),
    ("x-large", GnomeDesktop.DesktopThumbnailSize.XLARGE),
    ("xx-large", GnomeDesktop.DesktopThumbnailSize.XXLARGE),
]:
    factory = GnomeDesktop.DesktopThumbnailFactory.new(size)
    expect(factory.can_thumbnail(uri, MIME_TYPE, time), True, "can thumbnail")
    factory.save_thumbnail(factory.generate_thumbnail(uri, MIME_TYPE, None), uri, time, None)
    kept = GdkPixbuf.Pixbuf.new_from_file(factory.lookup(uri, time))
    services.expect_thumbnail(kept, name)
    for option, value in [("Width", "275"), ("Height", "116")]:
        expect(kept.get_option(f"tEXt::Thumb::Image::{option}"), value, option)

try:
    factory.generate_thumbnail(services.uri_of(bad), MIME_TYPE, None)
    sys.exit("a thumbnail of what is no skin")
except GLib.Error as error:
    expect("exited with code 2" in error.message, True, error.message)
