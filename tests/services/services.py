"""What the tests of thumbnail services share: files to ask for, and what to expect of them."""

import os
import shutil
import subprocess
import sys
import zipfile

import gi

gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf, Gio

MIME_TYPE = "application/x-winamp-skin"

# What a service asks for, by the name it has for it, and what it gets.
SIZES = {
    "normal": (128, (128, 54)),
    "large": (256, (256, 108)),
    "x-large": (512, (275, 116)),
    "xx-large": (1024, (825, 348)),
}

skin, folder = sys.argv[1:3]


def expect(actual, expected, what):
    if actual != expected:
        sys.exit(f"{what}: {actual!r} instead of {expected!r}")


def uri_of(path):
    return Gio.File.new_for_path(path).get_uri()


def type_of(path):
    with open(path, "rb") as file:
        return Gio.content_type_guess(path, file.read(4096))[0]


def good_skin():
    """A copy whose name has to be escaped, and is known by its extension in any case."""
    path = os.path.join(folder, "100% a skin, größer.WSZ")
    shutil.copy(skin, path)
    expect(type_of(path), MIME_TYPE, "type of a skin")
    return path


def bad_skin():
    path = os.path.join(folder, "bad.wsz")
    with open(path, "wb") as file:
        file.write(b"no archive at all")
    return path


def expect_thumbnail(pixbuf, name):
    """What the program itself writes, and what it says of the window."""
    size, expected = SIZES[name]
    own = os.path.join(folder, "own.png")
    subprocess.run(["velmar-thumbnailer", "-s", str(size), skin, own], check=True)
    expect((pixbuf.get_width(), pixbuf.get_height()), expected, name)
    direct = GdkPixbuf.Pixbuf.new_from_file(own)
    expect(pixbuf.get_pixels() == direct.get_pixels(), True, f"same pixels in {name}")


def expect_types():
    """The type by content alone, and its place among the others."""
    path = os.path.join(folder, "first-entry")
    for name, expected in [("MaIn.bMp", MIME_TYPE), ("main.txt", "application/zip")]:
        with zipfile.ZipFile(path, "w") as archive:
            archive.writestr(name, b"BM")
        expect(type_of(path), expected, f"type of an archive of {name}")
    expect(Gio.content_type_is_a(MIME_TYPE, "application/zip"), True, "is an archive")
