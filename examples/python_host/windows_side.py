"""Window, event and painting surface of a host on Windows, by user32, kernel32 and the flat functions of GDI+."""

import ctypes
from ctypes import POINTER, byref, c_int, c_int32, c_size_t, c_ssize_t, c_uint32, c_void_p, c_wchar_p

WindowProcedure = ctypes.CFUNCTYPE(c_ssize_t, c_void_p, c_uint32, c_size_t, c_ssize_t)

WM_USER = 0x0400
GWLP_WNDPROC = -4
HWND_MESSAGE = -3
PIXEL_FORMAT_32BPP_ARGB = 0x26200A


def function(library, name, result, *arguments):
    found = getattr(ctypes.WinDLL(library), name)
    found.argtypes = arguments
    found.restype = result
    return found


class Window:
    """Hands messages from WM_USER on to `on_message(message, wparam)`, on the thread that made the window."""

    def __init__(self, _module, on_message):
        create = function("user32", "CreateWindowExW", c_void_p, c_uint32, c_wchar_p, c_wchar_p, c_uint32, c_int, c_int,
                          c_int, c_int, c_void_p, c_void_p, c_void_p, c_void_p)
        set_pointer = function("user32", "SetWindowLongPtrW", c_ssize_t, c_void_p, c_int, WindowProcedure)
        default = function("user32", "DefWindowProcW", c_ssize_t, c_void_p, c_uint32, c_size_t, c_ssize_t)

        def procedure(window, message, wparam, lparam):
            if message < WM_USER:
                return default(window, message, wparam, lparam)
            on_message(message, wparam)
            return 0

        self._procedure = WindowProcedure(procedure)
        self.handle = create(0, "STATIC", None, 0, 0, 0, 0, 0, HWND_MESSAGE, None, None, None)
        set_pointer(self.handle, GWLP_WNDPROC, self._procedure)

    def close(self):
        function("user32", "DestroyWindow", c_int, c_void_p)(self.handle)


class Event:
    """Stays signalled until it is reset."""

    def __init__(self, _module):
        create = function("kernel32", "CreateEventW", c_void_p, c_void_p, c_int, c_int, c_wchar_p)
        self.handle = create(None, 1, 0, None)

    def signal(self):
        function("kernel32", "SetEvent", c_int, c_void_p)(self.handle)

    def reset(self):
        function("kernel32", "ResetEvent", c_int, c_void_p)(self.handle)

    def wait(self, seconds):
        wait = function("kernel32", "WaitForSingleObject", c_uint32, c_void_p, c_uint32)
        return wait(self.handle, int(seconds * 1000)) == 0

    def close(self):
        function("kernel32", "CloseHandle", c_int, c_void_p)(self.handle)


class StartupInput(ctypes.Structure):
    _fields_ = [("GdiplusVersion", c_uint32), ("DebugEventCallback", c_void_p), ("SuppressBackgroundThread", c_int),
                ("SuppressExternalCodecs", c_int)]


class Graphics(ctypes.Structure):
    """The two members of a Gdiplus::Graphics object."""

    _fields_ = [("native", c_void_p), ("last_status", c_int32)]


class Surface:
    """32-bit pixels, the top row first, behind a GDI+ bitmap. `target` is what the module paints on."""

    def __init__(self, width, height):
        startup = function("gdiplus", "GdiplusStartup", c_int, POINTER(c_void_p), POINTER(StartupInput), c_void_p)
        create = function("gdiplus", "GdipCreateBitmapFromScan0", c_int, c_int, c_int, c_int, c_int, c_void_p,
                          POINTER(c_void_p))
        graphics_of = function("gdiplus", "GdipGetImageGraphicsContext", c_int, c_void_p, POINTER(c_void_p))
        self.pixels = (c_uint32 * (width * height))()
        self._token, self._bitmap, native = c_void_p(), c_void_p(), c_void_p()
        startup(byref(self._token), byref(StartupInput(1)), None)
        create(width, height, 4 * width, PIXEL_FORMAT_32BPP_ARGB, self.pixels, byref(self._bitmap))
        graphics_of(self._bitmap, byref(native))
        self._graphics = Graphics(native, 0)
        self.target = ctypes.addressof(self._graphics)

    def status(self):
        return self._graphics.last_status

    def close(self):
        function("gdiplus", "GdipDeleteGraphics", c_int, c_void_p)(self._graphics.native)
        function("gdiplus", "GdipDisposeImage", c_int, c_void_p)(self._bitmap)
        function("gdiplus", "GdiplusShutdown", None, c_void_p)(self._token)
