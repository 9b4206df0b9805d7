"""In which ways each system call is made to fail, and what its object is."""

import errno
import re

OPEN = ("once:EIO", "once:EINTR", "once:EACCES", "ever:EMFILE")
READ = ("once:EIO", "once:EINTR", "half", "halves", "ever:EIO")
WRITE = ("once:ENOSPC", "once:EINTR", "once:EIO", "half", "halves", "full:ENOSPC", "ever:ENOSPC")
CLOSE = ("once:EIO", "once:EINTR", "ever:EIO")
SYNC = ("once:EIO", "once:EINTR", "ever:EIO")
LOCK = ("once:ENOLCK", "once:EINTR", "ever:ENOLCK")
PLAIN = ("once:EIO", "ever:EIO")
RIGHTS = ("once:EPERM", "ever:EPERM")
FOLDER = ("once:EACCES", "once:ENOSPC", "ever:EACCES")

WAYS = {
    "open": OPEN, "openat": OPEN, "creat": OPEN,
    "read": READ, "pread64": READ, "readv": READ, "preadv": PLAIN,
    "write": WRITE, "pwrite64": WRITE, "writev": WRITE, "pwritev": PLAIN,
    "close": CLOSE, "fsync": SYNC, "fdatasync": SYNC, "flock": LOCK,
    "rename": FOLDER, "renameat": FOLDER, "renameat2": FOLDER, "link": FOLDER, "linkat": FOLDER,
    "unlink": FOLDER, "unlinkat": FOLDER, "rmdir": FOLDER, "mkdir": FOLDER, "mkdirat": FOLDER,
    "chmod": RIGHTS, "fchmod": RIGHTS, "fchmodat": RIGHTS, "chown": RIGHTS, "fchown": RIGHTS, "fchownat": RIGHTS,
    "mmap": ("once:ENOMEM", "ever:ENOMEM"),
    "dup": ("once:EMFILE",), "dup2": ("once:EMFILE",), "dup3": ("once:EMFILE",),
    "ftruncate": ("once:EIO", "once:EINTR", "ever:EIO"), "truncate": ("once:EIO", "once:EINTR", "ever:EIO"),
}

# The system's own libraries and what they read by themselves: the dynamic loader, the C library's start, its conversions and its
# clock, fontconfig and the faces that FreeType reads through it. Nobody can say what they do with a failure, so it needn't be told;
# but no failure there may end in a crash, a hang or a torn file either.
FONT = "font"
APART = (
    ("system library", r"^/(usr/)?lib(64)?/|^/etc/ld\.so|^/proc/self/exe$"),
    ("locale and clock", r"^/etc/localtime|^/usr/share/(locale|zoneinfo|i18n)|/gconv/"),
    (FONT, r"^/usr/(local/)?share/fonts|^/usr/share/wine/fonts|^/usr/share/X11/fonts"),
    ("font settings", r"^/etc/fonts|^/usr/share/fontconfig|^/var/cache/fontconfig|/fonts\.conf|/font_cache|/\.fonts|/\.?fontconfig"),
    ("a look at what is to spare", r"^/$"),
    ("other files of the system", r"^/(usr|etc|var|proc|sys|lib64)/(?!.*tradebill)"),
)
# A failure for ever doesn't reach what lies here.
APART_FOLDERS = ("/usr/", "/etc/", "/lib", "/var/", "/proc/")
PROGRAMS = "module and programs"
# What a file is; the first that fits. A file that isn't in its place yet is of the kind that it will be.
KINDS = (
    ("standard stream", r"^std(in|out|err)$|^pipe$"),
    (PROGRAMS, r"/bin/(tradebill|library_host)$|/libtradebill"),
    ("lock", r"\.lock$|/lock$"),
    ("page", r"TradeBill\.html|/\.tradebill-[^/]*/page"),
    ("picture", r"/Image_files/|\.(png|jpe?g)(\.|$)"),
    ("standalone page", r"\.html"),
    ("JSON", r"\.json"),
    ("table", r"\.csv"),
    ("database", r"\.db"),
    ("template", r"/BillTemplate(/|$)"),
    ("statement", r"/Bill/D[^/]*\.txt$"),
    ("settings", r"\.ini$"),
    ("run's folder", r"/\.tradebill-[^/]*/?$"),
    ("folder", r"."),
)

# Of a process that makes two reports: what is short in the first, for everybody, and there again for the second. Looking at a file
# isn't of these: fontconfig, which can't look at its folders, takes it that there are no fonts, and keeps that to itself.
SPELLS = {"openat": "spell:EMFILE", "pread64": "spell:EIO", "read": "spell:EIO", "write": "spell:ENOSPC", "pwrite64": "spell:ENOSPC",
          "mmap": "spell:ENOMEM", "mkdir": "spell:ENOSPC", "rename": "spell:EACCES"}


def errors_by_number(way):
    """The way as the injector reads it: "once:EIO" becomes "once:5"."""
    how, _, error = way.replace("spell", "ever").partition(":")
    return f"{how}:{getattr(errno, error)}" if error else how


def ways(call):
    return WAYS.get(call, PLAIN)


def apart(path):
    """The kind of a file that is the system's own, or an empty text."""
    return next((kind for kind, pattern in APART if re.search(pattern, path)), "")


def kind(path):
    if not path:
        return "no object"
    return apart(path) or next(name for name, pattern in KINDS if re.search(pattern, path))
