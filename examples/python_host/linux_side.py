"""Window, event and painting surface of a host under Linux: the module's own stand-ins, and plain memory."""

import ctypes
from ctypes import c_int32, c_int64, c_uint32, c_uint64, c_void_p

from tradebill import ChartTarget

WindowFunction = ctypes.CFUNCTYPE(None, c_void_p, c_uint32, c_uint64, c_int64)


class Window:
    """Hands what it is sent to `on_message(message, wparam)`, on the thread that makes the report."""

    def __init__(self, module, on_message):
        self._module = module
        self._function = WindowFunction(lambda _context, message, wparam, _lparam: on_message(message, wparam))
        module.CreateHostWindow.argtypes = [WindowFunction, c_void_p]
        module.CreateHostWindow.restype = c_void_p
        module.DestroyHostWindow.argtypes = [c_void_p]
        self.handle = module.CreateHostWindow(self._function, None)

    def close(self):
        self._module.DestroyHostWindow(self.handle)


class Event:
    """Stays signalled until it is reset."""

    def __init__(self, module):
        self._module = module
        module.CreateHostEvent.argtypes = [c_int32]
        module.CreateHostEvent.restype = c_void_p
        for name in ("SignalHostEvent", "ResetHostEvent", "DestroyHostEvent"):
            getattr(module, name).argtypes = [c_void_p]
        module.WaitForHostEvent.argtypes = [c_void_p, c_int32]
        self.handle = module.CreateHostEvent(1)

    def signal(self):
        self._module.SignalHostEvent(self.handle)

    def reset(self):
        self._module.ResetHostEvent(self.handle)

    def wait(self, seconds):
        return self._module.WaitForHostEvent(self.handle, int(seconds * 1000)) == 1

    def close(self):
        self._module.DestroyHostEvent(self.handle)


class Surface:
    """32-bit pixels, the top row first. `target` is what the module paints on."""

    def __init__(self, width, height):
        self.pixels = (c_uint32 * (width * height))()
        self._record = ChartTarget(self.pixels, width, height, 4 * width, 0)
        self.target = ctypes.addressof(self._record)

    def status(self):
        return self._record.LastStatus

    def close(self):
        pass
