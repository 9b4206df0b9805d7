#!/usr/bin/env python3
"""A host of the module: a placeholder, a run that it stops, a whole run, a refused one, and a chart painted again.

Usage: host.py MODULE SAMPLE PICTURE.bmp
MODULE is libtradebill.so or TradeBill.dll, SAMPLE a folder like those in samples/.
"""

import configparser
import pathlib
import re
import struct
import sys
import threading

import tradebill

if sys.platform == "win32":
    import windows_side as side
else:
    import linux_side as side

NOTIFY_MESSAGE = 0x0401  # WM_USER + 1


def section_of(path, name):
    """The keys of one section; none if the file isn't there."""
    ini = configparser.ConfigParser(delimiters="=")
    ini.optionxform = str
    ini.read(path, encoding="utf-8")
    return dict(ini[name]) if name in ini else {}


class Host:
    """What the module calls. The objects handed to ctypes must live as long as a run may use them."""

    def __init__(self, module, sample):
        self.module = module
        self.sample = sample
        self.codes = section_of(sample / "products.ini", "PRODUCTS")
        self.units = section_of(sample / "units.ini", "UNITS")
        self.calls = []
        self.on_unit = lambda: None
        self.window = side.Window(module, lambda message, wparam: self.calls.append(("message", message, wparam)))
        self.stop = side.Event(module)
        self.acknowledged = side.Event(module)
        self.callbacks = (tradebill.ContractUnitFunction(self.unit_of), tradebill.ChartSizeFunction(self.take_sizes),
                          tradebill.ProductNameFunction(self.code_of))

    def unit_of(self, account, contract, delivery):
        self.calls.append(("unit", *(text.decode("gbk") for text in (account, contract, delivery))))
        self.on_unit()
        product = re.match(r"\D*", contract.decode("gbk")).group().strip()
        return int(self.units.get(product, 1))

    def take_sizes(self, report):
        sizes = report.contents  # gone when this returns: what is wanted later is copied
        self.calls.append(("sizes", *(getattr(sizes, name) for name, _type in sizes._fields_)))

    def code_of(self, name, code):
        self.calls.append(("product", name.decode("gbk")))
        found = self.codes.get(name.decode("gbk"))
        if found is None:
            return 0
        tradebill.ctypes.memmove(code, found.encode("gbk"), len(found))  # 32 bytes of zeros until then
        return 1

    def request(self):
        wanted = section_of(self.sample / "request.ini", "REQUEST")
        request = tradebill.GenerateBillRequest()
        request.HostWindow = self.window.handle
        request.Dpi = int(wanted["dpi"])
        request.StatementFormat = int(wanted["format"])
        request.StatementKind = 2 if wanted["kind"] == "foreign" else 1
        request.MarginOffsetFlag = int(wanted["margin_offset"])
        request.TemplateName = tradebill.file_bytes(wanted["template"])
        request.NotifyMessage = NOTIFY_MESSAGE
        request.ContractUnitCallback, request.ChartSizeCallback, request.ProductNameCallback = self.callbacks
        request.StopEvent = self.stop.handle
        request.AckEvent = self.acknowledged.handle
        request.StartDate = wanted["from"].encode("ascii")
        request.EndDate = wanted["to"].encode("ascii")
        request.Account = tradebill.file_bytes(wanted["account"])
        request.UserFolder = tradebill.file_bytes(wanted["user"])
        request.BaseMoney.EXCHANGE_RATE = 1.0
        return request

    def run(self, request):
        self.calls.clear()
        return self.module.TryGenerateBill(request)

    def last_error(self):
        """The lines of what went wrong in the last call."""
        return self.module.TradeBillLastError().decode("utf-8").splitlines()

    def calls_of(self, kind):
        return [call[1:] for call in self.calls if call[0] == kind]

    def close(self):
        for thing in (self.window, self.stop, self.acknowledged):
            thing.close()


def stop_a_run(host):
    """Stops a run from this thread while another one makes it: its first question for a unit waits for the stop."""
    reading, go_on = threading.Event(), threading.Event()

    def wait_for_the_stop():
        reading.set()
        go_on.wait()

    def run():
        host.run(host.request())
        reading.set()  # whatever became of it

    host.on_unit = wait_for_the_stop
    worker = threading.Thread(target=run)
    worker.start()
    reading.wait()
    host.stop.signal()
    go_on.set()
    seen = host.acknowledged.wait(5)
    worker.join()
    host.on_unit = lambda: None
    host.stop.reset()
    host.acknowledged.reset()
    print(f"stopped run: acknowledged {seen}, messages {len(host.calls_of('message'))}")


def make_the_report(host):
    code = host.run(host.request())
    print(f"report: 0x{code:08X}")
    for kind in ("unit", "product"):
        asked = host.calls_of(kind)
        print(f"  asked for {kind}s {len(asked)} times", *(f"beginning with {' '.join(call)}" for call in asked[:1]))
    for sizes in host.calls_of("sizes"):
        print("  charts:", *(f"{width}x{height}" for width, height in zip(sizes[:8:2], sizes[1:8:2])),
              f"of {sizes[8]} days")
    counts = tradebill.last_counts(host.module)
    print(f"  counted: {counts.Statements} statements on {counts.Days} days, {counts.Unreadable} unreadable,",
          f"{counts.Records} records, {counts.Pictures} pictures")
    for line in host.last_error():
        print(f"  wrong: {line}")
    for message, wparam in host.calls_of("message"):
        print(f"  message {message}, wParam {wparam}")


def ask_for_a_bad_date(host):
    request = host.request()
    request.EndDate = b"2024-13-1"
    print(f"month 13: 0x{host.run(request):08X}, messages {len(host.calls_of('message'))}")
    for line in host.last_error():
        print(f"  wrong: {line}")


def save_bmp(path, pixels, width, height):
    size = 4 * width * height
    header = struct.pack("<2sIIIIiiHHIIiiII", b"BM", 54 + size, 0, 54, 40, width, -height, 1, 32, 0, size, 0, 0, 0, 0)
    path.write_bytes(header + bytes(pixels))


def repaint(host, path, width=800, height=400):
    surface = side.Surface(width, height)
    rect = tradebill.ChartRect(0, 0, width, height)
    host.module.StretchZjGraph(surface.target, rect, width, height)
    save_bmp(path, surface.pixels, width, height)
    print(f"equity chart at {width}x{height}: status {surface.status()}")
    surface.close()


def main(module_path, sample, picture):
    sample = pathlib.Path(sample)
    module = tradebill.load(module_path)
    module.SetRootFolder(tradebill.file_bytes(sample / "root"))
    module.ResetTradeBillFile(tradebill.file_bytes(sample / "placeholder.html"), 0)
    print("placeholder:", len((sample / "placeholder.html").read_bytes()), "bytes")
    host = Host(module, sample)
    stop_a_run(host)
    make_the_report(host)
    repaint(host, pathlib.Path(picture))
    ask_for_a_bad_date(host)
    host.close()


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
